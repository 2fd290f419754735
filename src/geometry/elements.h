#pragma once

#include "geometry/matrix.h"

/// Unbounded lines, circles, planes, and lines of space. `ok` is false when an element could not be
/// constructed.
namespace geometry {

/// A directed line of the plane. `v` has length 1 unless the line was built without normalising.
struct CLine {
  bool ok = false;
  Point p;
  Vector2d v;

  CLine() = default;
  CLine(const Point& a, const Point& b);     ///< `ok` when the points are at least `TOLERANCE` apart
  CLine(const Point& from, double degrees);  ///< leaves `ok` false
  /// With `normalise` the direction gets length 1, and `ok` says whether it had a length; otherwise `ok` is
  /// false.
  CLine(const Point& from, double dx, double dy, bool normalise);
  CLine(const Point& from, const Vector2d& direction, bool normalise);
  /// The line from the start of a span along the tangent there.
  explicit CLine(const Span& s);

  /// The distance of `q`, positive on the left.
  double Dist(const Point& q) const;
  /// The point at distance `d` along the line from `p` or from `q`. The first takes `ok` from `p`.
  Point At(double d) const;
  Point At(double d, const Point& q) const;
  /// The line moved by `d` to the left.
  CLine Parallel(double d) const;
  /// The line through `q`, or through `p`, along the left normal.
  CLine Perpendicular(const Point& q) const;
  CLine Normal() const;
  /// The same line in the other direction.
  CLine operator-() const;
  CLine Transform(const Matrix& m) const;
};

/// A circle of the plane. Some constructions take and give signed radii; a circle of radius 0 is a point.
struct Circle {
  bool ok = false;
  Point pc;
  double radius = 0;

  Circle() = default;
  Circle(const Point& centre, double r);         ///< takes `ok` from the centre
  Circle(const Point& centre, const Point& on);  ///< `ok` when both points are
  explicit Circle(const Span& s);                ///< `ok` for an arc with its properties set

  bool ValidRadius() const;  ///< whether the radius is at least `TOLERANCE`
  /// Throws L"Differential Scale not allowed for this method".
  Circle Transform(const Matrix& m) const;
  /// Equal centres, and radii within `TOLERANCE`; a circle that is not `ok` equals none.
  bool operator==(const Circle& c) const;
};

/// A plane of space: the points q with normal . q + d = 0.
struct Plane {
  bool ok = false;
  double d = 0;
  Vector3d normal{0, 0, 1};

  Plane() = default;
  /// The plane through three points, whose normal is (p1 - p0) x (p2 - p0).
  Plane(const Point3d& p0, const Point3d& p1, const Point3d& p2);
  /// The plane through `p` across a direction.
  Plane(const Point3d& p, const Vector3d& direction, bool normalise = true);
  /// The plane through a line and a point. Here `d` is the distance of the point from the line, not the term
  /// of the plane.
  Plane(const Line& l, const Point3d& p);

  /// The distance of `p`, positive on the side of the normal.
  double Dist(const Point3d& p) const;
  /// The crossing with a line, with another plane, or with two others. False when they are parallel. `t`
  /// counts in lengths of the line's direction.
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

  /// The foot of `q` on the line, which may be beyond its ends; `t` is its distance from `p0`. For a line
  /// without length it is `p0`, and `t` is 0.
  Point3d Near(const Point3d& q, double& t) const;
};

/// The distance between the lines without their ends; not a number for parallel ones.
double Dist(const Line& a, const Line& b);

}  // namespace geometry
