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
  void Insert(const Point& p);
  void Insert(const Box& b);
  void Grow(double margin);
  bool Outside(const Point& p) const;  ///< the border is inside
  bool Outside(const Box& b) const;    ///< disjoint; touching boxes are not
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
