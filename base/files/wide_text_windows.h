#pragma once

#include <string>
#include <string_view>

/// Texts on their way to the system and back: the one place that knows of the process's code page. Inside,
/// texts are bytes as the host gives them, or UTF-8 where they are our own.
namespace vanzet::files {

/// The text as the system takes it: read as UTF-8 where it is valid UTF-8, else in the process's code page.
std::wstring WideText(std::string_view text);

/// The text in UTF-8; half of a surrogate pair, which names of files may have, becomes U+FFFD.
std::string Utf8Text(std::wstring_view text);

/// The text in the process's code page, which is that of the host. A character that it lacks becomes the one
/// that looks most like it, or '?'.
std::string CodePageText(std::wstring_view text);

/// The whole name of a file, from its drive or server, without "." and "..". It need not exist.
std::wstring WholeName(const std::wstring& name);

/// A name that the system takes whatever its length: a long one is whole and begins with "\\?\".
std::wstring NameOfAnyLength(const std::wstring& name);

}  // namespace vanzet::files
