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

/// The datum of a spur.
/// Units    those of the host, along the spindle
struct DatumRecord {
  double clampingOutMain = 0;  ///< how far the billet sticks out of the main spindle's chuck
  double clampingOutSub = 0;
  double originMain = 0;  ///< the origin translation of the main spindle; its billet's front face
  double originSub = 0;
};

/// Has the host renew the two marks of a spindle's datum: a grey dotted line across the spindle where the
/// clamping ends, and a small grey cross in a ring at the origin. The old ones go in any case; new ones come
/// only when the host's setting "HideBilletOut" is a number other than 0, against the sense of its name.
///
///   spindle  1 is the sub spindle, all else the main spindle
void DrawBilletOutMarks(const DatumRecord& datum, std::int32_t spindle);

}  // namespace vanzet
