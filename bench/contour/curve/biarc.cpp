#include "contour/curve/biarc.h"

#include <algorithm>
#include <cmath>

#include "geometry/numerics.h"

namespace vanzet::contour {
namespace {

using geometry::PI;
using geometry::Point;
using geometry::Vector2d;

/// The segment with the angle `half` between its chord and the directions at its ends. The library turns
/// arcs that are too short or too flat into lines; they are lines from the start, so that their distance from
/// the curve is the one that counts.
Segment SegmentOf(const Point& start, const Point& end, double half) {
  constexpr double kFlattest = 3.2e-3;  // the angle of an arc, in radians
  const double chord = Dist(start, end), shortest = 1.02 * geometry::TOLERANCE;
  const double radius = chord / 2 / std::fabs(std::sin(half));
  const bool isLine = std::fabs(2 * half) < kFlattest || chord < shortest || radius < shortest;
  return {end, isLine ? 0 : std::tan(half / 2)};
}

/// A place on a segment, by its distance from a point and from the start along the segment.
struct Foot {
  double distance, along;
};

Foot FootOnLine(const Point& start, const Point& end, const Point& point) {
  const Vector2d chord(start, end), to(start, point);
  const double length = chord.Magnitude();
  if (length == 0) return {to.Magnitude(), 0};
  const double along = std::clamp(Dot(chord, to) / length, 0.0, length);
  return {Dist(point, start + chord * (along / length)), along};
}

Foot FootOnArc(const Point& start, const Segment& arc, const Point& point) {
  const Vector2d chord(start, arc.end);
  const double b = arc.bulge, side = b > 0 ? 1 : -1;
  const Vector2d toCentre = chord * 0.5 + chord.LeftNormal() * ((1 - b * b) / (4 * b));
  const Point centre = start + toCentre;
  const Vector2d to(centre, point);
  const double radius = toCentre.Magnitude(), sweep = 4 * std::atan(std::fabs(b));
  double angle = side * TurnOf(-toCentre, to);
  if (angle < -(PI - sweep / 2)) angle += 2 * PI;
  if (angle >= 0 && angle <= sweep) return {std::fabs(to.Magnitude() - radius), angle * radius};
  return angle < 0 ? Foot{Dist(point, start), 0} : Foot{Dist(point, arc.end), sweep * radius};
}

Foot FootOn(const Point& start, const Segment& segment, const Point& point) {
  return segment.bulge == 0 ? FootOnLine(start, segment.end, point) : FootOnArc(start, segment, point);
}

double LengthOf(const Point& start, const Segment& segment) {
  return FootOn(start, segment, segment.end).along;
}

/// The directions of a segment at its ends.
Vector2d DirectionAt(const Point& start, const Segment& segment, bool atEnd) {
  Vector2d direction(start, segment.end);
  direction.Normalise();
  direction.Rotate((atEnd ? 2 : -2) * std::atan(segment.bulge));
  return direction;
}

}  // namespace

// With tangents of the length d at both ends, their tips are 2d apart, and the arcs meet halfway between.
std::optional<Biarc> BiarcBetween(const CurveSpot& from, const CurveSpot& to) {
  constexpr double kWidest = 0.6 * PI;
  const Vector2d chord(from.point, to.point), sum = from.direction + to.direction;
  const double along = Dot(chord, sum), square = Dot(chord, chord);
  const double root = std::sqrt(along * along + 2 * (1 - Dot(from.direction, to.direction)) * square);
  const double d = square / (along + root);
  if (!(d > 0) || !(d < 1e3 * chord.Magnitude())) return {};
  const Point near = from.point + from.direction * d, far = to.point - to.direction * d;
  const Point joint((near.x + far.x) / 2, (near.y + far.y) / 2);
  const double first = TurnOf(from.direction, Vector2d(from.point, joint));
  const double second = TurnOf(Vector2d(joint, to.point), to.direction);
  if (std::fabs(first) > kWidest || std::fabs(second) > kWidest) return {};
  return Biarc{from.point, SegmentOf(from.point, joint, first), SegmentOf(joint, to.point, second)};
}

double DistanceOf(const Point& point, const Biarc& biarc) {
  return std::min(FootOn(biarc.start, biarc.first, point).distance,
                  FootOn(biarc.first.end, biarc.second, point).distance);
}

bool Follows(const std::vector<CurveSpot>& spots, const Biarc& biarc, double tolerance) {
  const double firstLength = LengthOf(biarc.start, biarc.first);
  const double longestStep = (firstLength + LengthOf(biarc.first.end, biarc.second)) / 3 + tolerance;
  double reached = 0;
  for (const CurveSpot& spot : spots) {
    const Foot first = FootOn(biarc.start, biarc.first, spot.point);
    const Foot second = FootOn(biarc.first.end, biarc.second, spot.point);
    if (std::min(first.distance, second.distance) > tolerance) return false;
    const double along = first.distance <= second.distance ? first.along : firstLength + second.along;
    if (along < reached - tolerance || along > reached + longestStep) return false;
    reached = std::max(reached, along);
  }
  return true;
}

std::optional<Segment> AsOne(const Point& start, const Segment& first, const Segment& second,
                             double tolerance) {
  constexpr double kSameDirection = 1e-5;
  const double half = 2 * (std::atan(first.bulge) + std::atan(second.bulge));
  const bool areLines = first.bulge == 0 && second.bulge == 0;
  if (!areLines && (!(first.bulge * second.bulge > 0) || std::fabs(half) > PI / 2 + 1e-9)) return {};
  const Segment one{second.end, areLines ? 0 : std::tan(half / 2)};
  if (FootOn(start, one, first.end).distance > 1e-3 * tolerance) return {};
  const double turn = TurnOf(DirectionAt(start, one, false), DirectionAt(start, first, false));
  return std::fabs(turn) > kSameDirection ? std::nullopt : std::optional(one);
}

}  // namespace vanzet::contour
