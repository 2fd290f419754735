#include <initializer_list>

#include "view/ids.h"
#include "view/shared/pictures/pictures.h"
#include "view/shared/sketch.h"
#include "view/shared/texts.h"

// Pictures of parts whose shape the host knows: they show what the fields mean, not the shape.

namespace vanzet::view {
namespace {

constexpr const char* kOnAxis = Translatable("Figures are spun about the spindle's axis.");

Path PathOf(std::initializer_list<Point> points, double sign) {
  Ring ring;
  for (const Point& point : points) ring.points.push_back({point.x, sign * point.y});
  return {{ring}};
}

std::string Named(const std::string& mark, const std::string& name) {
  return name.empty() ? mark : mark + "  " + name;
}

void AddLength(Sketch& sketch, const PageValues& values, double length, double y) {
  if (values.Find(control::kPartLength) == nullptr) return;
  sketch.measures.push_back({.kind = Measure::Kind::kAlong,
                             .where = Where::kBelow,
                             .letter = "L",
                             .control = control::kPartLength,
                             .from = {-length, y},
                             .to = {0, y}});
  FindNoNumber(sketch, values, control::kPartLength);
}

}  // namespace

Sketch FigureSketch(std::int32_t /*bitmap*/, const PageValues& values) {
  Sketch sketch;
  const std::string inside = values.TextOf(control::kFigureInside);
  const double bore = inside.empty() ? 0 : 14;
  const auto outside = {Point{-100, bore}, Point{-100, 38}, Point{-62, 38}, Point{-52, 30},
                        Point{-30, 30},    Point{-22, 22},  Point{0, 22},   Point{0, bore}};
  Add(sketch, Ink::kBody, PathOf(outside, -1));
  Add(sketch, Ink::kMaterial, PathOf(outside, 1));
  Add(sketch, Ink::kAxis, Stroke({-110, 0}, {10, 0}));
  sketch.measures.push_back({.kind = Measure::Kind::kCorner,
                             .where = Where::kAbove,
                             .letter = Named("F1", values.TextOf(control::kFigureOutside)),
                             .control = control::kFigureOutside,
                             .from = {-41, 30}});
  sketch.measures.push_back({.kind = Measure::Kind::kCorner,
                             .where = Where::kInside,
                             .letter = Named("F2", inside),
                             .control = control::kFigureInside,
                             .from = {-50, bore}});
  AddLength(sketch, values, 100, -38);
  sketch.notes.push_back(Translate(kOnAxis));
  return sketch;
}

Sketch SolidSketch(std::int32_t /*bitmap*/, const PageValues& values) {
  Sketch sketch;
  // The part is clamped at its thinner end.
  for (const double side : {1.0, -1.0}) {
    Add(sketch, Ink::kBody,
        PathOf({Point{-100, 0}, Point{-100, 22}, Point{-58, 22}, Point{-58, 30}, Point{0, 30}, Point{0, 0}},
               side));
  }
  Add(sketch, Ink::kPart, Rectangle(-44, -9, -16, 9));
  Add(sketch, Ink::kAxis, Stroke({-110, 0}, {10, 0}));
  sketch.measures.push_back({.kind = Measure::Kind::kCorner,
                             .where = Where::kAbove,
                             .letter = values.TextOf(control::kSolid),
                             .control = control::kSolid,
                             .from = {-30, 30}});
  if (sketch.measures.back().letter.empty()) sketch.measures.clear();
  AddLength(sketch, values, 100, -30);
  if (values.Find(control::kClampDiameter) != nullptr) {
    sketch.measures.push_back({.kind = Measure::Kind::kAcross,
                               .where = Where::kLeft,
                               .letter = "\u2300",
                               .control = control::kClampDiameter,
                               .from = {-100, -22},
                               .to = {-100, 22}});
    FindNoNumber(sketch, values, control::kClampDiameter);
  }
  return sketch;
}

}  // namespace vanzet::view
