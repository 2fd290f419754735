#pragma once

#include "contour/drawing.h"

namespace vanzet::contour {

/// How the contours of a role are drawn; widths in pixels.
struct DrawingStyle {
  const char* colour;
  const char* fill;
  double width;
  bool hasArrows;
};
const DrawingStyle& StyleOf(Drawing::Role role);

/// The names of the layers below a picture, each behind a line as its contours have. Nothing, and no height,
/// unless two layers at least have contours and a name.
std::string Legend(const Drawing& drawing, double top);
double LegendHeight(const Drawing& drawing);

}  // namespace vanzet::contour
