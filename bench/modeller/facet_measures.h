#pragma once

#include "modeller/measures.h"
#include "modeller/mesh.h"

namespace vanzet::modeller {

/// What facets enclose: the volume between them and the origin, added up with its sign, if they are closed,
/// and 0 if they are not.
Measures MeasuresOf(const Mesh& mesh);

/// Whether each edge belongs to two triangles, in opposite senses.
bool IsClosed(const Mesh& mesh);

}  // namespace vanzet::modeller
