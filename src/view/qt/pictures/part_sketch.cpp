#include <QPolygonF>

#include "view/ids.h"
#include "view/qt/pictures/pictures.h"
#include "view/qt/pictures/sketch.h"
#include "view/qt/texts.h"

// Pictures of parts whose shape the host knows: they show what the fields mean, not the shape.

namespace vanzet::view::qt {
namespace {

constexpr const char* kOnAxis = Translatable("Figures are spun about the spindle's axis.");

QPainterPath PathOf(std::initializer_list<QPointF> points, double sign) {
  QPolygonF polygon;
  for (const QPointF& point : points) polygon.append(QPointF(point.x(), sign * point.y()));
  QPainterPath path;
  path.addPolygon(polygon);
  path.closeSubpath();
  return path;
}

QString Named(const QString& mark, const QString& name) {
  return name.isEmpty() ? mark : mark + QStringLiteral("  ") + name;
}

void AddLength(Sketch& sketch, const PageValues& values, double length, double y) {
  if (values.Find(control::kPartLength) == nullptr) return;
  sketch.measures.push_back({.kind = Measure::Kind::kAlong,
                             .where = Where::kBelow,
                             .letter = QStringLiteral("L"),
                             .control = control::kPartLength,
                             .from = {-length, y},
                             .to = {0, y}});
  FindNoNumber(sketch, values, control::kPartLength);
}

}  // namespace

Sketch FigureSketch(std::int32_t /*bitmap*/, const PageValues& values) {
  Sketch sketch;
  const QString inside = QString::fromStdString(values.TextOf(control::kFigureInside));
  const double bore = inside.isEmpty() ? 0 : 14;
  const auto outside = {QPointF(-100, bore), QPointF(-100, 38), QPointF(-62, 38), QPointF(-52, 30),
                        QPointF(-30, 30),    QPointF(-22, 22),  QPointF(0, 22),   QPointF(0, bore)};
  Add(sketch, Ink::kBody, PathOf(outside, -1));
  Add(sketch, Ink::kMaterial, PathOf(outside, 1));
  Add(sketch, Ink::kAxis, Stroke({-110, 0}, {10, 0}));
  sketch.measures.push_back(
      {.kind = Measure::Kind::kCorner,
       .where = Where::kAbove,
       .letter = Named(QStringLiteral("F1"), QString::fromStdString(values.TextOf(control::kFigureOutside))),
       .control = control::kFigureOutside,
       .from = {-41, 30}});
  sketch.measures.push_back({.kind = Measure::Kind::kCorner,
                             .where = Where::kInside,
                             .letter = Named(QStringLiteral("F2"), inside),
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
        PathOf({QPointF(-100, 0), QPointF(-100, 22), QPointF(-58, 22), QPointF(-58, 30), QPointF(0, 30),
                QPointF(0, 0)},
               side));
  }
  Add(sketch, Ink::kPart, Rectangle(-44, -9, -16, 9));
  Add(sketch, Ink::kAxis, Stroke({-110, 0}, {10, 0}));
  sketch.measures.push_back({.kind = Measure::Kind::kCorner,
                             .where = Where::kAbove,
                             .letter = QString::fromStdString(values.TextOf(control::kSolid)),
                             .control = control::kSolid,
                             .from = {-30, 30}});
  if (sketch.measures.back().letter.isEmpty()) sketch.measures.clear();
  AddLength(sketch, values, 100, -30);
  if (values.Find(control::kClampDiameter) != nullptr) {
    sketch.measures.push_back({.kind = Measure::Kind::kAcross,
                               .where = Where::kLeft,
                               .letter = QStringLiteral("\u2300"),
                               .control = control::kClampDiameter,
                               .from = {-100, -22},
                               .to = {-100, 22}});
    FindNoNumber(sketch, values, control::kClampDiameter);
  }
  return sketch;
}

}  // namespace vanzet::view::qt
