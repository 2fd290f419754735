#pragma once

#include <map>
#include <string>
#include <vector>

#include "drawing/drawing.h"
#include "geometry/box.h"

/// The visible contents of a drawing, for pictures and views.
namespace vanzet::drawing {

/// A contour at the place where it is shown.
struct ShownCurve {
  geometry::Kurve curve;
  std::string figure = {};  ///< the figure of the contour; empty: none
};

/// The visible contents of one layer with one pen.
struct ShownGroup {
  Pen pen;
  std::vector<ShownCurve> curves;
  std::vector<geometry::CLine> lines;
};

/// By layer.
using ShownLayers = std::map<std::string, std::vector<ShownGroup>>;

/// The contents of a window. The display window has the figures that were inserted there, its lines and its
/// contours; the construction window the figures as they were made and its contours. `layers` are the names
/// of the layers to show; all when it is empty.
ShownLayers ShownOf(const Drawing& drawing, Window window, const std::vector<std::string>& layers = {});

/// The box of the curves and, for each line without ends, of its point closest to the origin. It is cleared
/// when there are neither.
geometry::Box BoxOf(const ShownLayers& layers);

/// Whether the inside of a contour is filled with a light tint of its colour.
bool IsFilled(const geometry::Kurve& curve);

}  // namespace vanzet::drawing
