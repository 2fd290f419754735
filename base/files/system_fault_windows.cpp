#include <system_error>

#include "base/files/system_fault.h"
#include "base/files/wide_text_windows.h"
#include "base/files/windows_api.h"

namespace vanzet::files {
namespace {

/// The reason for a code of the system in English, or in its own language where it has no English.
std::string Reason(DWORD code) {
  constexpr DWORD kFlags =
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
  constexpr DWORD kRoom = 512;
  wchar_t text[kRoom] = {};
  for (const WORD language : {WORD{MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US)}, WORD{0}}) {
    const DWORD length = FormatMessageW(kFlags, nullptr, code, language, text, kRoom, nullptr);
    const std::wstring_view reason(text, length);
    const std::size_t last = reason.find_last_not_of(L" .\r\n");
    if (last != std::wstring_view::npos) return Utf8Text(reason.substr(0, last + 1));
  }
  return "error " + std::to_string(code);
}

Fault FaultOf(const std::string& what, const std::string& reason, const std::filesystem::path& file) {
  return {.text = what + ": " + reason, .file = Utf8Text(file.native()), .kind = FaultKind::kSystem};
}

}  // namespace

std::string SystemReason(int error) {
  return std::generic_category().message(error);
}

Fault SystemFault(const std::string& what, int error, const std::filesystem::path& file) {
  return FaultOf(what, SystemReason(error), file);
}

Fault SystemFault(const std::string& what, const std::error_code& error, const std::filesystem::path& file) {
  const bool isOfTheSystem = error.category() == std::system_category();
  return FaultOf(what, isOfTheSystem ? Reason(static_cast<DWORD>(error.value())) : error.message(), file);
}

}  // namespace vanzet::files
