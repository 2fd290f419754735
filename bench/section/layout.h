#pragma once

#include <functional>
#include <string>
#include <vector>

#include "section/section.h"

/// The dimensions and labels of a section, each with a place of its own.
namespace vanzet::section {

struct Line {
  geometry::Point from, to;
};

struct Arrow {
  geometry::Point tip;
  geometry::Vector2d direction;  ///< of length 1, in which it points
};

enum class Anchor { kStart, kMiddle };

/// A text in a line. `at` is its start or its middle, on the line that its letters are on.
struct Label {
  std::string text;
  geometry::Point at;
  Anchor anchor = Anchor::kMiddle;
};

/// The lines of one dimension.
struct DimensionLines {
  std::vector<Line> thin;
  std::vector<Arrow> arrows;
  Label label;
};

/// An entry of the list of bodies below the section.
struct LegendEntry {
  std::size_t body;  ///< its number in the section
  Label label;
  geometry::Box square;  ///< of the body's colour
};

struct Layout {
  double textHeight = 0;  ///< of the letters' line, in millimetres of the section
  std::vector<DimensionLines> dimensions;
  std::vector<LegendEntry> legend;
  Label note;                       ///< below all
  std::vector<Label> caption = {};  ///< above all, line by line
  geometry::Box box;                ///< everything, the section included
};

/// The texts of a section in a language and a unit.
struct SectionTexts {
  std::function<std::string(const Dimension&)> dimension;
  std::function<std::string(const SectionBody&)> body;
  std::string note;
  std::string caption = {};  ///< broken into lines as wide as the section
};

/// Lengths get lanes below the axis, the shortest one nearest to it; diameters get labels above the section.
/// No label is on another one; a label is moved away from the lines of other dimensions where there is room.
Layout LayOut(const Section& section, const SectionTexts& texts, double textHeight);

/// About how wide a text is, for a font of that height.
double WidthOf(const std::string& text, double height);

}  // namespace vanzet::section
