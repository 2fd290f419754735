#pragma once

#include "geometry/point.h"
#include "modeller/export.h"

namespace vanzet::scene {

/// The colour of a surface that faces in a direction as the picture has it (x to the right, y up, z towards
/// the eye), under two fixed lights. The back of a surface looks like its front.
modeller::Colour Lit(const modeller::Colour& colour, const geometry::Vector3d& normal);

/// `share` of one colour over another.
modeller::Colour Mixed(const modeller::Colour& over, const modeller::Colour& under, double share);

}  // namespace vanzet::scene
