#pragma once

#include <cstdint>

#include "store/billet_vdm.h"

namespace vanzet {

/// Copies the outline of a device, the host's contour `kurveNumber`, into an open definition, an item a
/// vertex:
/// "<word> <x> <y> <centre x> <centre x> 0". The word is the host's; the centre's first coordinate stands
/// twice, and its second one nowhere.
///
/// A contour that the host does not have leaves the section empty. False when the type has no operation or
/// the operation cannot be used; then nothing changes.
bool StoreKurveGeometry(BilletVdm& definition, bool isSub, std::int32_t type, std::int32_t kurveNumber);

}  // namespace vanzet
