#pragma once

#include <string>

#include "modeller/export.h"
#include "modeller/mesh.h"

namespace vanzet::modeller {

/// The first line of a VRML 2.0 file.
inline constexpr std::string_view kVrmlHead = "#VRML V2.0 utf8\n";

/// A mesh as a node "Shape" with one IndexedFaceSet, in millimetres with up to six decimals.
std::string VrmlShape(const Mesh& mesh, const Colour& colour);

/// Wraps the node under a name. Characters that a VRML name cannot have become '_'; the number makes the name
/// unique.
std::string NamedVrmlNode(const std::string& name, std::size_t number, const std::string& shape);

/// The triangles of some of the meshes as a binary STL file: a head of 80 bytes, the count, then 50 bytes a
/// triangle, all numbers little-endian and coordinates in single precision.
std::string StlBytes(const std::vector<Mesh>& meshes, const std::vector<std::size_t>& numbers);

}  // namespace vanzet::modeller
