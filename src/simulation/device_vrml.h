#pragma once

#include <cstdint>
#include <string>

#include "store/billet_vdm.h"

namespace vanzet {

/// Keeps the solid of a device, which the host has exported to the file `path`, in an open definition: its
/// VRML text and its placement. A file that is not there leaves the text empty and the placement written.
///
///   offset   how far behind its working face the device is clamped; a jaw has 0
///
/// False when the type has no operation or the operation cannot be used; then nothing changes.
bool StoreDeviceVrml(BilletVdm& definition, bool isSub, bool subSpindleAvailable, std::int32_t type,
                     const std::string& path, double offset);

}  // namespace vanzet
