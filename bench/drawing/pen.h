#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace vanzet::drawing {

/// A colour: its name in macro lines and drawings, and its value in pictures.
struct Colour {
  std::string_view name;
  std::string_view svg;
};

/// A line style: its name, and the lengths of its strokes and gaps in pixels; all 0 for an unbroken line.
struct LineStyle {
  std::string_view name;
  std::array<double, 4> dashes;
};

/// All colours and line styles; the first of each is the default.
std::span<const Colour> Colours();
std::span<const LineStyle> LineStyles();

/// The row of that name, or null.
const Colour* FindColour(std::string_view name);
const LineStyle* FindLineStyle(std::string_view name);

/// The names of a table for messages: "black, blue or red".
std::string ColourNames();
std::string LineStyleNames();

/// A colour and a line style, which point into the tables.
struct Pen {
  const Colour* colour = Colours().data();
  const LineStyle* style = LineStyles().data();

  bool operator==(const Pen&) const = default;
};

}  // namespace vanzet::drawing
