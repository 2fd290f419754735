#pragma once

#include "geometry/point.h"

namespace vanzet::scene {

/// The vector of the same direction with the length 1. A vector of length 0 has no direction and is returned
/// as it is.
inline geometry::Vector3d UnitVector(const geometry::Vector3d& vector) {
  const double length = vector.Magnitude();
  return length > 0 ? vector * (1 / length) : vector;
}

}  // namespace vanzet::scene
