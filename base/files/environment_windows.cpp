#include "base/files/environment.h"
#include "base/files/wide_text_windows.h"
#include "base/files/windows_api.h"

namespace vanzet::files {

std::string EnvironmentText(const char* name) {
  const std::wstring wideName = WideText(name);
  const DWORD room = GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
  std::wstring value(room, L'\0');
  value.resize(GetEnvironmentVariableW(wideName.c_str(), value.data(), room));
  return Utf8Text(value);
}

}  // namespace vanzet::files
