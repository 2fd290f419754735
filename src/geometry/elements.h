#pragma once

#include "geometry/matrix.h"

/// Unbounded lines, circles, planes, and lines of space. Each knows by `ok` whether it could be built.
namespace geometry {

/// A directed line of the plane. `v` has length 1 unless the line was built without normalising.
struct CLine {
  bool ok = false;
  Point p;
  Vector2d v;

  CLine() = default;
  CLine(const Point& a, const Point& b);     ///< `ok` when the points are at least `TOLERANCE` apart
  CLine(const Point& from, double degrees);  ///< `ok` stays false
  /// `ok` is set only when normalising.
  CLine(const Point& from, double dx, double dy, bool normalise);
  CLine(const Point& from, const Vector2d& direction, bool normalise);
  /// From the span's start along its start tangent.
  explicit CLine(const Span& s);

  double Dist(const Point& q) const;  ///< positive on the left
  Point At(double d) const;           ///< `ok` as that of `p`
  Point At(double d, const Point& q) const;
  CLine Parallel(double d) const;  ///< to the left
  /// Through `q`, along the left normal.
  CLine Perpendicular(const Point& q) const;
  CLine Normal() const;
  CLine operator-() const;
  CLine Transform(const Matrix& m) const;
};

struct Circle {
  bool ok = false;
  Point pc;
  double radius = 0;

  Circle() = default;
  Circle(const Point& centre, double r);         ///< `ok` as that of the centre
  Circle(const Point& centre, const Point& on);  ///< `ok` when both points are
  explicit Circle(const Span& s);                ///< of an arc with properties; else not `ok`

  bool ValidRadius() const;  ///< not below `TOLERANCE`
  /// Throws L"Differential Scale not allowed for this method".
  Circle Transform(const Matrix& m) const;
  bool operator==(const Circle& c) const;
};

/// The points q with normal . q + d = 0.
struct Plane {
  bool ok = false;
  double d = 0;
  Vector3d normal{0, 0, 1};

  Plane() = default;
  Plane(const Point3d& p0, const Point3d& p1, const Point3d& p2);
  Plane(const Point3d& p, const Vector3d& direction, bool normalise = true);
  /// Here `d` is the distance of the point from the line, not the term of the plane.
  Plane(const Line& l, const Point3d& p);

  double Dist(const Point3d& p) const;
  /// `t` counts in lengths of the line's direction.
  bool Intof(const Line& l, Point3d& p, double& t) const;
  bool Intof(const Plane& b, Line& l) const;
  bool Intof(const Plane& b, const Plane& c, Point3d& p) const;
  bool operator==(const Plane& b) const;
};

extern const Plane PLANE_XY, PLANE_XZ, PLANE_YZ;

/// A line of space from `p0` to `p0 + v`; `ok` when it is longer than `TOLERANCE`.
struct Line {
  Point3d p0;
  Vector3d v;
  double length = 0;
  Point3d min, max;
  bool ok = false;

  Line() = default;
  Line(const Point3d& origin, const Vector3d& direction, bool box = true);
  Line(const Point3d& a, const Point3d& b);
  explicit Line(const Span& s);

  /// The foot of `q` on the line beyond both ends; `t` is its distance from `p0`. A line without length has
  /// its origin and 0.
  Point3d Near(const Point3d& q, double& t) const;
};

/// Between the unbounded lines; not a number for parallel ones.
double Dist(const Line& a, const Line& b);

}  // namespace geometry
