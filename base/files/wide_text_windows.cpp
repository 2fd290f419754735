#include "base/files/wide_text_windows.h"

#include "base/files/windows_api.h"

namespace vanzet::files {
namespace {

/// A folder's name of this length has no room for a file's in the 260 characters that names may have.
constexpr std::size_t kShortName = 248;

/// The text in wide characters; empty when it is not one of the code page and `flags` ask for that.
std::wstring Widen(std::string_view text, UINT codePage, DWORD flags) {
  const int bytes = static_cast<int>(text.size());
  const int length = MultiByteToWideChar(codePage, flags, text.data(), bytes, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(codePage, flags, text.data(), bytes, wide.data(), length);
  return wide;
}

std::string Narrow(std::wstring_view text, UINT codePage) {
  const int length = static_cast<int>(text.size());
  const int bytes = WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(codePage, 0, text.data(), length, narrow.data(), bytes, nullptr, nullptr);
  return narrow;
}

}  // namespace

std::wstring WideText(std::string_view text) {
  std::wstring wide = Widen(text, CP_UTF8, MB_ERR_INVALID_CHARS);
  return wide.empty() ? Widen(text, CP_ACP, 0) : wide;
}

std::string Utf8Text(std::wstring_view text) {
  return Narrow(text, CP_UTF8);
}

std::string CodePageText(std::wstring_view text) {
  return Narrow(text, CP_ACP);
}

std::wstring WholeName(const std::wstring& name) {
  const DWORD room = GetFullPathNameW(name.c_str(), 0, nullptr, nullptr);
  std::wstring whole(room, L'\0');
  whole.resize(GetFullPathNameW(name.c_str(), room, whole.data(), nullptr));
  return whole.empty() ? name : whole;
}

std::wstring NameOfAnyLength(const std::wstring& name) {
  if (name.empty() || name.starts_with(LR"(\\?\)") || name.starts_with(LR"(\\.\)")) return name;
  const std::wstring whole = WholeName(name);
  if (whole.size() < kShortName) return name;
  return whole.starts_with(LR"(\\)") ? LR"(\\?\UNC)" + whole.substr(1) : LR"(\\?\)" + whole;
}

}  // namespace vanzet::files
