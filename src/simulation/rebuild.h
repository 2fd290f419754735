#pragma once

#include <cstdint>
#include <string>

#include "devices/device_params.h"
#include "store/billet_vdm.h"

/// Makes simulation data again: has the host build and export the solids, and stores the results.
///
/// Story    BuildSpunDevice for each device made from values, then RebuildSimulation for the spindle's jaw;
///          BilletVdm::ReOrg is handed RebuildJawSimulation for definitions of old
/// Shares   one temporary file of a fixed name below the host's folder "TMP": one rebuild at a time
namespace vanzet {

/// Makes the jaw's simulation data of one spindle of an open definition. A device without a jaw of its own
/// gets a stand-in. False for a device or a jaw that cannot be made here: none, or one that is kept in a VDM.
/// A contour that was not made leaves the old data, and the result is true.
bool RebuildJawSimulation(BilletVdm& definition, bool isSub);

/// Makes the simulation data of a device from its values: spins its outline about the X axis, keeps VRML text
/// and outline in the definition of that spur. The construction window stays current.
/// Requires: a type that has an outline.
void BuildSpunDevice(std::int32_t spur, std::int32_t spindle, bool subSpindleAvailable,
                     const DeviceParams& device);

/// The generators for callers that hold no open definition: 0 when the definition of that spur was there and
/// the generator returned true, else -1. A `spindle` of 0 is the main spindle, all else the sub spindle.
std::int32_t RebuildSimulation(std::int32_t spur, std::int32_t spindle);
std::int32_t StoreDeviceVrmlFor(std::int32_t spur, std::int32_t spindle, bool subSpindleAvailable,
                                std::int32_t type, const std::string& path, double offset);
std::int32_t StoreGeometryFor(std::int32_t spur, std::int32_t spindle, std::int32_t type);

}  // namespace vanzet
