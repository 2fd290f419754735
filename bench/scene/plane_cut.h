#pragma once

#include <vector>

#include "scene/plane.h"
#include "scene/surface.h"

/// The section by a plane: what is in front of the plane is taken away.
namespace vanzet::scene {

struct Stroke {
  geometry::Point3d from, to;
};

/// The part of a surface that a section leaves, and the lines in which the plane cuts it.
struct PlaneCut {
  Surface left;
  std::vector<Stroke> strokes;
};
PlaneCut CutByPlane(const Surface& surface, const Plane& plane);

}  // namespace vanzet::scene
