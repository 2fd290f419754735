#pragma once

#include "geometry/point.h"

/// Boxes along the axes. A cleared box is inside out, from 1e61 to -1e61, so that the first insertion sets
/// both corners.
namespace geometry {

struct Box {
  Point min{1e61, 1e61}, max{-1e61, -1e61};

  constexpr Box() = default;
  constexpr Box(const Point& mn, const Point& mx) : min(mn), max(mx) {}

  void Clear() { *this = Box(); }
  // The corners take what is beyond them, so a coordinate that is not a number changes nothing.
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
  void Grow(double margin) {
    min.x -= margin;
    min.y -= margin;
    max.x += margin;
    max.y += margin;
  }
  bool Outside(const Point& p) const {  ///< the border is inside
    return min.x > p.x || min.y > p.y || p.x > max.x || p.y > max.y;
  }
  bool Outside(const Box& b) const {  ///< disjoint; touching boxes are not
    return b.min.x > max.x || b.min.y > max.y || min.x > b.max.x || min.y > b.max.y;
  }
  Point Mid() const;
  double Width() const { return max.x - min.x; }
  double Height() const { return max.y - min.y; }
};

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
