#pragma once

#include <cstdint>

#include "store/billet_vdm.h"

/// The contours of devices for the machine simulation, read from the host and stored in an open definition.
namespace vanzet {

/// Stores the outline of a device, the host's contour `kurveNumber`, with an item for each vertex:
/// "<word> <x> <y> <centre x> <centre x> 0". The word is the host's; the first coordinate of the centre is
/// written twice, and the second one not at all.
///
/// A contour that the host does not have leaves the section empty. False when the type has no operation or
/// the operation cannot be used; then nothing changes.
bool StoreKurveGeometry(BilletVdm& definition, bool isSub, std::int32_t type, std::int32_t kurveNumber);

/// Stores the description of a jaw as a tool holder (store/d2t_text.h), made from the host's contour 30001. A
/// contour that the host does not have leaves it empty. False when the operation cannot be used.
bool StoreJawD2t(BilletVdm& definition, bool isSub);

}  // namespace vanzet
