#pragma once

#include "geometry/point.h"

namespace vanzet::scene {

/// The points whose way along `normal`, a unit vector, is `offset`. What is farther along it is in front.
struct Plane {
  geometry::Vector3d normal{0, 0, 1};
  double offset = 0;

  double Height(const geometry::Point3d& point) const {
    return normal.dx * point.x + normal.dy * point.y + normal.dz * point.z - offset;
  }
};

}  // namespace vanzet::scene
