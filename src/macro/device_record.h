#pragma once

#include <string>

#include "devices/device_params.h"

/// A device as one line of text, in the catalogue and in a definition: docs/formats/catalogue.md.
namespace vanzet {

/// Appends the type and the reals, separated by one blank; of a type that is kept in a VDM only A and B.
void PackDeviceParams(const DeviceParams& params, std::string& text);

/// The other way, whatever the text: what is missing is 0. The record ends normalised.
void UnpackDeviceParams(DeviceParams& params, const std::string& text);

/// Folds the older codes of own devices to those in use, and clears every value that the type does not keep.
void NormaliseDeviceParams(DeviceParams& params);

/// Turns a parametric type into that of the same device kept in a VDM, and clears all values.
void NormaliseDeviceType(DeviceParams& params);

}  // namespace vanzet
