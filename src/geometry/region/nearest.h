#pragma once

#include <vector>

#include "geometry/region/box_tree.h"
#include "geometry/region/sketch.h"

namespace geometry::region {

/// Where two things are nearest to each other.
struct Nearness {
  double distance = 1e300;
  Vector2d place;  ///< on the first one
};

/// The nearest points of two short curves; any common point when they meet.
Nearness NearestOf(const Curve& a, const Curve& b);

/// Curves to which distances are asked.
class NearestSearch {
 public:
  explicit NearestSearch(const Pieces& pieces);

  /// The nearest points of the curve and all curves, as far as they are nearer than `than`.
  Nearness Search(const Curve& curve, const Nearness& than) const;

 private:
  std::vector<Curve> curves_;
  BoxTree tree_;
};

}  // namespace geometry::region
