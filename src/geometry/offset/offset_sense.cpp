#include "geometry/offset/offset_sense.h"

#include <cmath>

#include "geometry/intersect.h"

namespace geometry {
namespace {

int SignOf(double x) {
  return x > 0 ? 1 : x < 0 ? -1 : 0;
}

/// At a left bend between a line and a clockwise arc the corner is the circle's first crossing along the
/// line. The other bend has the last, and so has the other sense of the arc.
Point LineWithArc(const Span& line, const Span& arc, double lineToArc) {
  const int order = (arc.dir == CW ? 1 : -1) * (lineToArc < 0 ? -1 : 1);
  return Intof(order, CLine(line), Circle(arc));
}

}  // namespace

OffsetSense::OffsetSense(double signedOffset, int offsetDirection, bool isReversed)
    : offset(signedOffset),
      direction(offsetDirection),
      off(offsetDirection == 1 ? signedOffset : -signedOffset),
      rollDir((signedOffset < 0) == (offsetDirection == 1) ? ACW : CW) {
  if (!isReversed) return;
  off = -off;
  rollDir = -rollDir;
}

bool OffsetSense::Inward(const Span& previous, const Span& current) const {
  const double turn = Cross(previous.ve, current.vs);
  const double c = offset < 0 ? -turn : turn;
  return (c > 0 && direction == 1) || (c < 0 && direction == -1);
}

Span RollArc(int dir, const Point& end, const Point& centre, std::uint32_t ID) {
  Span arc;
  arc.dir = dir;
  arc.p1 = end;
  arc.pc = centre;
  arc.ID = ID;
  return arc;
}

Point CarrierCrossing(const Span& before, const Span& after) {
  const double turn = Cross(before.ve, after.vs);
  if (before.dir == LINEAR && after.dir == LINEAR) return Intof(CLine(before), CLine(after));
  if (before.dir == LINEAR) return LineWithArc(before, after, turn);
  if (after.dir == LINEAR) return LineWithArc(after, before, -turn);
  const int order = (turn > 0 ? 1 : -1) * (before.dir != after.dir ? -1 : 1);
  return Intof(order, Circle(before), Circle(after));
}

int CodeOfAreas(double sourceArea, double offsetArea, double off) {
  if (SignOf(sourceArea) != SignOf(offsetArea)) return 3;
  const bool outward = SignOf(sourceArea) == SignOf(off);
  return outward && std::fabs(sourceArea) > std::fabs(offsetArea) ? 2 : 0;
}

}  // namespace geometry
