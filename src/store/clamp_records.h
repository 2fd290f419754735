#pragma once

#include <cstdint>
#include <string>

#include "devices/device_params.h"

/// The devices of a spur: the clamp device and the jaw of each spindle, and the tailstock's centre.
///
/// Shape    each is a name and its values. The name is the catalogue's, or for a device kept in a VDM the
///          path of its file. One that is not given yet has the name "0" and the type 0
///   spur     whose definition: BilletVdm::VdmNumber
///   spindle  0 is the main spindle, all else the sub spindle
/// Result   0, or -1 (store/record_frame.h)
/// Source   docs/formats/definition.md
namespace vanzet {

std::int32_t WriteClampDevice(std::int32_t spur, std::int32_t spindle, const std::string& name,
                              const DeviceParams& params);

/// On failure `params` is that of no device, and `name` stays as it is.
std::int32_t ReadClampDevice(std::int32_t spur, std::int32_t spindle, std::string& name,
                             DeviceParams& params);

/// Writes how the clamp device holds the work.
std::int32_t WriteClampOptions(std::int32_t spur, std::int32_t spindle, bool innerChucking,
                               std::int32_t jaws);

/// Missing values, and a failure, read as clamped from outside by 3 jaws.
std::int32_t ReadClampOptions(std::int32_t spur, std::int32_t spindle, bool& innerChucking,
                              std::int32_t& jaws);

std::int32_t WriteJaw(std::int32_t spur, std::int32_t spindle, const std::string& name,
                      const DeviceParams& params);

/// On failure `params` is that of no device, and `name` stays as it is.
std::int32_t ReadJaw(std::int32_t spur, std::int32_t spindle, std::string& name, DeviceParams& params);

/// Writes a jaw without a name, of no type.
std::int32_t ClearJaw(std::int32_t spur, std::int32_t spindle);

/// A machine without a sub spindle keeps its centre in the place of the sub spindle's clamp device.
std::int32_t WriteCenter(std::int32_t spur, bool subSpindleAvailable, const std::string& name,
                         const DeviceParams& params);

/// 0 only for a centre; another device in its place fails, with `name` and `params` as read.
std::int32_t ReadCenter(std::int32_t spur, bool subSpindleAvailable, std::string& name, DeviceParams& params);

}  // namespace vanzet
