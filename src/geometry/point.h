#pragma once

#include <cmath>

#include "geometry/numerics.h"

/// Points and vectors of the plane and of space: plain values, lengths in the current unit, angles in
/// radians.
namespace geometry {

class Matrix;
class Span;
struct Box;
struct Circle;
struct CLine;
struct Line;
struct Plane;
struct Point;
struct Point3d;
struct Vector3d;

/// A vector of the plane.
struct Vector2d {
  double dx = 0, dy = 0;

  constexpr Vector2d() = default;
  constexpr Vector2d(double x, double y) : dx(x), dy(y) {}
  constexpr Vector2d(const Point& a, const Point& b);  ///< b - a
  /// Throws L"Converting Vector3d to Vector2d illegal" when |dz| is above `TIGHT_TOLERANCE`.
  explicit Vector2d(const Vector3d& v);

  double Magnitude() const { return std::sqrt(dx * dx + dy * dy); }
  /// Makes the length 1 and returns the former length. A vector shorter than `TIGHT_TOLERANCE` becomes null
  /// and returns 0.
  double Normalise() {
    const double length = Magnitude();
    if (length < TIGHT_TOLERANCE) {
      *this = Vector2d();
      return 0.0;
    }
    dx /= length;
    dy /= length;
    return length;
  }
  /// Normalises, then makes components near 0 (`TIGHT_TOLERANCE`), 1 and -1 (`TOLERANCE`) exact.
  double NormaliseClean();
  /// The vector turned by a quarter of a turn anticlockwise.
  Vector2d LeftNormal() const { return {-dy, dx}; }
  Vector2d operator-() const { return {-dx, -dy}; }
  /// Turns the vector by an angle, given by its cosine and sine or in radians.
  void Rotate(double cosa, double sina);
  /// Does nothing for an angle within `TIGHT_TOLERANCE` of zero.
  void Rotate(double angle);
  /// Transforms, then normalises; returns the length before that.
  double Transform(const Matrix& m);
  /// Each component within `VECTOR_TOLERANCE`.
  bool operator==(const Vector2d& v) const;
};

/// Arithmetic by components.
constexpr Vector2d operator*(const Vector2d& v, double f) {
  return {v.dx * f, v.dy * f};
}
constexpr Vector2d operator+(const Vector2d& a, const Vector2d& b) {
  return {a.dx + b.dx, a.dy + b.dy};
}
constexpr Vector2d operator-(const Vector2d& a, const Vector2d& b) {
  return {a.dx - b.dx, a.dy - b.dy};
}
/// The z component of the cross product: above 0 when b is on the left of a.
constexpr double Cross(const Vector2d& a, const Vector2d& b) {
  return a.dx * b.dy - a.dy * b.dx;
}
constexpr double Dot(const Vector2d& a, const Vector2d& b) {
  return a.dx * b.dx + a.dy * b.dy;
}

/// The angle between two vectors in [0, pi). Exact opposition gives 0: a result not below pi loses pi.
/// Throws std::runtime_error "Not possible to compute a finite angle value.", for a null vector among others.
double Angle(const Vector2d& a, const Vector2d& b);
/// That angle when b is on the left of a, otherwise 2 pi minus it; so parallel vectors give 2 pi.
double SignedAngle(const Vector2d& a, const Vector2d& b);
/// The angle swept from unit vector a to unit vector b in direction `dir` (1, -1), with the sign of `dir`. An
/// angle near 0 is exactly 0 and one near half a turn exactly pi (cosine within `VECTOR_TOLERANCE`).
double IncludedAngle(const Vector2d& a, const Vector2d& b, int dir);

/// Whether `Angle` is within `t` of pi/2, of 0 or pi, of 0, and of pi. As exact opposition gives 0, the last
/// one holds only for angles just below pi.
bool IsPerpendicular(const Vector2d& a, const Vector2d& b, double t);
bool IsParallel(const Vector2d& a, const Vector2d& b, double t);
bool IsSameDirection(const Vector2d& a, const Vector2d& b, double t);
bool IsOpposite(const Vector2d& a, const Vector2d& b, double t);
bool IsOpposite(const Vector2d& a, const Vector2d& b, double t, double lengthTolerance);  ///< and as long

/// A vector of space.
struct Vector3d {
  double dx = 0, dy = 0, dz = 0;

  constexpr Vector3d() = default;
  constexpr Vector3d(double x, double y, double z) : dx(x), dy(y), dz(z) {}
  constexpr Vector3d(const Point3d& a, const Point3d& b);  ///< b - a
  constexpr Vector3d(const Vector2d& v) : dx(v.dx), dy(v.dy) {}

  /// These do the same as the members of `Vector2d`.
  double Magnitude() const;
  double Normalise();
  double NormaliseClean();
  Vector3d operator-() const { return {-dx, -dy, -dz}; }
  double Transform(const Matrix& m);
  bool operator==(const Vector3d& v) const;
};

/// Arithmetic by components.
constexpr Vector3d operator*(const Vector3d& v, double f) {
  return {v.dx * f, v.dy * f, v.dz * f};
}
constexpr Vector3d operator+(const Vector3d& a, const Vector3d& b) {
  return {a.dx + b.dx, a.dy + b.dy, a.dz + b.dz};
}
constexpr Vector3d operator-(const Vector3d& a, const Vector3d& b) {
  return {a.dx - b.dx, a.dy - b.dy, a.dz - b.dz};
}
constexpr Vector3d Cross(const Vector3d& a, const Vector3d& b) {
  return {a.dy * b.dz - a.dz * b.dy, a.dz * b.dx - a.dx * b.dz, a.dx * b.dy - a.dy * b.dx};
}
constexpr double Dot(const Vector3d& a, const Vector3d& b) {
  return a.dx * b.dx + a.dy * b.dy + a.dz * b.dz;
}
/// The angle between two vectors of space; it throws as that of the plane does.
double Angle(const Vector3d& a, const Vector3d& b);

/// Completes a right-handed pair of axes perpendicular to `normal`. Returns 1 when a given axis was
/// perpendicular and determined the other, and 2 when both were replaced by unit vectors of this function's
/// choice. Throws L"SetAxes given a NULL Vector" for a null normal.
int SetAxes(const Vector3d& normal, Vector3d& xAxis, Vector3d& yAxis);

/// A point of the plane. A failed construction is a point whose `ok` is false; callers check `ok`, never the
/// coordinates.
///
/// Copies are made by members. The compiler's own copy moves 16 bytes and then 8, and a reader of both
/// coordinates has to wait until these two are stored: a sixth of the time of an offset.
struct Point {
  bool ok = false;
  double x = 0, y = 0;

  constexpr Point() = default;
  constexpr Point(double px, double py) : ok(true), x(px), y(py) {}
  // NOLINTNEXTLINE(modernize-use-equals-default): see above
  constexpr Point(const Point& p) : ok(p.ok), x(p.x), y(p.y) {}
  // NOLINTNEXTLINE(modernize-use-equals-default)
  constexpr Point& operator=(const Point& p) {
    ok = p.ok;
    x = p.x;
    y = p.y;
    return *this;
  }
  Point(const Point& centre, double radius, double degrees);  ///< polar
  explicit Point(const Point3d& p);                           ///< drops z

  Point& operator*=(double f);             ///< leaves `ok`
  Point Transform(const Matrix& m) const;  ///< leaves `ok`
  /// Each coordinate within `TOLERANCE`; `ok` is not compared.
  bool operator==(const Point& p) const {
    return !Different(x, p.x, TOLERANCE) && !Different(y, p.y, TOLERANCE);
  }
  bool Equal(const Point& p, double t) const;
};

/// The result of every failed construction: (9.9999999e50, 0), `ok` false.
extern const Point INVALID_POINT;

constexpr Vector2d::Vector2d(const Point& a, const Point& b) : dx(b.x - a.x), dy(b.y - a.y) {}

/// Arithmetic by coordinates. The results are `ok`, whatever the arguments are.
constexpr Point operator+(const Point& p, const Vector2d& v) {
  return {p.x + v.dx, p.y + v.dy};
}
constexpr Point operator-(const Point& p, const Vector2d& v) {
  return {p.x - v.dx, p.y - v.dy};
}
constexpr Point operator+(const Point& a, const Point& b) {
  return {a.x + b.x, a.y + b.y};
}
constexpr Point operator-(const Point& a, const Point& b) {
  return {a.x - b.x, a.y - b.y};
}
Point operator*(const Point& p, double f);  ///< leaves `ok`
inline double Dist(const Point& a, const Point& b) {
  return Vector2d(a, b).Magnitude();
}

/// A point of space. It has no `ok`: a function that may find no point returns a truth value.
struct Point3d {
  double x = 0, y = 0, z = 0;

  constexpr Point3d() = default;
  constexpr Point3d(double px, double py, double pz) : x(px), y(py), z(pz) {}
  explicit Point3d(const Point& p, double pz = 0) : x(p.x), y(p.y), z(pz) {}

  Point3d Transform(const Matrix& m) const;
  bool operator==(const Point3d& p) const;
};

constexpr Vector3d::Vector3d(const Point3d& a, const Point3d& b)
    : dx(b.x - a.x), dy(b.y - a.y), dz(b.z - a.z) {}

constexpr Point3d operator+(const Point3d& p, const Vector3d& v) {
  return {p.x + v.dx, p.y + v.dy, p.z + v.dz};
}
constexpr Point3d operator-(const Point3d& p, const Vector3d& v) {
  return {p.x - v.dx, p.y - v.dy, p.z - v.dz};
}
double Dist(const Point3d& a, const Point3d& b);

}  // namespace geometry
