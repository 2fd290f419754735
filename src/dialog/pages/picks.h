#pragma once

#include <cstdint>
#include <string>

/// The picks of the user in the host's graphics. Each runs the host's own loop and returns when it is over.
namespace vanzet::dialog {

/// Picks a position, whose values are in the host's variables then. False when the user breaks the pick off.
bool PickPosition();

/// The picked position along the spindle, and its distance from the axis. A variable that cannot be read
/// gives the value that the host returns.
void ReadPickedLength(double& length);
void ReadPickedRadius(double& radius);

/// The distance, on either side.
inline double WithoutSign(double value) {
  return value < 0 ? -value : value;
}

/// Picks a figure and puts its name into `figure`, which stays when the user breaks the pick off. A pick of
/// anything else starts again.
void PickFigure(std::string& figure);

/// The number of the picked body; below 1 when none was picked.
std::int32_t PickBody();   ///< any body, for its extents
std::int32_t PickSolid();  ///< a solid or a mesh, for its name

/// The lengths of a body's bounding box.
/// Units  millimetres
struct BodyExtents {
  double x = 0;
  double y = 0;
};
BodyExtents ExtentsOf(std::int32_t body);

}  // namespace vanzet::dialog
