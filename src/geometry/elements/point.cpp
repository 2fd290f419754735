#include <algorithm>
#include <cmath>

#include "geometry/matrix.h"
#include "geometry/point.h"

namespace geometry {
namespace {

constexpr Point Invalid() {
  Point p(9.9999999e50, 0);
  p.ok = false;
  return p;
}

/// Takes away the dust that normalising leaves next to the axes. The tests for 1 and -1 are the coarser ones.
double Cleaned(double component) {
  if (NearZero(component, TIGHT_TOLERANCE)) return 0.0;
  if (NearEqual(component, 1.0, TOLERANCE)) return 1.0;
  if (NearEqual(component, -1.0, TOLERANCE)) return -1.0;
  return component;
}

/// The lengths are multiplied after their roots were taken: the root of the product differs in the last bit,
/// which for opposed vectors is the difference between pi and 0.
double AngleOf(double dot, double lengthA, double lengthB) {
  double c = dot / (lengthA * lengthB);
  if (std::fabs(c) > 1.0) c /= std::fabs(c);
  double angle = std::acos(c);
  if (angle >= PI) angle -= PI;
  if (!std::isfinite(angle)) throw std::runtime_error("Not possible to compute a finite angle value.");
  return angle;
}

}  // namespace

constinit const Point INVALID_POINT = Invalid();

Point::Point(const Point& centre, double radius, double degrees)
    : ok(true),
      x(centre.x + radius * std::cos(degrees * RADIANS_PER_DEGREE)),
      y(centre.y + radius * std::sin(degrees * RADIANS_PER_DEGREE)) {}

Point::Point(const Point3d& p) : ok(true), x(p.x), y(p.y) {}

Point& Point::operator*=(double f) {
  x *= f;
  y *= f;
  return *this;
}

Point operator*(const Point& p, double f) {
  Point scaled = p;
  return scaled *= f;
}

Point Point::Transform(const Matrix& m) const {
  Point moved = *this;
  m.Transform2d(x, y, moved.x, moved.y);
  return moved;
}

bool Point::Equal(const Point& p, double t) const {
  return NearEqual(x, p.x, t) && NearEqual(y, p.y, t);
}

Point3d Point3d::Transform(const Matrix& m) const {
  return m.Transform(*this);
}

bool Point3d::operator==(const Point3d& p) const {
  return !Different(x, p.x, TOLERANCE) && !Different(y, p.y, TOLERANCE) && !Different(z, p.z, TOLERANCE);
}

double Dist(const Point3d& a, const Point3d& b) {
  return Vector3d(a, b).Magnitude();
}

Vector2d::Vector2d(const Vector3d& v) : dx(v.dx), dy(v.dy) {
  if (NonZero(v.dz, TIGHT_TOLERANCE)) throw L"Converting Vector3d to Vector2d illegal";
}

double Vector2d::NormaliseClean() {
  const double length = Normalise();
  dx = Cleaned(dx);
  dy = Cleaned(dy);
  return length;
}

void Vector2d::Rotate(double cosa, double sina) {
  *this = Vector2d(dx * cosa - dy * sina, dx * sina + dy * cosa);
}

void Vector2d::Rotate(double angle) {
  if (!NearZero(angle, TIGHT_TOLERANCE)) Rotate(std::cos(angle), std::sin(angle));
}

double Vector2d::Transform(const Matrix& m) {
  if (!m.unit) *this = Vector2d(m.e[0] * dx + m.e[1] * dy, m.e[4] * dx + m.e[5] * dy);
  return Normalise();
}

bool Vector2d::operator==(const Vector2d& v) const {
  return NearEqual(dx, v.dx, VECTOR_TOLERANCE) && NearEqual(dy, v.dy, VECTOR_TOLERANCE);
}

double Angle(const Vector2d& a, const Vector2d& b) {
  return AngleOf(Dot(a, b), a.Magnitude(), b.Magnitude());
}

double SignedAngle(const Vector2d& a, const Vector2d& b) {
  const double angle = Angle(a, b);
  return Cross(a, b) > 0 ? angle : 2 * PI - angle;
}

double IncludedAngle(const Vector2d& a, const Vector2d& b, int dir) {
  const double c = Dot(a, b);
  if (c > 1.0 - VECTOR_TOLERANCE) return 0.0;
  if (c < -1.0 + VECTOR_TOLERANCE) return dir * PI;
  const double magnitude = std::acos(c);
  return dir * (0 > dir * Cross(a, b) ? 2 * PI - magnitude : magnitude);
}

bool IsPerpendicular(const Vector2d& a, const Vector2d& b, double t) {
  return NearEqual(Angle(a, b), PI / 2, t);
}

bool IsParallel(const Vector2d& a, const Vector2d& b, double t) {
  const double angle = Angle(a, b);
  return NearZero(angle, t) || NearEqual(angle, PI, t);
}

bool IsSameDirection(const Vector2d& a, const Vector2d& b, double t) {
  return NearZero(Angle(a, b), t);
}

bool IsOpposite(const Vector2d& a, const Vector2d& b, double t) {
  return NearEqual(Angle(a, b), PI, t);
}

bool IsOpposite(const Vector2d& a, const Vector2d& b, double t, double lengthTolerance) {
  return IsOpposite(a, b, t) && NearEqual(a.Magnitude(), b.Magnitude(), lengthTolerance);
}

double Vector3d::Magnitude() const {
  return std::sqrt(dx * dx + dy * dy + dz * dz);
}

double Vector3d::Normalise() {
  const double length = Magnitude();
  if (length < TIGHT_TOLERANCE) {
    *this = Vector3d();
    return 0.0;
  }
  dx /= length;
  dy /= length;
  dz /= length;
  return length;
}

double Vector3d::NormaliseClean() {
  const double length = Normalise();
  dx = Cleaned(dx);
  dy = Cleaned(dy);
  dz = Cleaned(dz);
  return length;
}

double Vector3d::Transform(const Matrix& m) {
  if (!m.unit) {
    *this = Vector3d(m.e[0] * dx + m.e[1] * dy + m.e[2] * dz, m.e[4] * dx + m.e[5] * dy + m.e[6] * dz,
                     m.e[8] * dx + m.e[9] * dy + m.e[10] * dz);
  }
  return Normalise();
}

bool Vector3d::operator==(const Vector3d& v) const {
  return NearEqual(dx, v.dx, VECTOR_TOLERANCE) && NearEqual(dy, v.dy, VECTOR_TOLERANCE) &&
         NearEqual(dz, v.dz, VECTOR_TOLERANCE);
}

double Angle(const Vector3d& a, const Vector3d& b) {
  return AngleOf(Dot(a, b), a.Magnitude(), b.Magnitude());
}

int SetAxes(const Vector3d& normal, Vector3d& xAxis, Vector3d& yAxis) {
  const Vector3d n = normal;  // which may be one of the axes, too
  constexpr double kPerpendicular = 1e-9;
  const Vector3d null;
  if (n == null) throw L"SetAxes given a NULL Vector";
  if (!(xAxis == null) && std::fabs(Dot(n, xAxis)) < kPerpendicular) {
    yAxis = Cross(n, xAxis);
    return 1;
  }
  if (!(yAxis == null) && std::fabs(Dot(n, yAxis)) < kPerpendicular) {
    xAxis = Cross(yAxis, n);
    return 1;
  }
  // The axis that the normal leans to least makes the longest product.
  const double x = std::fabs(n.dx);
  const double y = std::fabs(n.dy);
  const double z = std::fabs(n.dz);
  const Vector3d away = x <= y && x <= z ? Vector3d(1, 0, 0) : y <= z ? Vector3d(0, 1, 0) : Vector3d(0, 0, 1);
  xAxis = Cross(away, n);
  xAxis.Normalise();
  yAxis = Cross(n, xAxis);
  yAxis.Normalise();
  return 2;
}

}  // namespace geometry
