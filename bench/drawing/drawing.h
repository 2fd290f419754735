#pragma once

#include <compare>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "drawing/pen.h"
#include "drawing/placement.h"
#include "geometry/elements.h"

namespace vanzet::drawing {

/// The window in which figures are made, and the window in which they are shown. Macro lines use the numbers.
enum class Window { kConstruction = 0, kDisplay = 1 };

/// The layer that always exists.
inline constexpr const char* kFirstLayer = "0";

/// A contour as it is drawn. It keeps the pen of its layer at the time when it was made.
struct Stroke {
  geometry::Kurve curve;
  std::string layer = kFirstLayer;
  Pen pen;
};

/// A contour outside of figures, with a number.
struct Contour {
  Stroke stroke;
  Window window = Window::kConstruction;
};

/// Named contours in coordinates of their own, and the placements in which they are shown.
struct Figure {
  struct Insertion {
    Window window = Window::kDisplay;
    Placement placement;
  };
  std::vector<Stroke> strokes;
  std::vector<Insertion> insertions;
};

/// A line that was made in the display window. It has no ends and belongs to its layer: each layer has
/// numbers of its own.
struct LineKey {
  std::string layer;
  int number = 0;
  auto operator<=>(const LineKey&) const = default;
};
struct DrawnLine {
  geometry::CLine line;
  Pen pen;
};

/// The drawing of a project, in millimetres; x runs along the spindle.
///
/// Shape    `layers` has every layer that is used, and `kFirstLayer`
/// Source   docs/formats/drawing.md
struct Drawing {
  std::map<std::string, Pen> layers = {{kFirstLayer, Pen()}};
  std::map<std::string, Figure> figures;
  std::map<int, Contour> contours;
  std::map<LineKey, DrawnLine> lines;

  bool HasFigure(const std::string& name) const { return figures.contains(name); }
};

/// The parts of a drawing that differ from the drawing that it started from.
struct Changes {
  std::set<std::string> layers, figures;
  std::set<int> contours;
  std::set<LineKey> lines;

  bool IsEmpty() const { return layers.empty() && figures.empty() && contours.empty() && lines.empty(); }
};

/// Whether a module draws the figure of this name for itself, to show a billet or a datum. No pick and no
/// list offers it.
bool IsFigureOfModule(std::string_view name);

/// Removes a layer with its contents, and adds what changes to `changes`. The first layer is only emptied.
void RemoveLayer(Drawing& drawing, const std::string& name, Changes& changes);

/// Merges the changed parts of `ours` into `theirs`, which others may have changed; where both changed the
/// same part, ours stays.
void Merge(const Drawing& ours, const Changes& changes, Drawing& theirs);

/// The curves of a figure, in its own coordinates.
std::vector<geometry::Kurve> CurvesOf(const Figure& figure);

/// The number of vertices of all contours.
std::size_t VerticesOf(const Drawing& drawing);

/// Checks that a drawing can hold the contour: at least one span, no span without length, valid arcs, and no
/// coordinate beyond 10 km.
Result<void> CheckCurve(const geometry::Kurve& curve);

/// Checks that the coordinates of the point are within 10 km.
Result<void> CheckReach(const geometry::Point& point);

}  // namespace vanzet::drawing
