#include "catalogue/catalogue_lines.h"

#include <algorithm>
#include <istream>

namespace vanzet {
namespace {

std::string_view WithoutReturns(std::string_view line) {
  return line.substr(0, line.find_last_not_of('\r') + 1);
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

std::string OneCatalogueLine(std::string_view text) {
  return std::string(WithoutReturns(text.substr(0, text.find('\n')).substr(0, kLongestCatalogueLine)));
}

}  // namespace vanzet
