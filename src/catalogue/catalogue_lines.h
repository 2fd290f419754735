#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

/// The clampdevice file as lines: docs/formats/catalogue.md.
namespace vanzet {

/// The bytes that a line may have; a longer one is read as several.
inline constexpr std::size_t kLongestCatalogueLine = 1023;

/// Appends the lines of the text, empty ones too. They end with LF or CR LF, the last one also without; no
/// carriage return stays at the end of one.
void ReadCatalogueLines(std::istream& text, std::vector<std::string>& lines);

/// The text of the lines, with a line feed after each.
std::string CatalogueText(const std::vector<std::string>& lines);

/// Fails when the lines are not those of a catalogue: at least half of the pairs, or the only line, do not
/// have the values of a device in their second line. Those are the number of a type and words of digits,
/// signs and points. The fault names the first such line of `file`. Lines that are all empty are a catalogue.
Result<void> CheckCatalogueLines(const std::vector<std::string>& lines, const std::string& file);

/// The part of the text that is read back as one line.
std::string OneCatalogueLine(std::string_view text);

}  // namespace vanzet
