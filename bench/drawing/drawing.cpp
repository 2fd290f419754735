#include "drawing/drawing.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "contour/contour.h"
#include "contour/library.h"

namespace vanzet::drawing {
namespace {

constexpr std::string_view kFiguresOfModule[] = {"BilletM", "BilletS", "ZOffsetMain", "ZOffsetSub"};

/// Copies the part of that key from `ours` to `theirs`, or removes it if `ours` does not have it.
template <class Key, class Part>
void CopyPart(const Key& key, const std::map<Key, Part>& ours, std::map<Key, Part>& theirs) {
  const auto part = ours.find(key);
  if (part == ours.end()) {
    theirs.erase(key);
  } else {
    theirs.insert_or_assign(key, part->second);
  }
}

/// Calls `visit(name, pen)` for the layer of every part.
template <class Visit>
void ForEachLayerInUse(const Drawing& drawing, Visit visit) {
  for (const auto& [name, figure] : drawing.figures) {
    for (const Stroke& stroke : figure.strokes) visit(stroke.layer, stroke.pen);
  }
  for (const auto& [number, contour] : drawing.contours) visit(contour.stroke.layer, contour.stroke.pen);
  for (const auto& [key, line] : drawing.lines) visit(key.layer, line.pen);
}

}  // namespace

bool IsFigureOfModule(std::string_view name) {
  return std::ranges::find(kFiguresOfModule, name) != std::end(kFiguresOfModule);
}

void RemoveLayer(Drawing& drawing, const std::string& name, Changes& changes) {
  if (name != kFirstLayer && drawing.layers.erase(name) > 0) changes.layers.insert(name);
  for (auto& [figureName, figure] : drawing.figures) {
    const auto gone = std::erase_if(figure.strokes, [&](const Stroke& s) { return s.layer == name; });
    if (gone > 0) changes.figures.insert(figureName);
  }
  std::erase_if(drawing.contours, [&](const auto& entry) {
    if (entry.second.stroke.layer != name) return false;
    changes.contours.insert(entry.first);
    return true;
  });
  std::erase_if(drawing.lines, [&](const auto& entry) {
    if (entry.first.layer != name) return false;
    changes.lines.insert(entry.first);
    return true;
  });
}

void Merge(const Drawing& ours, const Changes& changes, Drawing& theirs) {
  Changes ignored;
  for (const std::string& name : changes.layers) {
    // With a removed layer goes everything that others have drawn in it.
    if (!ours.layers.contains(name)) RemoveLayer(theirs, name, ignored);
    CopyPart(name, ours.layers, theirs.layers);
  }
  for (const std::string& name : changes.figures) CopyPart(name, ours.figures, theirs.figures);
  for (const int number : changes.contours) CopyPart(number, ours.contours, theirs.contours);
  for (const LineKey& key : changes.lines) CopyPart(key, ours.lines, theirs.lines);
  // Others may have removed a layer that is still used here.
  std::map<std::string, Pen> missing;
  ForEachLayerInUse(theirs, [&](const std::string& name, const Pen& pen) { missing.emplace(name, pen); });
  theirs.layers.merge(missing);
}

std::vector<geometry::Kurve> CurvesOf(const Figure& figure) {
  std::vector<geometry::Kurve> curves;
  for (const Stroke& stroke : figure.strokes) curves.push_back(stroke.curve);
  return curves;
}

std::size_t VerticesOf(const Drawing& drawing) {
  std::size_t vertices = 0;
  const auto count = [&](const Stroke& stroke) {
    vertices += static_cast<std::size_t>(stroke.curve.nVertices);
  };
  for (const auto& [name, figure] : drawing.figures) {
    for (const Stroke& stroke : figure.strokes) count(stroke);
  }
  for (const auto& [number, contour] : drawing.contours) count(contour.stroke);
  return vertices;
}

Result<void> CheckReach(const geometry::Point& point) {
  const double farther = std::fmax(std::fabs(point.x), std::fabs(point.y));
  if (farther <= contour::kLargestCoordinate) return {};
  return Fault{"a coordinate is beyond 10 km"};
}

Result<void> CheckCurve(const geometry::Kurve& curve) {
  if (curve.SpanCount() == 0) return Fault{"the contour has no length"};
  for (int i = 0; i < curve.nVertices; ++i) {
    geometry::spVertex vertex;
    curve.Get(i, vertex);
    VANZET_DO(CheckReach(vertex.p));
    if (vertex.type == geometry::LINEAR) continue;
    VANZET_DO(CheckReach(vertex.pc));
  }
  VANZET_TRY(const auto sound, contour::Guarded([&] {
               geometry::Span span;
               for (int i = 1; i <= curve.SpanCount(); ++i) {
                 curve.Get(i, span, true);
                 if (span.NullSpan) return false;
               }
               return true;
             }));
  return sound ? Result<void>() : Fault{"the contour has a span without length"};
}

}  // namespace vanzet::drawing
