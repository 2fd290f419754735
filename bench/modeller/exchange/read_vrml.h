#pragma once

#include <istream>

#include "modeller/answers.h"

namespace vanzet::modeller {

/// Reads the face sets of a VRML 2.0 text as meshes, in the order of the text, placed by its
/// transforms; each has the name of the nearest named node around it. Other geometry is skipped. Fails when
/// the text is not VRML, when a face has a point that does not exist, and when a point is not within
/// `kLargestCoordinate`.
Result<std::vector<NamedMesh>> ReadVrml(std::istream& text);

}  // namespace vanzet::modeller
