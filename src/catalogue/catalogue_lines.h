#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

/// The clampdevice file as lines: docs/formats/catalogue.md.
namespace vanzet {

/// The bytes that a line may have; a longer one is read as several.
inline constexpr std::size_t kLongestCatalogueLine = 1023;

/// Appends the lines of the text, empty ones too. They end with LF or CR LF, the last one also without; no
/// carriage return stays at the end of one.
void ReadCatalogueLines(std::istream& text, std::vector<std::string>& lines);

/// The text of the lines, with a line feed after each.
std::string CatalogueText(const std::vector<std::string>& lines);

/// The part of the text that is read back as one line.
std::string OneCatalogueLine(std::string_view text);

}  // namespace vanzet
