#include <dlfcn.h>

#include "platform/symbols.h"

namespace vanzet::platform {

// A null handle is the loader's own name for "the program and what it was started with".
static_assert(RTLD_DEFAULT == nullptr);

void* FindSymbol(void* module, const char* name) {
  return dlsym(module, name);
}

Result<void*> LoadLibraryFile(const std::filesystem::path& file) {
  void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return Fault{dlerror()};
  return library;
}

std::filesystem::path OwnFolder() {
  Dl_info self = {};
  if (dladdr(reinterpret_cast<const void*>(&OwnFolder), &self) == 0) return {};
  std::error_code unknown;
  return std::filesystem::absolute(self.dli_fname, unknown).parent_path();
}

void KeepLoaded() {}

}  // namespace vanzet::platform
