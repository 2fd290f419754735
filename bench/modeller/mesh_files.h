#pragma once

#include <string>

#include "modeller/export.h"
#include "modeller/mesh.h"

namespace vanzet::modeller {

/// The first line of a VRML 2.0 file.
inline constexpr std::string_view kVrmlHead = "#VRML V2.0 utf8\n";

/// A mesh as a node "Shape" with one IndexedFaceSet, in millimetres with up to six decimals.
std::string VrmlShape(const Mesh& mesh, const Colour& colour);

/// The node under a name. What a name of VRML cannot hold becomes '_'; the number makes it a name of its own.
std::string VrmlNamed(const std::string& name, std::size_t number, const std::string& shape);

/// The triangles in the binary form of STL: a head of 80 bytes, the count, then 50 bytes a triangle, all
/// numbers with their lowest byte first. Coordinates are singles.
std::string StlBytes(const std::vector<Mesh>& meshes);

}  // namespace vanzet::modeller
