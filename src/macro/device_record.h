#pragma once

#include <string>

#include "devices/device_params.h"

/// A device as one line of text, in the catalogue and in a definition: docs/formats/catalogue.md.
namespace vanzet {

/// Appends the type and the reals, separated by one blank; of a type that is kept in a VDM only A and B.
void PackDeviceParams(const DeviceParams& params, std::string& text);

/// Reads a device from any text: what is missing is 0. The result is normalised.
void UnpackDeviceParams(DeviceParams& params, const std::string& text);

/// Replaces an older code of an own device by the one in use, and clears every value that the type does not
/// have.
void NormaliseDeviceParams(DeviceParams& params);

/// Replaces a parametric type by the type of the same kind that is kept in a VDM, and clears all values.
void NormaliseDeviceType(DeviceParams& params);

}  // namespace vanzet
