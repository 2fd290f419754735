#include <windows.h>

#include "platform/symbols.h"

namespace vanzet::platform {

void* FindSymbol(void* module, const char* name) {
  const HMODULE searched = module == nullptr ? GetModuleHandleA(nullptr) : static_cast<HMODULE>(module);
  return reinterpret_cast<void*>(GetProcAddress(searched, name));
}

}  // namespace vanzet::platform
