#pragma once

#include <string>

#include "geometry/point.h"

namespace vanzet::modeller {

/// A coordinate system that a STEP file has by a name, AXIS2_PLACEMENT_3D. Millimetres.
struct NamedPlace {
  std::string name;
  geometry::Point3d origin;
  geometry::Vector3d axis;     ///< its z: in files of the workbench along the spindle, towards the work
  geometry::Vector3d upwards;  ///< its x: in files of the workbench the y of the scene
};

}  // namespace vanzet::modeller
