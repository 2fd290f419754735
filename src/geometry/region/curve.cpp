#include "geometry/region/curve.h"

#include <algorithm>
#include <cmath>

namespace geometry::region {
namespace {

/// Half of the angle that the curve sweeps, by its sine and cosine.
struct HalfSweep {
  double sine, cosine;
};

HalfSweep HalfSweepOf(double k, double chord) {
  const double sine = std::clamp(k * chord / 2, -1.0, 1.0);
  return {sine, std::sqrt((1 - sine) * (1 + sine))};
}

Vector2d Turned(const Vector2d& v, double sine, double cosine) {
  return {v.dx * cosine - v.dy * sine, v.dy * cosine + v.dx * sine};
}

}  // namespace

Tangents TangentsOf(const Curve& c) {
  const Vector2d chord = c.b - c.a;
  const double length = chord.Magnitude();
  const Vector2d unit = chord * (1 / length);
  if (c.k == 0) return {unit, unit};
  const auto [sine, cosine] = HalfSweepOf(c.k, length);
  return {Turned(unit, -sine, cosine), Turned(unit, sine, cosine)};
}

Vector2d TangentNearest(const Vector2d& tangent, double k, const Vector2d& way) {
  const Vector2d normal = tangent.LeftNormal() - way * k;
  const double length = std::sqrt(Dot(normal, normal));
  return Vector2d(normal.dy, -normal.dx) * (1 / length);
}

double Bulge(const Curve& c) {
  if (c.k == 0) return 0;
  const double chord = (c.b - c.a).Magnitude();
  const auto [sine, cosine] = HalfSweepOf(c.k, chord);
  return chord / 2 * sine / (1 + cosine);
}

double LengthOf(const Curve& c) {
  const double chord = (c.b - c.a).Magnitude();
  if (c.k == 0) return chord;
  const double sine = HalfSweepOf(c.k, chord).sine;
  return std::abs(sine) < 1e-8 ? chord : chord * std::asin(sine) / sine;
}

double SegmentArea(const Curve& c) {
  if (c.k == 0) return 0;
  const double chord = (c.b - c.a).Magnitude();
  const auto [sine, cosine] = HalfSweepOf(c.k, chord);
  // (half - sine cosine) / (4 sine^2), whose series is sine / 6 (1 + 3 sine^2 / 10 + ...).
  const double square = sine * sine;
  const double share = square < 1e-4
                           ? sine / 6 * (1 + square * (0.3 + square * (9.0 / 56 + square * 5.0 / 48)))
                           : (std::asin(sine) - sine * cosine) / (4 * square);
  return chord * chord * share;
}

double Heading(const Curve& c, double reach, const Vector2d& reference) {
  const Vector2d tangent = TangentsOf(c).start;
  const auto [sine, cosine] = HalfSweepOf(c.k, reach);
  const Vector2d towards = Turned(tangent, sine, cosine);
  return std::atan2(Cross(reference, towards), Dot(reference, towards));
}

PreparedCurve::PreparedCurve(const Curve& c, double margin) : c_(c), margin_(margin) {
  const Vector2d chord = c.b - c.a;
  const double length = chord.Magnitude();
  tangent_ = chord * (1 / length);
  reach_ = length;
  if (c.k != 0) {
    const auto [sine, cosine] = HalfSweepOf(c.k, length);
    tangent_ = Turned(tangent_, -sine, cosine);
    reach_ = length / std::max(cosine, 0.1);
  }
  box_.Insert(Point(c.a.dx, c.a.dy));
  box_.Insert(Point(c.b.dx, c.b.dy));
  box_.Grow(margin);
}

double PreparedCurve::Residual(const Vector2d& p) const {
  const Vector2d w = p - c_.a;
  return c_.k * Dot(w, w) - 2 * Cross(tangent_, w);
}

double PreparedCurve::LeftOf(const Vector2d& p) const {
  const double residual = Residual(p);
  return -residual / (1 + std::sqrt(std::max(0.0, 1 + c_.k * residual)));
}

bool PreparedCurve::Passes(const Vector2d& p) const {
  if (box_.Outside(Point(p.dx, p.dy))) return false;
  const Vector2d chord = c_.b - c_.a, w = p - c_.a;
  const double along = Dot(chord, w);
  return along > 0 && along < Dot(chord, chord) && std::abs(LeftOf(p)) <= margin_;
}

bool PreparedCurve::IsAbove(const Vector2d& p) const {
  if (p.dy <= std::min(c_.a.dy, c_.b.dy)) return true;
  if (p.dy >= std::max(c_.a.dy, c_.b.dy)) return false;
  return (LeftOf(p) > 0) == (c_.b.dx < c_.a.dx);
}

Vector2d PreparedCurve::At(double sigma) const {
  const double bend = c_.k * sigma / 2;
  return c_.a + (tangent_ * sigma + tangent_.LeftNormal() * (sigma * bend)) * (1 / (1 + bend * bend));
}

bool PreparedCurve::Accept(double sigma, const PreparedCurve& other, Vector2d& found) const {
  if (!(sigma >= 0 && sigma <= reach_)) return false;
  found = At(sigma);
  return !other.box_.Outside(Point(found.dx, found.dy)) && std::abs(other.LeftOf(found)) <= margin_;
}

PreparedCurve::Along PreparedCurve::EquationAlong(const PreparedCurve& other) const {
  const double k = c_.k, k2 = other.c_.k;
  const Vector2d e = c_.a - other.c_.a;
  const Vector2d n = tangent_.LeftNormal(), n2 = other.tangent_.LeftNormal();
  const double c = other.Residual(c_.a);
  return {c * k * k / 4 + k2 * k * Dot(e, n) + k2 - k * Dot(n2, n),
          2 * (k2 * Dot(e, tangent_) - Dot(n2, tangent_)), c};
}

bool PreparedCurve::IsNear(const Along& along, double sigma) const {
  return std::abs((along.a * sigma + along.b) * sigma + along.c) <= 2 * margin_;
}

bool PreparedCurve::FollowedBy(const Along& along) const {
  return IsNear(along, 0) && IsNear(along, reach_) && IsNear(along, reach_ / 2);
}

/// Whether the curves follow each other from a common end to there.
bool PreparedCurve::LeadsTo(double sigma, const Along& along, const CommonEnds& common) const {
  return (common.start && IsNear(along, sigma / 2)) || (common.end && IsNear(along, (sigma + reach_) / 2));
}

int PreparedCurve::Meet(const PreparedCurve& other, const CommonEnds& common, Vector2d found[2]) const {
  const Along along = EquationAlong(other);
  if (FollowedBy(along) || other.FollowedBy(other.EquationAlong(*this))) return 0;
  int count = 0;
  const auto accept = [&](double sigma) {
    if (!LeadsTo(sigma, along, common) && Accept(sigma, other, found[count])) ++count;
  };
  const auto [a, b, c] = along;
  const double discriminant = b * b - 4 * a * c;
  const double q = -(b + std::copysign(std::sqrt(std::max(discriminant, 0.0)), b)) / 2;
  if (a != 0) accept(discriminant < 0 ? -b / (2 * a) : q / a);
  if (q != 0 && discriminant >= 0) accept(c / q);
  return count;
}

}  // namespace geometry::region
