#include "view/qt/pictures/measure_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace vanzet::view::qt {
namespace {

constexpr double kArrow = 6;
constexpr int kDirections = 8;
constexpr int kSteps = 12;  // of half the height of a letter, in which a free place is looked for

double InRadians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

class MeasurePainter {
 public:
  MeasurePainter(QPainter& painter, const Sketch& sketch, const Place& place, const Drawing& drawing)
      : painter_(painter), sketch_(sketch), place_(place), drawing_(drawing) {}

  void Paint(const Measure& measure) {
    TakeColours(measure);
    switch (measure.kind) {
      case Measure::Kind::kAlong: return Along(measure);
      case Measure::Kind::kAcross: return Across(measure);
      case Measure::Kind::kAngle: return Angle(measure);
      case Measure::Kind::kCorner: return Corner(measure);
    }
  }

  const std::vector<QRectF>& plates() const { return plates_; }

 private:
  QPointF OnScreen(QPointF point) const { return place_.transform.map(point); }
  bool IsFocused(const Measure& measure) const {
    return measure.control == drawing_.focused && measure.control != 0;
  }
  bool IsWrong(const Measure& measure) const {
    return std::ranges::find(sketch_.wrong, measure.control) != sketch_.wrong.end();
  }

  void TakeColours(const Measure& measure) {
    const QPalette& palette = drawing_.palette;
    isFocused_ = IsFocused(measure);
    line_ = palette.color(QPalette::Text);
    if (isFocused_) line_ = palette.color(QPalette::Highlight);
    if (IsWrong(measure)) line_ = FaultColour(palette);
    painter_.setPen(QPen(line_, isFocused_ ? 2 : 1));
    painter_.setBrush(line_);
  }

  QString LabelOf(const Measure& measure) const {
    const bool hasValue = isFocused_ && !drawing_.value.isEmpty() && measure.letter.size() <= 3;
    return hasValue ? measure.letter + QStringLiteral(" = ") + drawing_.value : measure.letter;
  }

  /// The letter on a plate around `centre`, or where there is room beside it.
  void Label(const Measure& measure, QPointF centre) {
    const QString text = LabelOf(measure);
    const QRectF plate = FreePlate(text, centre);
    const QRectF wanted = PlateOf(text, centre);
    if (plate != wanted) Extension(wanted.center(), plate.center());
    plates_.push_back(plate);
    const QPalette& palette = drawing_.palette;
    painter_.setPen(QPen(line_, 1));
    painter_.setBrush(isFocused_ && !IsWrong(measure) ? palette.color(QPalette::Highlight)
                                                      : palette.color(QPalette::Base));
    painter_.drawRoundedRect(plate, plate.height() / 2, plate.height() / 2);
    painter_.setPen(isFocused_ && !IsWrong(measure) ? palette.color(QPalette::HighlightedText) : line_);
    painter_.drawText(plate, Qt::AlignCenter, text);
  }

  /// The plate nearest to `centre` that covers no other letter; that around it when there is none.
  QRectF FreePlate(const QString& text, QPointF centre) const {
    const QRectF wanted = PlateOf(text, centre);
    for (int step = 0; step < kSteps; ++step) {
      for (int direction = 0; direction < kDirections; ++direction) {
        const QPointF place = OnArc(centre, 360.0 / kDirections * direction, step * wanted.height() / 2);
        const QRectF plate = PlateOf(text, place);
        const auto covers = [&](const QRectF& other) { return plate.intersects(other); };
        if (place_.room.contains(plate) && std::ranges::none_of(plates_, covers)) return plate;
      }
    }
    return wanted;
  }

  QRectF PlateOf(const QString& text, QPointF centre) const {
    const QFontMetricsF metrics(drawing_.font);
    const double height = metrics.height() + 3;
    QRectF plate(0, 0, std::max(height, metrics.horizontalAdvance(text) + height * 0.6), height);
    plate.moveCenter(centre);
    plate.moveRight(std::min(plate.right(), place_.room.right()));
    plate.moveLeft(std::max(plate.left(), place_.room.left()));
    return plate;
  }

  void Arrow(QPointF tip, QPointF from) {
    const double angle = std::atan2(tip.y() - from.y(), tip.x() - from.x());
    QPolygonF head({tip});
    for (const double side : {-0.35, 0.35}) {
      head.append(tip - kArrow * QPointF(std::cos(angle + side), std::sin(angle + side)));
    }
    painter_.drawPolygon(head);
  }

  void ArrowedLine(QPointF a, QPointF b) {
    painter_.drawLine(a, b);
    Arrow(a, b);
    Arrow(b, a);
  }

  /// From the shape to the line of a measure in a lane, a little beyond it.
  void Extension(QPointF from, QPointF to) {
    painter_.save();
    painter_.setPen(QPen(line_, 0.7));
    painter_.drawLine(from, to);
    painter_.restore();
  }

  void Along(const Measure& measure) {
    const QPointF a = OnScreen(measure.from), b = OnScreen(measure.to);
    const double sign = measure.where == Where::kBelow ? 1 : -1;
    const double edge = sign > 0 ? place_.bounds.bottom() : place_.bounds.top();
    const double y = edge + sign * (measure.lane + 0.75) * place_.lane;
    for (const QPointF& end : {a, b}) Extension(end, {end.x(), y + sign * 4});
    const QPointF left(std::min(a.x(), b.x()), y), right(std::max(a.x(), b.x()), y);
    ArrowedLine(left, right);
    const double plate = PlateOf(LabelOf(measure), {}).width();
    const bool fits = right.x() - left.x() > plate + 2 * kArrow;
    // Where the line has no room, the letter is beyond its outer end.
    Label(measure, fits ? (left + right) / 2 : BeyondEnd(left, right, plate));
  }

  QPointF BeyondEnd(QPointF left, QPointF right, double plate) {
    const bool toTheRight = (left.x() + right.x()) / 2 > place_.bounds.center().x();
    return toTheRight ? right + QPointF(plate / 2 + 4, 0) : left - QPointF(plate / 2 + 4, 0);
  }

  void Across(const Measure& measure) {
    QPointF a = OnScreen(measure.from), b = OnScreen(measure.to);
    if (measure.where == Where::kLeft || measure.where == Where::kRight) {
      const double sign = measure.where == Where::kRight ? 1 : -1;
      const double edge = sign > 0 ? place_.bounds.right() : place_.bounds.left();
      const double x = edge + sign * (measure.lane + 0.75) * place_.lane;
      for (const QPointF& end : {a, b}) Extension(end, {x + sign * 4, end.y()});
      a.setX(x);
      b.setX(x);
    }
    ArrowedLine(a, b);
    Label(measure, a + (b - a) * measure.at);
  }

  void Angle(const Measure& measure) {
    const QPointF apex = OnScreen(measure.from);
    const double first = measure.to.x(), second = measure.to.y();
    const double radius = place_.lane * 1.7;
    painter_.setBrush(Qt::NoBrush);
    const QRectF circle(apex - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
    painter_.drawArc(circle, static_cast<int>(std::lround(first * 16)),
                     static_cast<int>(std::lround((second - first) * 16)));
    for (const double degrees : {first, second}) Extension(apex, OnArc(apex, degrees, radius + 6));
    Label(measure, OnArc(apex, (first + second) / 2, radius));
  }

  static QPointF OnArc(QPointF centre, double degrees, double radius) {
    return centre + QPointF(radius * std::cos(InRadians(degrees)), -radius * std::sin(InRadians(degrees)));
  }

  void Corner(const Measure& measure) {
    const QPointF corner = OnScreen(measure.from);
    const QPointF label = CornerLabel(corner, measure.where);
    painter_.drawLine(corner, label);
    painter_.drawEllipse(corner, 2.2, 2.2);
    Label(measure, label);
  }

  QPointF CornerLabel(QPointF corner, Where where) const {
    const double lane = place_.lane;
    switch (where) {
      case Where::kRight: return corner + QPointF(lane * 0.8, -lane * 0.8);
      case Where::kAbove: return {corner.x() + lane * 0.5, place_.bounds.top() - lane * 0.6};
      case Where::kBelow: return {corner.x() + lane * 0.5, place_.bounds.bottom() + lane * 0.6};
      default: return corner + QPointF(lane * 0.6, lane * 0.7);
    }
  }

  QPainter& painter_;
  const Sketch& sketch_;
  const Place& place_;
  const Drawing& drawing_;
  QColor line_;
  bool isFocused_ = false;
  std::vector<QRectF> plates_;
};

}  // namespace

std::vector<QRectF> PaintMeasures(QPainter& painter, const Sketch& sketch, const Place& place,
                                  const Drawing& drawing) {
  MeasurePainter measures(painter, sketch, place, drawing);
  for (const Measure& measure : sketch.measures) {
    if (measure.control != drawing.focused) measures.Paint(measure);
  }
  // The emphasised measure is on top.
  for (const Measure& measure : sketch.measures) {
    if (measure.control == drawing.focused) measures.Paint(measure);
  }
  return measures.plates();
}

}  // namespace vanzet::view::qt
