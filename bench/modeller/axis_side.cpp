#include "modeller/axis_side.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "modeller/number_text.h"

namespace vanzet::modeller {
namespace {

using geometry::Point;
using geometry::Span;

/// What is nearer to the axis lies on it, in millimetres.
constexpr double kOnAxis = 1e-3;

bool IsOn(const PlaneAxis& axis, const Point& p) {
  return std::abs(axis.Distance(p)) < kOnAxis;
}

/// The points between the ends of an arc that are farthest to either side of the axis.
std::vector<Point> Turnings(const Span& span, const PlaneAxis& axis) {
  std::vector<Point> turnings;
  if (span.dir == geometry::LINEAR) return turnings;
  for (const double side : {1.0, -1.0}) {
    const Point turning = span.pc + axis.direction.LeftNormal() * (side * span.radius);
    if (span.OnSpan(turning)) turnings.push_back(turning);
  }
  return turnings;
}

/// Where an arc touches the axis away from its ends.
std::optional<Point> Touching(const Span& span, const PlaneAxis& axis) {
  if (IsOn(axis, span.p0) || IsOn(axis, span.p1)) return std::nullopt;
  for (const Point& turning : Turnings(span, axis)) {
    if (IsOn(axis, turning)) return axis.Foot(turning);
  }
  return std::nullopt;
}

struct Reach {
  double left = 0;
  double right = 0;
  Point leftmost, rightmost;
};

void Extend(Reach& reach, const PlaneAxis& axis, const Point& p) {
  const double distance = axis.Distance(p);
  if (distance > reach.left) reach.left = distance, reach.leftmost = p;
  if (distance < reach.right) reach.right = distance, reach.rightmost = p;
}

Reach ReachOf(const Outline& outline, const PlaneAxis& axis) {
  Reach reach;
  for (const Span& span : outline) {
    Extend(reach, axis, span.p0);
    for (const Point& turning : Turnings(span, axis)) Extend(reach, axis, turning);
  }
  return reach;
}

/// An arc whose ends were moved gets the centre that fits them.
Span Moved(const Span& span, const Point& p0, const Point& p1) {
  Span moved = span;
  moved.p0 = p0;
  moved.p1 = p1;
  if (span.dir != geometry::LINEAR) {
    const geometry::Vector2d chord(p0, p1);
    const geometry::Vector2d half = chord * 0.5;
    const geometry::Vector2d normal = chord.LeftNormal() * (1 / chord.Magnitude());
    moved.pc = p0 + half + normal * Dot(normal, geometry::Vector2d(p0, span.pc));
  }
  moved.SetProperties();
  return moved;
}

}  // namespace

double PlaneAxis::Distance(const Point& p) const {
  return Cross(direction, geometry::Vector2d(origin, p));
}

Point PlaneAxis::Foot(const Point& p) const {
  return origin + direction * Dot(direction, geometry::Vector2d(origin, p));
}

Result<Outline> OnOneSide(const Outline& outline, const PlaneAxis& axis) {
  const Reach reach = ReachOf(outline, axis);
  if (reach.left >= kOnAxis && reach.right <= -kOnAxis) {
    return Fault{"the contour crosses the axis: it reaches " + NumberText(reach.left) +
                 " mm to its left and " + NumberText(-reach.right) + " mm to its right"};
  }
  const auto place = [&](const Point& p) { return IsOn(axis, p) ? axis.Foot(p) : p; };
  Outline placed;
  for (const Span& span : outline) {
    Point from = place(span.p0);
    if (const auto touching = Touching(span, axis)) {
      placed.push_back(Moved(span, from, *touching));
      from = *touching;
    }
    placed.push_back(Moved(span, from, place(span.p1)));
  }
  std::erase_if(placed, [](const Span& span) { return Dist(span.p0, span.p1) == 0; });
  return placed;
}

}  // namespace vanzet::modeller
