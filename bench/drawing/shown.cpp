#include "drawing/shown.h"

#include <algorithm>
#include <cmath>

namespace vanzet::drawing {
namespace {

using geometry::Kurve;
using geometry::Point;

ShownGroup& GroupOf(ShownLayers& layers, const std::string& layer, const Pen& pen) {
  std::vector<ShownGroup>& ofLayer = layers[layer];
  const auto found = std::ranges::find(ofLayer, pen, &ShownGroup::pen);
  if (found != ofLayer.end()) return *found;
  return ofLayer.emplace_back(ShownGroup{pen, {}, {}});
}

void AddFigure(const std::string& name, const Figure& figure, Window window, ShownLayers& layers) {
  std::vector<Placement> placements;
  if (window == Window::kConstruction) placements.emplace_back();
  for (const Figure::Insertion& insertion : figure.insertions) {
    if (insertion.window == window) placements.push_back(insertion.placement);
  }
  for (const Placement& placement : placements) {
    for (const Stroke& stroke : figure.strokes) {
      GroupOf(layers, stroke.layer, stroke.pen).curves.push_back({PlaceCurve(stroke.curve, placement), name});
    }
  }
}

/// Rounds to a hundredth of a micrometre: the boxes of the geometry library are larger than their contents
/// by less.
Point RoundPoint(const Point& point) {
  constexpr double kSteps = 1e5;
  return {std::round(point.x * kSteps) / kSteps, std::round(point.y * kSteps) / kSteps};
}

}  // namespace

ShownLayers ShownOf(const Drawing& drawing, Window window, const std::vector<std::string>& layers) {
  ShownLayers shown;
  for (const auto& [name, figure] : drawing.figures) AddFigure(name, figure, window, shown);
  for (const auto& [number, contour] : drawing.contours) {
    if (contour.window != window) continue;
    GroupOf(shown, contour.stroke.layer, contour.stroke.pen).curves.push_back({contour.stroke.curve});
  }
  if (window == Window::kDisplay) {
    for (const auto& [key, line] : drawing.lines)
      GroupOf(shown, key.layer, line.pen).lines.push_back(line.line);
  }
  if (layers.empty()) return shown;
  std::erase_if(shown,
                [&](const auto& entry) { return std::ranges::find(layers, entry.first) == layers.end(); });
  return shown;
}

geometry::Box BoxOf(const ShownLayers& layers) {
  geometry::Box box;
  for (const auto& [layer, ofLayer] : layers) {
    for (const ShownGroup& group : ofLayer) {
      for (const ShownCurve& shown : group.curves) {
        Point min, max;
        shown.curve.Minmax(min, max);
        box.Insert(RoundPoint(min));
        box.Insert(RoundPoint(max));
      }
      for (const geometry::CLine& line : group.lines) {
        box.Insert(line.p - line.v * Dot(geometry::Vector2d(line.p.x, line.p.y), line.v));
      }
    }
  }
  return box;
}

bool IsFilled(const Kurve& curve) {
  return curve.Closed() && curve.SpanCount() > 2;
}

}  // namespace vanzet::drawing
