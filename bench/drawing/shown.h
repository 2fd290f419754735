#pragma once

#include <map>
#include <string>
#include <vector>

#include "drawing/drawing.h"
#include "geometry/box.h"

/// What is seen of a drawing, for whoever draws it.
namespace vanzet::drawing {

/// A contour where it is shown.
struct ShownCurve {
  geometry::Kurve curve;
  std::string figure = {};  ///< that it belongs to; empty: none
};

/// All that is shown of one layer with one pen.
struct ShownGroup {
  Pen pen;
  std::vector<ShownCurve> curves;
  std::vector<geometry::CLine> lines;
};

/// By layer.
using ShownLayers = std::map<std::string, std::vector<ShownGroup>>;

/// The display window has what was inserted there, its lines and its contours; the construction window the
/// figures as they were made and its contours. `layers` are the names of those that are shown; none: all.
ShownLayers ShownOf(const Drawing& drawing, Window window, const std::vector<std::string>& layers = {});

/// What has to be seen: curves, and of a line without ends the point next to the origin. Cleared when there
/// is nothing.
geometry::Box BoxOf(const ShownLayers& layers);

/// Whether the inside of a contour is filled with a breath of its colour.
bool IsFilled(const geometry::Kurve& curve);

}  // namespace vanzet::drawing
