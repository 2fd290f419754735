#pragma once

#include <filesystem>
#include <string>

#include "modeller/mesh.h"

namespace vanzet::test {

/// The first IndexedFaceSet of a VRML text as Open CASCADE's own reader of that format understands it, in the
/// numbers that stand there.
modeller::Mesh ReadVrml(const std::string& text);

/// The same by lines, as the simulation's writer goes through the text: the points between the line with
/// "coord Coordinate" and that with "coordIndex", the faces up to the next "]".
modeller::Mesh ReadByLines(const std::string& text);

}  // namespace vanzet::test
