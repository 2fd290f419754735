#include "drawing/pen.h"

#include <algorithm>

namespace vanzet::drawing {
namespace {

// Dark enough to be seen on white.
// clang-format off
constexpr Colour kColours[] = {
    { "black",   "#1d2328" },
    { "blue",    "#1f5fb4" },
    { "brown",   "#8a4b20" },
    { "cyan",    "#0f95a8" },
    { "green",   "#2e7d32" },
    { "grey",    "#7c868e" },
    { "magenta", "#c2189b" },
    { "orange",  "#d9770f" },
    { "red",     "#cc2222" },
    { "violet",  "#6a3fb5" },
    { "yellow",  "#c9a800" },
};

constexpr LineStyle kLineStyles[] = {
    { "solid",   { 0, 0, 0, 0 } },
    { "dash",    { 9, 5, 9, 5 } },
    { "dashdot", { 12, 4, 2, 4 } },
    { "dot",     { 0.6, 4.4, 0.6, 4.4 } },
};
// clang-format on

template <class Row>
const Row* Find(std::span<const Row> rows, std::string_view name) {
  const auto row = std::ranges::find(rows, name, &Row::name);
  return row == rows.end() ? nullptr : &*row;
}

template <class Row>
std::string Names(std::span<const Row> rows) {
  std::string names;
  for (const Row& row : rows) {
    const bool isLast = &row == &rows.back();
    names += (names.empty() ? "" : isLast ? " or " : ", ") + std::string(row.name);
  }
  return names;
}

}  // namespace

std::span<const Colour> Colours() {
  return kColours;
}

std::span<const LineStyle> LineStyles() {
  return kLineStyles;
}

const Colour* FindColour(std::string_view name) {
  return Find(Colours(), name);
}

const LineStyle* FindLineStyle(std::string_view name) {
  return Find(LineStyles(), name);
}

std::string ColourNames() {
  return Names(Colours());
}

std::string LineStyleNames() {
  return Names(LineStyles());
}

}  // namespace vanzet::drawing
