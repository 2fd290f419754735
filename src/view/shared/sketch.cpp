#include "view/shared/sketch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "view/shared/texts.h"

namespace vanzet::view {
namespace {

constexpr const char* kNoNumber = Translatable("%1 is not a number.");
constexpr const char* kNoNumberQuoted = Translatable("“%1” is not a number.");

constexpr double kChord = 3;  // degrees

}  // namespace

Path Rectangle(double left, double bottom, double right, double top) {
  return {{{{{left, bottom}, {right, bottom}, {right, top}, {left, top}}}}};
}

Path Stroke(Point from, Point to) {
  return {{{{from, to}, false}}};
}

Path Circle(Point centre, double radius) {
  std::vector<Point> points = Arc(centre, radius, 0, 360);
  points.pop_back();
  return {{{std::move(points)}}};
}

Point OnCircle(Point centre, double radius, double degrees) {
  const double angle = degrees * std::numbers::pi / 180;
  return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
}

std::vector<Point> Arc(Point centre, double radius, double fromDegrees, double toDegrees) {
  const double turn = toDegrees - fromDegrees;
  const int chords = std::clamp(static_cast<int>(std::ceil(std::abs(turn) / kChord)), 1, 120);
  std::vector<Point> points;
  for (int i = 0; i <= chords; ++i)
    points.push_back(OnCircle(centre, radius, fromDegrees + turn * i / chords));
  return points;
}

Box BoundsOf(const Path& path) {
  constexpr double kFar = std::numeric_limits<double>::infinity();
  Box box = {kFar, kFar, -kFar, -kFar};
  for (const Ring& ring : path.rings) {
    for (const Point& point : ring.points) {
      box = {std::min(box.left, point.x), std::min(box.top, point.y), std::max(box.right, point.x),
             std::max(box.bottom, point.y)};
    }
  }
  return box.left > box.right ? Box() : box;
}

void FindNoNumber(Sketch& sketch, const PageValues& values, std::int32_t edit, const std::string& name) {
  if (!sketch.fault.empty() || !values.IsNoNumber(edit)) return;
  sketch.fault = name.empty() ? Filled(Translate(kNoNumberQuoted), {values.TextOf(edit)})
                              : Filled(Translate(kNoNumber), {name});
  sketch.wrong = {edit};
}

}  // namespace vanzet::view
