#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// Readers of value lines, whose fields are separated by white space. None throws.
namespace vanzet::host {

/// Reads the number that the text begins with, white space before it passed over, and returns the characters
/// used, that white space among them. Without a number, or with one that does not fit: 0, and `out` stays.
/// Integers are decimal; a truth value is an integer, true for all but zero.
std::size_t ParseIntPrefix(const std::string& text, std::int32_t& out);
std::size_t ParseBoolPrefix(const std::string& text, bool& out);
std::size_t ParseRealPrefix(const std::string& text, double& out);

/// Reads the field at `position` and returns the characters of the number alone; `position` moves after it.
/// White space before it is passed over first, up to a NUL or a byte with its high bit set. Without a number:
/// 0, `out` becomes `defaultValue`, and `position` stays after the white space.
std::size_t ReadIntField(const std::string& text, std::size_t& position, std::int32_t& out,
                         std::int32_t defaultValue);
std::size_t ReadBoolField(const std::string& text, std::size_t& position, bool& out, bool defaultValue);
std::size_t ReadRealField(const std::string& text, std::size_t& position, double& out, double defaultValue);

/// Where the first token of the text starts, and its length. It ends at the next white space. The position
/// plays no part: the search is from the beginning. A token that opens with a single quote has the length 0,
/// which the upgrade of a version item relies on: such an item keeps its old text after the new version.
std::size_t FindFirstToken(const std::string& text, std::size_t position, std::size_t& length);

}  // namespace vanzet::host
