#include <cmath>

#include "geometry/biarc.h"
#include "geometry/construct.h"
#include "geometry/intersect.h"

/// Another radius for the arc between two spans.
namespace geometry {
namespace {

/// The blend with both neighbours, given or made up.
struct Corner {
  Span previous, blend, next;
  Point at;      ///< the crossing of the carriers of the neighbours
  int side = 0;  ///< 1 when the way turns left there, -1 right
};

bool IsLong(const Span* neighbour) {
  return neighbour != nullptr && neighbour->length > TOLERANCE;
}

/// The neighbours of the corner, those that are missing as the lines from the ends of the blend to where its
/// tangents meet. False when one is missing and the blend is not an arc below half a turn that is tangent to
/// the other.
bool Prepare(const Span* previous, const Span& blend, const Span* next, Corner& corner) {
  const bool hasPrevious = IsLong(previous);
  const bool hasNext = IsLong(next);
  corner.blend = blend;
  if (previous != nullptr) corner.previous = *previous;
  if (next != nullptr) corner.next = *next;
  if (hasPrevious && hasNext) return true;
  const double half = blend.length / blend.radius / 2;
  const bool tangent = (!hasPrevious || IsSameDirection(previous->ve, blend.vs, ANGLE_TOLERANCE)) &&
                       (!hasNext || IsSameDirection(blend.ve, next->vs, ANGLE_TOLERANCE));
  if (!tangent || blend.dir == LINEAR || !(half < PI / 2)) return false;
  const double reach = blend.radius * std::tan(half);
  const auto makeUp = [](Span& span, const Point& from, const Point& to) {
    span = Span(from, to, span.ID, span.index0, span.index1);
  };
  if (!hasPrevious) makeUp(corner.previous, blend.p0, blend.p0 + blend.vs * reach);
  if (!hasNext) makeUp(corner.next, blend.p1 - blend.ve * reach, blend.p1);
  return true;
}

/// The point where the carriers of the neighbours meet; of two points the one nearer to the middle of their
/// gap.
Point CarrierCrossing(const Span& previous, const Span& next) {
  Point first = INVALID_POINT;
  Point second = INVALID_POINT;
  if (previous.dir == LINEAR && next.dir == LINEAR) {
    first = second = Intof(CLine(previous), CLine(next));
  } else if (previous.dir == LINEAR) {
    first = Intof(1, CLine(previous), Circle(next), second);
  } else if (next.dir == LINEAR) {
    first = Intof(1, CLine(next), Circle(previous), second);
  } else if (Intof(Circle(previous), Circle(next), first, second) == 0) {
    return INVALID_POINT;
  }
  if (!first.ok) return INVALID_POINT;
  const Point middle((previous.p1.x + next.p0.x) * 0.5, (previous.p1.y + next.p0.y) * 0.5);
  return Dist(second, middle) < Dist(first, middle) ? second : first;
}

/// The direction in which the carrier of a span passes a point of it.
Vector2d DirectionAt(const Span& span, const Point& p) {
  if (span.dir == LINEAR) return span.vs;
  Vector2d spoke(span.pc, p);
  spoke.Normalise();
  return span.dir == CW ? -spoke.LeftNormal() : spoke.LeftNormal();
}

/// Finds the corner and how it turns. False when the neighbours do not make one.
bool FindCorner(Corner& corner) {
  const bool lines = corner.previous.dir == LINEAR && corner.next.dir == LINEAR;
  if (lines && IsParallel(corner.previous.vs, corner.next.vs, ANGLE_TOLERANCE)) return false;
  corner.at = CarrierCrossing(corner.previous, corner.next);
  if (!corner.at.ok) return false;
  const Vector2d in = DirectionAt(corner.previous, corner.at);
  const Vector2d out = DirectionAt(corner.next, corner.at);
  if (!lines && IsSameDirection(in, out, ANGLE_TOLERANCE)) return false;
  const double turn = Cross(in, out);
  corner.side = turn > TIGHT_TOLERANCE ? 1 : turn < -TIGHT_TOLERANCE ? -1 : 0;
  return true;
}

/// The side of a circle that the centre of the blend is on: -1, inside, for an arc that turns as the corner
/// does.
int CircleSide(const Span& arc, int side) {
  return -arc.dir * side;
}

/// The circles of that radius that touch both carriers on the inner side of the corner, by order.
Circle TouchingCircle(const Corner& corner, double radius, int order) {
  const Span& a = corner.previous;
  const Span& b = corner.next;
  const int side = corner.side;
  if (a.dir == LINEAR && b.dir == LINEAR) return Tanto(side, CLine(a), side, CLine(b), radius);
  if (a.dir == LINEAR) return Tanto(order, side, CLine(a), CircleSide(b, side), Circle(b), radius);
  if (b.dir == LINEAR) return Tanto(order, side, CLine(b), CircleSide(a, side), Circle(a), radius);
  return Tanto(order, CircleSide(a, side), Circle(a), CircleSide(b, side), Circle(b), radius);
}

/// Where a circle about `centre`, on that side of a span's carrier, touches it; not `ok` when that is
/// everywhere.
Point TouchPoint(const Span& span, const Point& centre, double radius, int side) {
  if (span.dir == LINEAR) return On(CLine(span), centre);
  // The signed distance of the centres: below 0 when the touching circle reaches beyond the other's centre.
  const double apart = span.radius + CircleSide(span, side) * radius;
  if (std::fabs(apart) < TOLERANCE) return INVALID_POINT;
  return span.pc + Vector2d(span.pc, centre) * (span.radius / apart);
}

/// How long a span is from `from` to `to`, one of which is a new end on its carrier; below 0 when the new end
/// is beyond the far end.
double LengthBetween(const Span& span, const Point& from, const Point& to) {
  if (span.dir == LINEAR) return Dot(Vector2d(from, to), span.vs);
  const Vector2d a(span.pc, from);
  const Vector2d b(span.pc, to);
  double sweep = span.dir * std::atan2(Cross(a, b), Dot(a, b));
  const double old = std::fabs(span.angle);
  // The turn that is nearest to the old one, but never a whole one.
  sweep += 2 * PI * std::round((old - sweep) / (2 * PI));
  if (sweep >= 2 * PI) sweep -= 2 * PI;
  return sweep * span.radius;
}

/// The corner with that circle as its blend. False when the circle does not reach both neighbours.
bool Fit(const Corner& corner, const Circle& circle, Corner& fitted) {
  if (!circle.ok) return false;
  fitted = corner;
  const Point first = TouchPoint(corner.previous, circle.pc, circle.radius, corner.side);
  const Point last = TouchPoint(corner.next, circle.pc, circle.radius, corner.side);
  if (!first.ok || !last.ok || LengthBetween(corner.previous, corner.previous.p0, first) < -TOLERANCE ||
      LengthBetween(corner.next, last, corner.next.p1) < -TOLERANCE) {
    return false;
  }
  fitted.previous.p1 = fitted.blend.p0 = first;
  fitted.blend.p1 = fitted.next.p0 = last;
  fitted.blend.pc = circle.pc;
  fitted.blend.dir = corner.side > 0 ? ACW : CW;
  try {
    for (Span* span : {&fitted.previous, &fitted.blend, &fitted.next}) span->SetProperties();
  } catch (const wchar_t*) {
    return false;
  }
  return true;
}

/// The corner with a blend of that radius; of several the one nearest to the corner. False when none fits.
bool Build(const Corner& corner, double radius, Corner& best) {
  if (corner.side == 0 || !(radius >= 0)) return false;
  double nearest = 1e100;
  for (const int order : {1, -1}) {
    Corner candidate;
    if (!Fit(corner, TouchingCircle(corner, radius, order), candidate)) continue;
    const double distance = Dist(candidate.blend.p0, corner.at) + Dist(candidate.blend.p1, corner.at);
    if (!(distance < nearest)) continue;
    nearest = distance;
    best = candidate;
  }
  return nearest < 1e100;
}

int Classify(const Corner& corner) {
  if (corner.blend.length < TOLERANCE) return BLEND_TOO_SHORT;
  const bool hasPrevious = !(corner.previous.length < TOLERANCE);
  const bool hasNext = !(corner.next.length < TOLERANCE);
  if (hasPrevious && !IsSameDirection(corner.previous.ve, corner.blend.vs, ANGLE_TOLERANCE)) {
    return BLEND_NOT_TANGENT;
  }
  if (hasNext && !IsSameDirection(corner.blend.ve, corner.next.vs, ANGLE_TOLERANCE)) return BLEND_NOT_TANGENT;
  if (hasPrevious && hasNext) return BLEND_DONE;
  if (hasPrevious) return BLEND_NEXT_GONE;
  return hasNext ? BLEND_PREVIOUS_GONE : BLEND_BOTH_GONE;
}

}  // namespace

int ChangeRadius(Span* previous, Span* blend, Span* next, double radius) {
  if (blend == nullptr) return BLEND_UNPREPARED;
  for (const Span* span : {previous, blend, next}) {
    if (span != nullptr) span->NeedProperties();
  }
  Corner corner;
  if (!Prepare(previous, *blend, next, corner) || !FindCorner(corner)) return BLEND_UNPREPARED;
  Corner fitted;
  if (!Build(corner, radius, fitted)) return BLEND_IMPOSSIBLE;
  if (previous != nullptr) *previous = fitted.previous;
  *blend = fitted.blend;
  if (next != nullptr) *next = fitted.next;
  return Classify(fitted);
}

}  // namespace geometry
