#include <windows.h>

#include "platform/symbols.h"

namespace vanzet::platform {

void* FindSymbol(void* module, const char* name) {
  const HMODULE searched = module == nullptr ? GetModuleHandleA(nullptr) : static_cast<HMODULE>(module);
  return reinterpret_cast<void*>(GetProcAddress(searched, name));
}

Result<void*> LoadLibraryFile(const std::filesystem::path& file) {
  const HMODULE library = LoadLibraryW(file.c_str());
  if (library == nullptr) {
    return Fault{file.string() + ": cannot be loaded, reason " + std::to_string(GetLastError())};
  }
  return static_cast<void*>(library);
}

std::filesystem::path OwnFolder() {
  HMODULE self = nullptr;
  wchar_t file[MAX_PATH] = {};
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&OwnFolder), &self);
  GetModuleFileNameW(self, file, MAX_PATH);
  return std::filesystem::path(file).parent_path();
}

}  // namespace vanzet::platform
