#include "base/fault_caret.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/utf8.h"

namespace vanzet {
namespace {

/// In characters.
constexpr std::size_t kMostShown = 100;
constexpr const char* kIndent = "  ";
constexpr std::string_view kDots = "...";

/// A character of the line as it is shown, and the blanks that are as wide.
struct Cell {
  std::string shown, blank;
};

Cell CellOf(std::string_view character) {
  if (character == "\t") return {"\t", "\t"};
  const std::string shown = OneLine(character);
  if (shown == character) return {shown, " "};
  return {shown, std::string(shown.size(), ' ')};
}

/// The cells of a line. `at` becomes the cell that the byte with this index belongs to.
std::vector<Cell> CellsOf(std::string_view line, std::size_t byte, std::size_t& at) {
  std::vector<Cell> cells;
  for (std::size_t from = 0; from < line.size();) {
    const std::size_t length = Utf8Length(line.substr(from));
    const std::size_t to = from + std::max<std::size_t>(length, 1);
    if (byte >= from && byte < to) at = cells.size();
    cells.push_back(length == 0 ? Cell{std::string(kNoUtf8), " "} : CellOf(line.substr(from, length)));
    from = to;
  }
  if (byte >= line.size()) at = cells.size();
  return cells;
}

}  // namespace

std::string CaretText(const Fault& fault) {
  if (fault.source.empty() || fault.column < 1) return "";
  std::size_t at = 0;
  const auto cells = CellsOf(fault.source, static_cast<std::size_t>(fault.column) - 1, at);
  const std::size_t latest = cells.size() > kMostShown ? cells.size() - kMostShown : 0;
  const std::size_t begin = std::min(latest, at > kMostShown / 2 ? at - kMostShown / 2 : 0);
  const std::size_t end = std::min(cells.size(), begin + kMostShown);

  std::string line = kIndent, caret = kIndent;
  if (begin > 0) {
    line += kDots;
    caret.append(kDots.size(), ' ');
  }
  for (std::size_t i = begin; i < end; ++i) {
    line += cells[i].shown;
    if (i < at) caret += cells[i].blank;
  }
  if (end < cells.size()) line += kDots;
  return line + "\n" + caret + "^\n";
}

}  // namespace vanzet
