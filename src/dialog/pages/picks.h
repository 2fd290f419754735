#pragma once

#include <cstdint>
#include <string>

/// What a person picks in the host's graphics. Each runs the host's own loop and returns when it is over.
namespace vanzet::dialog {

/// Picks a position; false when it was broken off. Its values then lie in the host's variables.
bool PickPosition();

/// The picked position along the spindle, and away from its axis; what the host has when it cannot be read.
void ReadPickedLength(double& length);
void ReadPickedRadius(double& radius);

/// A distance: what lies on the other side counts the same.
inline double WithoutSign(double value) {
  return value < 0 ? -value : value;
}

/// Picks a figure; its name replaces `figure`, which stays when the pick was broken off. Picks of anything
/// else begin anew.
void PickFigure(std::string& figure);

/// The number of a body that was picked, below 1 when there is none.
std::int32_t PickBody();   ///< any body, for its values
std::int32_t PickSolid();  ///< a solid or a mesh, for its name

/// The lengths of a body's bounding box.
/// Units  millimetres
struct BodyExtents {
  double x = 0;
  double y = 0;
};
BodyExtents ExtentsOf(std::int32_t body);

}  // namespace vanzet::dialog
