#include "view/qt/pictures/sketch_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPathStroker>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "view/qt/pictures/measure_painter.h"

namespace vanzet::view::qt {
namespace {

QColor Mixed(const QColor& a, const QColor& b, double partOfA) {
  const auto mix = [&](int x, int y) {
    return static_cast<int>(std::lround(x * partOfA + y * (1 - partOfA)));
  };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

struct Look {
  QPen pen;
  QBrush fill;
  QBrush hatch;
};

Look LookOf(Ink ink, const Sketch& sketch, const QPalette& palette) {
  const QColor text = palette.color(QPalette::Text);
  const QColor base = palette.color(QPalette::Base);
  const QColor accent = palette.color(QPalette::Highlight);
  const double faint = sketch.isExample ? 0.55 : 1;
  const QPen line(Mixed(text, base, 0.85 * faint), 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  switch (ink) {
    case Ink::kMaterial:
      return {line, Mixed(accent, base, 0.22 * faint),
              QBrush(Mixed(text, base, 0.32 * faint), Qt::BDiagPattern)};
    case Ink::kBody: return {line, Mixed(text, base, 0.10 * faint), Qt::NoBrush};
    case Ink::kGhost:
      return {QPen(Mixed(text, base, 0.45 * faint), 1.1, Qt::DashLine), Qt::NoBrush, Qt::NoBrush};
    case Ink::kPart: return {line, Mixed(accent, base, 0.5 * faint), Qt::NoBrush};
    default: return {QPen(Mixed(text, base, 0.6), 1, Qt::DashDotLine), Qt::NoBrush, Qt::NoBrush};
  }
}

QRectF BoundsOf(const Sketch& sketch) {
  QRectF bounds;
  for (const Shape& shape : sketch.shapes) {
    if (shape.ink != Ink::kAxis) bounds = bounds.united(shape.path.boundingRect());
  }
  return bounds;
}

/// The number of lanes of measures on a side.
int Lanes(const Sketch& sketch, Where where) {
  int lanes = 0;
  for (const Measure& measure : sketch.measures) {
    const bool takesALane = measure.where == where && measure.kind != Measure::Kind::kAngle;
    if (takesALane) lanes = std::max(lanes, measure.lane + 1);
  }
  return lanes;
}

/// The area that is left to the shapes.
QRectF Inner(const QRectF& area, const Sketch& sketch, double lane) {
  const double side = lane * 1.1;
  return area.adjusted(side + Lanes(sketch, Where::kLeft) * lane, side + Lanes(sketch, Where::kAbove) * lane,
                       -side - Lanes(sketch, Where::kRight) * lane,
                       -side - Lanes(sketch, Where::kBelow) * lane);
}

/// From the units of the values to the screen, y turned over.
QTransform Fitted(const QRectF& bounds, const QRectF& area) {
  const double scale = std::min(area.width() / bounds.width(), area.height() / bounds.height());
  QTransform transform;
  transform.translate(area.center().x(), area.center().y());
  transform.scale(scale, -scale);
  transform.translate(-bounds.center().x(), -bounds.center().y());
  return transform;
}

void PaintShapes(QPainter& painter, const Sketch& sketch, const QTransform& transform,
                 const QPalette& palette) {
  for (const Shape& shape : sketch.shapes) {
    const Look look = LookOf(shape.ink, sketch, palette);
    const QPainterPath path = transform.map(shape.path);
    painter.setPen(Qt::NoPen);
    painter.fillPath(path, look.fill);
    painter.fillPath(path, look.hatch);
    painter.setPen(look.pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
  }
}

/// The fault in its colour, then the notes; returns what is left of the area above them.
QRectF PaintLines(QPainter& painter, QRectF area, const Sketch& sketch, const Drawing& drawing) {
  const auto line = [&](const QString& text, const QColor& colour) {
    constexpr int kFlags = Qt::AlignHCenter | Qt::AlignBottom | Qt::TextWordWrap;
    const QRectF needed = painter.boundingRect(area, kFlags, text);
    painter.setPen(colour);
    painter.drawText(area, kFlags, text);
    area.setBottom(needed.top() - 4);
  };
  const QColor text = drawing.palette.color(QPalette::Text);
  for (const QString& note : sketch.notes)
    line(note, Mixed(text, drawing.palette.color(QPalette::Base), 0.7));
  if (!sketch.fault.isEmpty()) line(sketch.fault, FaultColour(drawing.palette));
  return area;
}

}  // namespace

QColor FaultColour(const QPalette& palette) {
  const bool isDark = palette.color(QPalette::Base).lightness() < 128;
  return isDark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x15, 0x1f);
}

std::vector<QRectF> Paint(QPainter& painter, const QRectF& area, const Sketch& sketch,
                          const Drawing& drawing) {
  if (sketch.shapes.empty()) return {};
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(drawing.font);
  const QRectF left = PaintLines(painter, area, sketch, drawing);
  const double lane = QFontMetricsF(drawing.font).height() * 1.55;
  const QRectF bounds = BoundsOf(sketch);
  const QRectF inner = Inner(left, sketch, lane);
  if (inner.width() < lane || inner.height() < lane || bounds.isEmpty()) return {};
  const QTransform transform = Fitted(bounds, inner);
  PaintShapes(painter, sketch, transform, drawing.palette);
  return PaintMeasures(painter, sketch, {transform, transform.mapRect(bounds), lane, area}, drawing);
}

}  // namespace vanzet::view::qt
