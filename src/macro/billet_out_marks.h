#pragma once

#include <cstdint>

namespace vanzet {

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
