#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "base/result.h"

namespace vanzet::cli {

using Json = nlohmann::ordered_json;

/// Prints a result on standard output. Fails when it cannot be written, as on a full disk.
Result<void> Print(const std::string& text);

/// Prints a result beside other outputs of the command: where one of their names is "-", standard output has
/// that output alone, and the result goes to standard error.
Result<void> PrintBeside(std::initializer_list<std::string_view> outputs, const std::string& text);

/// Prints a result for programs: indented, with a line end. Bytes that are not UTF-8 become U+FFFD; all
/// control characters in texts are escaped.
Result<void> PrintJson(const Json& json);

/// The item on one line, with a backslash as \\ and control characters as \n, \r, \t and \x1b, so that
/// programs can read it back and terminals do not act on it.
std::string EscapedItem(std::string_view item);

/// "1 record", "18 records".
std::string Counted(std::size_t count, const std::string& noun);

/// The number of characters of a UTF-8 text.
std::size_t Width(std::string_view text);

/// The text, filled with blanks up to `width` characters of UTF-8; `Right` puts the blanks before the text.
std::string Right(const std::string& text, std::size_t width);
std::string Left(const std::string& text, std::size_t width);

/// Rows in columns as wide as their widest cell. `alignment` has a letter for each column, 'r' for right or
/// 'l' for left; no blanks follow the last cell of a row.
/// Requires: all rows have as many cells as `alignment` has letters.
std::string Columns(const std::vector<std::vector<std::string>>& rows, std::string_view alignment,
                    const std::string& indent = "");

}  // namespace vanzet::cli
