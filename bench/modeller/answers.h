#pragma once

#include <iosfwd>

#include "base/result.h"
#include "geometry/box.h"
#include "modeller/measures.h"
#include "modeller/mesh.h"

/// The form in which the exchange program answers what it was asked about a shape: numbers as they are in
/// memory, each list after its length.
namespace vanzet::modeller {

void Pack(const Mesh& mesh, std::ostream& bytes);
void Pack(const geometry::Box3d& box, std::ostream& bytes);
void Pack(const Measures& measures, std::ostream& bytes);

/// These read what `Pack` wrote, and trust nothing in it: they fail when it is incomplete, larger than a body
/// may be, or names a point that does not exist.
Result<Mesh> UnpackMesh(std::istream& bytes);
Result<geometry::Box3d> UnpackBox(std::istream& bytes);
Result<Measures> UnpackMeasures(std::istream& bytes);

}  // namespace vanzet::modeller
