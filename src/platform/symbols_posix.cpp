#include <dlfcn.h>

#include "platform/symbols.h"

namespace vanzet::platform {

// A null handle is the loader's own name for "the program and what it was started with".
static_assert(RTLD_DEFAULT == nullptr);

void* FindSymbol(void* module, const char* name) {
  return dlsym(module, name);
}

}  // namespace vanzet::platform
