#include "catalogue/catalogue_lines.h"

#include <algorithm>
#include <istream>
#include <sstream>

#include "base/numbers.h"
#include "devices/kinds.h"

namespace vanzet {
namespace {

std::string_view WithoutReturns(std::string_view line) {
  return line.substr(0, line.find_last_not_of('\r') + 1);
}

/// True for a type of the table and numbers, in whatever form a program once wrote them.
bool IsValueLine(const std::string& line) {
  std::istringstream fields(line);
  std::string field;
  if (!(fields >> field)) return false;
  const auto type = WholeInteger(field);
  if (!type || devices::KindOf(*type) == nullptr) return false;
  while (fields >> field) {
    if (field.find_first_not_of("0123456789+-.,eE") != std::string::npos) return false;
  }
  return true;
}

}  // namespace

void ReadCatalogueLines(std::istream& text, std::vector<std::string>& lines) {
  for (std::string line; std::getline(text, line);) {
    std::string_view rest = WithoutReturns(line);
    do {
      lines.emplace_back(WithoutReturns(rest.substr(0, kLongestCatalogueLine)));
      rest.remove_prefix(std::min(rest.size(), kLongestCatalogueLine));
    } while (!rest.empty());
  }
}

std::string CatalogueText(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append("\n");
  return text;
}

Result<void> CheckCatalogueLines(const std::vector<std::string>& lines, const std::string& file) {
  if (std::ranges::all_of(lines, [](const std::string& line) { return line.empty(); })) return {};
  std::size_t devices = 0, firstOther = 0;
  for (std::size_t at = 1; at < lines.size(); at += 2) {
    const bool isDevice = IsValueLine(lines[at]);
    if (isDevice) ++devices;
    if (!isDevice && firstOther == 0) firstOther = at;
  }
  if (devices > lines.size() / 2 - devices) return {};
  return Fault{.text = "expected the values of a device; a file that is not a catalogue is not changed",
               .file = file,
               .line = static_cast<int>(firstOther) + 1};
}

std::string OneCatalogueLine(std::string_view text) {
  return std::string(WithoutReturns(text.substr(0, text.find('\n')).substr(0, kLongestCatalogueLine)));
}

}  // namespace vanzet
