#pragma once

#include <vector>

#include "view/shared/pictures/painter.h"

namespace vanzet::view {

/// From the units of a sketch to pixels, y turned over.
struct Fit {
  double scale = 1;
  Point shift = {};

  Point Of(Point point) const { return {scale * point.x + shift.x, -scale * point.y + shift.y}; }
  Path Of(Path path) const;
  Box Of(const Box& box) const;
};

/// The placement of a sketch on a canvas.
struct Place {
  Fit fit;
  Box bounds;   ///< of its shapes, on the canvas
  double lane;  ///< the width of a lane of measures
  Box room;     ///< that no letter leaves
};

/// Draws the measures of a sketch: lines with arrows, and the letter of each. The one whose edit has the
/// focus is emphasised with its value, those at fault are in the colour of faults. Letters that would
/// cover each other are beside their measure. Returns where the letters are.
std::vector<Box> PaintMeasures(Canvas& canvas, const Sketch& sketch, const Place& place,
                               const Palette& palette, const Emphasis& emphasis);

}  // namespace vanzet::view
