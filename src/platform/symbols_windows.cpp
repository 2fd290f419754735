#include <system_error>

#include "base/files/system_fault.h"
#include "base/files/windows_api.h"
#include "platform/symbols.h"

namespace vanzet::platform {
namespace {

constexpr std::size_t kLongestName = 1 << 15;

/// The file that contains this code.
HMODULE Self(DWORD flags) {
  HMODULE self = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | flags, reinterpret_cast<LPCWSTR>(&OwnFolder),
                     &self);
  return self;
}

}  // namespace

void* FindSymbol(void* module, const char* name) {
  const HMODULE searched = module == nullptr ? GetModuleHandleW(nullptr) : static_cast<HMODULE>(module);
  return reinterpret_cast<void*>(GetProcAddress(searched, name));
}

Result<void*> LoadLibraryFile(const std::filesystem::path& file) {
  const HMODULE library = LoadLibraryW(file.c_str());
  if (library != nullptr) return static_cast<void*>(library);
  const std::error_code reason(static_cast<int>(GetLastError()), std::system_category());
  return files::SystemFault("cannot be loaded", reason, file);
}

std::filesystem::path OwnFolder() {
  std::wstring file(kLongestName, L'\0');
  file.resize(
      GetModuleFileNameW(Self(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT), file.data(), kLongestName));
  return std::filesystem::path(file).parent_path();
}

// Each load of a library that has the compiler's libraries within costs one of the 1088 slots of thread data
// of the process, which an unload does not give back: without the last one the process ends.
void KeepLoaded() {
  Self(GET_MODULE_HANDLE_EX_FLAG_PIN);
}

}  // namespace vanzet::platform
