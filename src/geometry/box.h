#pragma once

#include "geometry/point.h"

/// Boxes whose sides are parallel to the axes. A cleared box is inside out, from 1e61 to -1e61, so that the
/// first insertion sets both corners.
namespace geometry {

/// A box of the plane.
struct Box {
  Point min{1e61, 1e61}, max{-1e61, -1e61};

  constexpr Box() = default;
  constexpr Box(const Point& mn, const Point& mx) : min(mn), max(mx) {}

  void Clear() { *this = Box(); }
  /// Grows the box to contain a point or a box. A coordinate that is not a number changes nothing.
  void Insert(const Point& p) {
    if (min.x > p.x) min.x = p.x;
    if (min.y > p.y) min.y = p.y;
    if (p.x > max.x) max.x = p.x;
    if (p.y > max.y) max.y = p.y;
  }
  void Insert(const Box& b) {
    if (min.x > b.min.x) min.x = b.min.x;
    if (min.y > b.min.y) min.y = b.min.y;
    if (b.max.x > max.x) max.x = b.max.x;
    if (b.max.y > max.y) max.y = b.max.y;
  }
  /// Moves every side outwards by the margin.
  void Grow(double margin) {
    min.x -= margin;
    min.y -= margin;
    max.x += margin;
    max.y += margin;
  }
  /// Whether the point is outside; the border is inside.
  bool Outside(const Point& p) const { return min.x > p.x || min.y > p.y || p.x > max.x || p.y > max.y; }
  /// Whether the boxes are disjoint; touching boxes are not.
  bool Outside(const Box& b) const {
    return b.min.x > max.x || b.min.y > max.y || min.x > b.max.x || min.y > b.max.y;
  }
  Point Mid() const;
  double Width() const { return max.x - min.x; }
  double Height() const { return max.y - min.y; }
};

/// A box of space, with the same operations.
struct Box3d {
  Point3d min{1e61, 1e61, 1e61}, max{-1e61, -1e61, -1e61};

  constexpr Box3d() = default;
  constexpr Box3d(const Point3d& mn, const Point3d& mx) : min(mn), max(mx) {}

  void Clear() { *this = Box3d(); }
  void Insert(const Point3d& p);
  void Insert(const Box3d& b);
  void Grow(double margin);
  bool Outside(const Point3d& p) const;
  bool Outside(const Box3d& b) const;
  Point3d Mid() const;
};

}  // namespace geometry
