#pragma once

#include <cstdint>

namespace vanzet {

/// The values that the picture of a billet is made from: the first fields of its record
/// (store/billet_records.h).
/// Units    those of the host
struct BilletDrawing {
  std::int32_t type = 0;          ///< 1: cylindrical; nothing else is drawn
  double partLength = 0;          ///< of the part behind its front face
  double outerDiameter = 0;       ///< sent as it is, not halved
  double innerDiameter = 0;       ///< of the bore; 0: none
  double barLength = 0;           ///< of the bar that the part is cut from; 0: none
  double frontAllowance = 0;      ///< ahead of the front face
  double rearAllowance = 0;       ///< behind the part
  std::uint8_t drawOnScreen = 1;  ///< exactly 1: the picture is shown
};

/// Has the host renew the picture of a spindle's billet: the figure "BilletM" or "BilletS", magenta, in a
/// layer of its own. It shows the outline of bar or blank, its bore, and cross lines: at the part's front
/// face when there is an allowance before it, at its end when there is one behind it, and for a bar where the
/// part is cut off.
///
///   spindle  1 is the sub spindle, all else the main spindle
///   z        the position of the front face along the spindle
void DrawBillet(const BilletDrawing& billet, std::int32_t spindle, double z);

}  // namespace vanzet
