#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace vanzet::drawing {

/// A colour by the name that macro lines and drawings use, and as pictures have it.
struct Colour {
  std::string_view name;
  std::string_view svg;
};

/// A line style by its name, and its strokes and gaps in pixels; all 0: unbroken.
struct LineStyle {
  std::string_view name;
  std::array<double, 4> dashes;
};

/// All there are; the first of each is what is drawn with when nothing else is said.
std::span<const Colour> Colours();
std::span<const LineStyle> LineStyles();

/// The row of that name, or null.
const Colour* FindColour(std::string_view name);
const LineStyle* FindLineStyle(std::string_view name);

/// The names of a table for messages: "black, blue or red".
std::string ColourNames();
std::string LineStyleNames();

/// What something is drawn with. Points into the tables.
struct Pen {
  const Colour* colour = Colours().data();
  const LineStyle* style = LineStyles().data();

  bool operator==(const Pen&) const = default;
};

}  // namespace vanzet::drawing
