#pragma once

#include <string>

#include "modeller/mesh.h"

namespace vanzet::modeller {

/// The triangles in the binary form of STL: a head of 80 bytes, the count, then 50 bytes a triangle, all
/// numbers with their lowest byte first. Coordinates are singles.
std::string StlBytes(const std::vector<Mesh>& meshes);

}  // namespace vanzet::modeller
