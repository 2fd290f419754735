#pragma once

#include <string>
#include <string_view>

namespace vanzet::platform {

/// The longest value that is returned, in bytes; a longer one is cut.
inline constexpr std::size_t kLongestProfileValue = 1023;

/// Returns the value of `key` in the section `section` of the ini file `path`, or `defaultText` when the
/// file, the section or the key does not exist.
///
/// The host is given the reason (platform::ReportFault) when the system keeps a file that exists from being
/// read: the default would look like the file's own value.
///
/// The case of sections and keys is ignored; the first section of the name and the first of equal keys count.
/// The form of the lines: base/ini.h. A key without a text after its '=' has an empty value, not the default.
std::string ReadProfileText(std::string_view section, std::string_view key, std::string_view defaultText,
                            std::string_view path);

}  // namespace vanzet::platform
