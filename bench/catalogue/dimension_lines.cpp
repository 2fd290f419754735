#include "catalogue/dimension_lines.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/number_text.h"
#include "devices/formula.h"

namespace vanzet::catalogue {
namespace {

using devices::Measure;
using devices::MeasureKind;
using devices::Where;
using Point = OutlineVertex;

constexpr double kArrow = 6, kTextHeight = 12, kTextWidth = 6.6;
constexpr const char* kInk = "#20262c";

std::string Number(double value) {
  return ShortDecimalText(value, 2);
}

std::string At(Point point) {
  return Number(point.x) + " " + Number(point.y);
}

Point InDirection(Point from, double radians, double length) {
  return {from.x + length * std::cos(radians), from.y - length * std::sin(radians)};
}

class Writer {
 public:
  Writer(const Measure& measure, const DeviceParams& params, const DevicePlace& place)
      : measure_(measure), place_(place) {
    const auto of = [&](std::string_view formula) { return Evaluate(formula, params); };
    from_ = place.onPaper(of(measure.fromX), of(measure.fromY));
    if (measure.kind == MeasureKind::kAngle) {
      first_ = of(measure.toX) * std::numbers::pi / 180;
      second_ = of(measure.toY) * std::numbers::pi / 180;
    } else if (measure.kind != MeasureKind::kCorner) {
      to_ = place.onPaper(of(measure.toX), of(measure.toY));
    }
    const double value = ValueOf(params, measure.letter);
    text_ = measure.letter + (IsHalfOf(value) ? "/2 " + Value(value / 2) : " " + Value(value));
  }

  std::string Write() {
    switch (measure_.kind) {
      case MeasureKind::kAlong: WriteAlong(); break;
      case MeasureKind::kAcross: WriteAcross(); break;
      case MeasureKind::kAngle: WriteAngle(); break;
      case MeasureKind::kCorner: WriteCorner(); break;
    }
    return svg_;
  }

 private:
  static std::string Value(double value) { return ShortDecimalText(value, 3); }

  /// True for an angle that is drawn on one side of the axis alone.
  bool IsHalfOf(double degrees) const {
    constexpr double kNear = 1e-6;
    const double drawn = std::abs(second_ - first_) * 180 / std::numbers::pi;
    return measure_.kind == MeasureKind::kAngle && std::abs(drawn - degrees / 2) < kNear;
  }

  double TextWidth() const { return kTextWidth * static_cast<double>(text_.size()) + 6; }
  bool IsPoint() const { return std::hypot(to_.x - from_.x, to_.y - from_.y) < 0.01; }

  void Line(Point a, Point b, double width = 1) {
    svg_ += "<path d=\"M" + At(a) + " L" + At(b) + "\" fill=\"none\" stroke=\"" + kInk +
            "\" stroke-width=\"" + Number(width) + "\"/>\n";
  }

  void Arrow(Point tip, Point from) {
    const double angle = std::atan2(from.y - tip.y, tip.x - from.x);
    std::string path = "M" + At(tip);
    for (const double side : {-0.35, 0.35}) {
      path += " L" + At(InDirection(tip, angle + std::numbers::pi + side, kArrow));
    }
    svg_ += "<path d=\"" + path + " Z\" fill=\"" + kInk + "\"/>\n";
  }

  void ArrowedLine(Point a, Point b) {
    Line(a, b);
    Arrow(a, b);
    Arrow(b, a);
  }

  /// The letter with its value on a plate around `centre`.
  void Label(Point centre) {
    const double width = TextWidth(), height = kTextHeight + 3;
    svg_ += "<rect x=\"" + Number(centre.x - width / 2) + "\" y=\"" + Number(centre.y - height / 2) +
            "\" width=\"" + Number(width) + "\" height=\"" + Number(height) +
            "\" rx=\"4\" fill=\"#ffffff\" stroke=\"" + kInk + "\" stroke-width=\"0.6\"/>\n<text x=\"" +
            Number(centre.x) + "\" y=\"" + Number(centre.y + kTextHeight * 0.34) + "\" font-size=\"" +
            Number(kTextHeight) + "\" text-anchor=\"middle\" fill=\"" + kInk + "\">" + text_ + "</text>\n";
  }

  /// The distance of a lane from the bounds of the shapes.
  double LaneAt() const { return (measure_.lane + 0.75) * place_.lane; }

  void WriteAlong() {
    if (IsPoint()) return;
    const double sign = measure_.where == Where::kBelow ? 1 : -1;
    const double y = (sign > 0 ? place_.bottom : place_.top) + sign * LaneAt();
    for (const Point& end : {from_, to_}) Line(end, {end.x, y + sign * 4}, 0.5);
    const Point left{std::min(from_.x, to_.x), y}, right{std::max(from_.x, to_.x), y};
    ArrowedLine(left, right);
    const bool fits = right.x - left.x > TextWidth() + 2 * kArrow;
    const bool toTheRight = (left.x + right.x) / 2 > (place_.left + place_.right) / 2;
    const double beyond = TextWidth() / 2 + 4;
    Label(fits ? Point{(left.x + right.x) / 2, y}
               : Point{toTheRight ? right.x + beyond : left.x - beyond, y});
  }

  void WriteAcross() {
    if (IsPoint()) return;
    Point a = from_, b = to_;
    if (measure_.where == Where::kLeft || measure_.where == Where::kRight) {
      const double sign = measure_.where == Where::kRight ? 1 : -1;
      // A label is wider than high, so the lanes at the sides are wider.
      const double x = (sign > 0 ? place_.right : place_.left) + sign * LaneAt() * 1.7;
      for (const Point& end : {a, b}) Line(end, {x + sign * 4, end.y}, 0.5);
      a.x = b.x = x;
    }
    ArrowedLine(a, b);
    Label({a.x + (b.x - a.x) * measure_.at, a.y + (b.y - a.y) * measure_.at});
  }

  void WriteAngle() {
    const double radius = place_.lane * 1.7;
    const Point start = InDirection(from_, first_, radius), end = InDirection(from_, second_, radius);
    const bool isLarge = std::abs(second_ - first_) > std::numbers::pi;
    svg_ += "<path d=\"M" + At(start) + " A" + Number(radius) + " " + Number(radius) + " 0 " +
            (isLarge ? "1 " : "0 ") + (second_ > first_ ? "0 " : "1 ") + At(end) +
            "\" fill=\"none\" stroke=\"" + kInk + "\"/>\n";
    for (const double radians : {first_, second_}) Line(from_, InDirection(from_, radians, radius + 6), 0.5);
    Label(InDirection(from_, (first_ + second_) / 2, radius + TextWidth() / 2 + 4));
  }

  void WriteCorner() {
    const double lane = place_.lane;
    Point label{from_.x + lane * 0.6, from_.y + lane * 0.7};
    if (measure_.where == Where::kRight) label = {from_.x + lane, from_.y - lane * 0.8};
    if (measure_.where == Where::kAbove) label = {from_.x + lane * 0.5, place_.top - lane * 0.6};
    if (measure_.where == Where::kBelow) label = {from_.x + lane * 0.5, place_.bottom + lane * 0.6};
    Line(from_, label);
    Label(label);
  }

  const Measure& measure_;
  const DevicePlace& place_;
  Point from_{}, to_{};
  double first_ = 0, second_ = 0;  ///< of an angle, in radians
  std::string text_;
  std::string svg_;
};

}  // namespace

std::string DimensionOf(const Measure& measure, const DeviceParams& params, const DevicePlace& place) {
  return Writer(measure, params, place).Write();
}

}  // namespace vanzet::catalogue
