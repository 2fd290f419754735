#pragma once

#include <compare>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/result.h"
#include "drawing/pen.h"
#include "drawing/placement.h"
#include "geometry/elements.h"

namespace vanzet::drawing {

/// Where things are made, and where they are shown. The numbers are those of macro lines.
enum class Window { kConstruction = 0, kDisplay = 1 };

/// The layer that is always there.
inline constexpr const char* kFirstLayer = "0";

/// A contour as it is drawn. It keeps the pen that its layer had when it was made.
struct Stroke {
  geometry::Kurve curve;
  std::string layer = kFirstLayer;
  Pen pen;
};

/// A contour that stands by itself, under a number.
struct Contour {
  Stroke stroke;
  Window window = Window::kConstruction;
};

/// Contours under one name, in their own coordinates, and where they are shown.
struct Figure {
  struct Insertion {
    Window window = Window::kDisplay;
    Placement placement;
  };
  std::vector<Stroke> strokes;
  std::vector<Insertion> insertions;
};

/// A line that was made in the display window. It has no ends and belongs to its layer: each layer has its
/// own numbers.
struct LineKey {
  std::string layer;
  int number = 0;
  auto operator<=>(const LineKey&) const = default;
};
struct DrawnLine {
  geometry::CLine line;
  Pen pen;
};

/// All that a project keeps of its drawing, in millimetres; x runs along the spindle.
///
/// Shape    every layer that something lies in is in `layers`, and so is `kFirstLayer`
/// Source   docs/formats/drawing.md
struct Drawing {
  std::map<std::string, Pen> layers = {{kFirstLayer, Pen()}};
  std::map<std::string, Figure> figures;
  std::map<int, Contour> contours;
  std::map<LineKey, DrawnLine> lines;

  bool HasFigure(const std::string& name) const { return figures.contains(name); }
};

/// Which parts of a drawing differ from the one that it was made from.
struct Changes {
  std::set<std::string> layers, figures;
  std::set<int> contours;
  std::set<LineKey> lines;

  bool None() const { return layers.empty() && figures.empty() && contours.empty() && lines.empty(); }
};

/// Removes a layer and all that lies in it, and adds what that changes. The first layer is only emptied.
void RemoveLayer(Drawing& drawing, const std::string& name, Changes& changes);

/// Brings the changed parts of `ours` into `theirs`, which others may have changed meanwhile: where both
/// changed the same part, ours stays.
void Merge(const Drawing& ours, const Changes& changes, Drawing& theirs);

/// The number of vertices of all contours.
std::size_t VerticesOf(const Drawing& drawing);

/// What a drawing can hold: a contour with a span at least, none of them without length, its arcs arcs; and
/// nothing more than 10 km away.
Result<void> CheckCurve(const geometry::Kurve& curve);
Result<void> CheckReach(const geometry::Point& point);

}  // namespace vanzet::drawing
