#include "geometry/span.h"

#include <cmath>

namespace geometry {
namespace {

/// Small arcs have to be true; on large ones rounding in what made them gets a second chance.
void CheckRadii(double startRadius, double endRadius) {
  if (!Different(startRadius, endRadius, 1.5 * TOLERANCE)) return;
  const bool small = mm(50.0) + TIGHT_TOLERANCE > startRadius;
  if (small || Different(startRadius, endRadius, 4.5 * TOLERANCE)) {
    ThrowError(L"Invalid Geometry - Radii mismatch - SetProperties", 0, 1002);
  }
}

/// `Normalise` of both, with their roots taken at once.
struct Lengths {
  double ofA, ofB;
};
Lengths NormaliseBoth(Vector2d& a, Vector2d& b) {
  double lengths[] = {Dot(a, a), Dot(b, b)};
  for (double& length : lengths) length = std::sqrt(length);
  const auto divide = [](Vector2d& v, double& length) {
    if (length < TIGHT_TOLERANCE) {
      v = Vector2d();
      length = 0.0;
    } else {
      v.dx /= length;
      v.dy /= length;
    }
  };
  divide(a, lengths[0]);
  divide(b, lengths[1]);
  return {lengths[0], lengths[1]};
}

/// Whether the distance of two points is not above `TOLERANCE`. Only near the limit it takes a root.
bool Together(const Point& a, const Point& b) {
  const Vector2d d(a, b);
  const double square = Dot(d, d);
  return !(square > 2 * TOLERANCE * TOLERANCE) && TOLERANCE >= d.Magnitude();
}

/// Whether `IncludedAngle` is 0.
bool NoAngle(const Vector2d& a, const Vector2d& b) {
  const double c = Dot(a, b);
  return c > 1.0 - VECTOR_TOLERANCE || c == 1.0;
}

}  // namespace

std::int32_t IdNumber(std::uint32_t ID) {
  return static_cast<std::int32_t>(ID << 8) >> 8;
}

bool spVertex::operator==(const spVertex& v) const {
  return type == v.type && p == v.p && (type == LINEAR || pc == v.pc);
}

Span::Span(int direction, const Point& start, const Point& end, const Point& centre, std::uint32_t id,
           IndexWord word0, IndexWord word1)
    : p0(start), p1(end), dir(direction), pc(centre), ID(id), index0(word0), index1(word1) {
  SetProperties();
}

Span::Span(const Point& start, const Point& end, std::uint32_t id, IndexWord word0, IndexWord word1)
    : Span(LINEAR, start, end, Point(), id, word0, word1) {}

Span::Span(const spVertex& previous, const spVertex& v) : Span(v.type, previous.p, v.p, v.pc, v.ID) {}

void Span::SetProperties(bool returnProperties) {
  if (returnProperties) {
    SetTangents();
    SetMeasures();
  } else {
    propertiesSet = false;
    length = radius = angle = 0.0;
  }
}

void Span::SetTangents() {
  propertiesSet = false;
  length = radius = angle = 0.0;
  if (dir == LINEAR) {
    SetLineTangents();
  } else {
    SetArcTangents();
  }
  if (NullSpan) {
    pc = p0;
    radius = 0.0;
  }
}

void Span::SetLineTangents() {
  vs = Vector2d(p0, p1);
  length = vs.Normalise();
  ve = vs;
  NullSpan = TOLERANCE >= length;
}

/// An arc too flat to have an angle becomes its chord; its centre and radius then mean nothing but stay.
void Span::SetArcTangents() {
  vs = Vector2d(pc, p0).LeftNormal();
  ve = Vector2d(pc, p1).LeftNormal();
  if (dir == CW) {
    vs = -vs;
    ve = -ve;
  }
  const Lengths radii = NormaliseBoth(vs, ve);
  radius = radii.ofA;
  CheckRadii(radii.ofA, radii.ofB);
  NullSpan = !(radius > TOLERANCE) || Together(p0, p1);
  if (NullSpan) {
    dir = LINEAR;
  } else if (NoAngle(vs, ve)) {
    dir = LINEAR;
    vs = Vector2d(p0, p1);
    length = vs.Magnitude();
    vs.Normalise();
    ve = vs;
  }
}

void Span::SetMeasures() {
  if (dir != LINEAR) {
    angle = IncludedAngle(vs, ve, dir);
    length = std::fabs(angle) * radius;
  }
  box.Clear();
  GrowBox(box, true);
  propertiesSet = true;
}

void Span::NeedProperties() const {
  if (!propertiesSet) throw L"SetProperties missing";
}

void Span::Box(geometry::Box& b, bool withStart) const {
  if (dir != LINEAR) NeedProperties();
  GrowBox(b, withStart);
}

/// Requires: the radius of an arc.
void Span::GrowBox(geometry::Box& b, bool withStart) const {
  geometry::Box grown = b;  // a place of its own, which the compiler keeps in registers
  if (withStart) grown.Insert(p0);
  grown.Insert(p1);
  if (dir != LINEAR) {
    const Vector2d a(p0, p1);
    const Vector2d quadrants[] = {{radius, 0}, {0, radius}, {-radius, 0}, {0, -radius}};
    for (const Vector2d& quadrant : quadrants) {
      const Point extreme = pc + quadrant;
      if (dir * Cross(Vector2d(p0, extreme), a) > 0) grown.Insert(extreme);
    }
  }
  grown.Grow(TIGHT_TOLERANCE);
  b = grown;
}

void Span::Transform(const Matrix& m) {
  p0 = p0.Transform(m);
  p1 = p1.Transform(m);
  if (dir != LINEAR) pc = pc.Transform(m);
  if (m.mirrored) dir = -dir;
  SetProperties();
}

void Span::Scale(double f) {
  p0 *= f;
  p1 *= f;
  pc *= f;
  box.min *= f;
  box.max *= f;
  SetProperties();
}

Span Span::Reversed() const {
  Span back = *this;
  back.p0 = p1;
  back.p1 = p0;
  back.vs = -ve;
  back.ve = -vs;
  back.dir = -dir;
  back.angle = -angle;
  return back;
}

Span Span::Offset(double off) const {
  Span moved = *this;
  moved.MoveSideways(off);
  return moved;
}

void Span::MoveSideways(double off) {
  NeedProperties();
  if (NearZero(off, TIGHT_TOLERANCE) || NullSpan) return;
  const bool stays = dir == LINEAR || radius - dir * off > TOLERANCE;
  p0 = p0 + vs.LeftNormal() * off;
  p1 = p1 + ve.LeftNormal() * off;
  if (stays) return SetProperties();
  // Shrunk to the centre or beyond it. `SetProperties` would see an arc turned inside out, or a line.
  dir = LINEAR;
  NullSpan = true;
  pc = p0;
  length = radius = angle = 0.0;
  box.Clear();
  Box(box, true);
}

bool Span::operator==(const Span& s) const {
  return dir == s.dir && p0 == s.p0 && p1 == s.p1 && (dir == LINEAR || pc == s.pc);
}

bool Span::SameGeometry(const Span& s) const {
  if (dir != s.dir || !(p0 == s.p1)) return false;
  if (dir == LINEAR) {
    NeedProperties();
    s.NeedProperties();
    return vs == s.vs;
  }
  return pc == s.pc && !(p1 == s.p0);
}

}  // namespace geometry
