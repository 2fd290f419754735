#pragma once

#include <string>
#include <string_view>

namespace vanzet::platform {

/// The longest value that a read gives, in bytes; the rest is cut.
inline constexpr std::size_t kLongestProfileValue = 1023;

/// The value of `key` in the section `section` of the ini file `path`, or `defaultText` when the file, the
/// section or the key is missing.
///
/// Sections and keys are compared without regard to case; the first section of the name and the first of
/// equal keys count. The form of the lines: base/ini.h. A key without a text behind its '=' has an empty
/// value, which is not the default.
std::string ReadProfileText(std::string_view section, std::string_view key, std::string_view defaultText,
                            std::string_view path);

}  // namespace vanzet::platform
