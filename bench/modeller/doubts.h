#pragma once

#include <string>
#include <vector>

#include "base/length_unit.h"
#include "modeller/body.h"
#include "modeller/mesh.h"

namespace vanzet::modeller {

/// The part that a body is to have in a set-up.
enum class Role {
  kTurned,  ///< it is about the axis, and its front is its largest x
  kJaw,     ///< its foot is its smallest x
};

/// Sentences about a body that lies where it will be used, for a person to look at: it is open, so small or
/// large that its unit must be wrong, beside the axis, or not at x = 0. Each goes on after the name of the
/// body. Empty for a body as they usually are.
/// Requires: the mesh is not empty
std::vector<std::string> DoubtsAbout(const Mesh& laid, Role role, LengthUnit unit);

/// The same with what the file of the body makes doubtful: several bodies that no assembly holds together.
std::vector<std::string> DoubtsAbout(const Body& laid, const Mesh& mesh, Role role, LengthUnit unit);

}  // namespace vanzet::modeller
