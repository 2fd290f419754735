#include "geometry/biarc.h"

#include <cmath>

#include "geometry/intersect.h"

namespace geometry {
namespace {

Point Middle(const Point& a, const Point& b) {
  return {(a.x + b.x) * 0.5, (a.y + b.y) * 0.5};
}

/// The arc that has `line` as its tangent: anticlockwise when its centre is on the left.
Span TangentArc(const CLine& line, const Point& from, const Point& to, const Point& centre) {
  return {line.Dist(centre) > 0 ? ACW : CW, from, to, centre};
}

/// The point where both arcs meet, and their centres.
struct Joint {
  Point at, centre1, centre2;
};

/// The joint when the tangents at both ends are cut at equal lengths d: the control points then are 2 d
/// apart, which is a quadratic in d. False when no d above `TIGHT_TOLERANCE` solves it.
bool FindJoint(const CLine& lineA, const CLine& lineB, const Vector2d& v, double c, double w, Joint& joint) {
  double d = 0;
  double second = 0;
  const int roots = SolveQuadratic(2 * (c - 1), 2 * w, Dot(v, v), d, second);
  if (roots == 2 && !(d > TIGHT_TOLERANCE)) d = second;
  if (roots == 0 || !(d > TIGHT_TOLERANCE)) return false;
  const Point q1 = lineA.At(d);
  const Point q2 = lineB.At(-d);
  const CLine middle(q1, q2);
  joint.at = middle.At(d);
  const CLine across = middle.Perpendicular(joint.at);
  joint.centre1 = Intof(across, lineA.Normal());
  joint.centre2 = Intof(across, lineB.Normal());
  return true;
}

/// Two spans that are one: the first takes all, the second becomes null at its end. Straight halves count
/// too: both have the invalid centre, and so the same radius.
void Merge(Span& span1, Span& span2) {
  const bool same = span1.dir == span2.dir && NearEqual(span1.radius, span2.radius, TOLERANCE) &&
                    NearEqual(Dist(span1.pc, span2.p1), span1.radius, TOLERANCE);
  if (!same) return;
  span1.p1 = span2.p1;
  const CLine chord(span1.p0, span1.p1);
  span1.pc = On(chord.Perpendicular(Middle(span1.p0, span1.p1)), span1.pc);
  span1.SetProperties();
  span2.p0 = span2.p1;
  span2.SetProperties();
}

}  // namespace

int Biarc(const CLine& lineA, const CLine& lineB, Span& span1, Span& span2) {
  const Point& a = lineA.p;
  const Point& b = lineB.p;
  const Vector2d v(b, a);
  const double c = Dot(lineA.v, lineB.v);
  const double w = Dot(v, lineA.v + lineB.v);
  Joint joint;
  if (NearEqual(std::fabs(c), 1.0, VECTOR_TOLERANCE) && NearZero(w, TIGHT_TOLERANCE)) {
    const Point middle = Middle(a, b);
    if (c < 0) {
      span1 = TangentArc(lineA, a, b, middle);
      return span1.NullSpan ? 0 : 1;
    }
    joint = {middle, Middle(a, middle), Middle(middle, b)};
  } else if (!FindJoint(lineA, lineB, v, c, w, joint)) {
    return 0;
  }
  span1 = TangentArc(lineA, a, joint.at, joint.centre1);
  span2 = TangentArc(lineB, joint.at, b, joint.centre2);
  Merge(span1, span2);
  return (span1.NullSpan ? 0 : 1) + (span2.NullSpan ? 0 : 1);
}

}  // namespace geometry
