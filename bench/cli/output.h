#pragma once

#include <string>
#include <string_view>

#include <nlohmann/json_fwd.hpp>

#include "base/result.h"

namespace vanzet::cli {

using Json = nlohmann::ordered_json;

/// Results go to standard output through here. A fault when it cannot be written, as on a full disk.
Result<void> Print(const std::string& text);

/// The same for programs: indented, with a line end. Bytes that are no UTF-8 become U+FFFD.
Result<void> PrintJson(const Json& json);

/// An item on one line, so that programs can read it back: backslash, line feed, carriage return and tab as
/// \\ \n \r \t.
std::string EscapedItem(std::string_view item);

/// "1 record", "18 records".
std::string Counted(std::size_t count, const std::string& noun);

/// The characters of a UTF-8 text: bytes that continue one take no place.
std::size_t Width(std::string_view text);

/// The text with blanks before or behind it up to `width` characters of UTF-8.
std::string Right(const std::string& text, std::size_t width);
std::string Left(const std::string& text, std::size_t width);

}  // namespace vanzet::cli
