#pragma once

#include <string>
#include <vector>

#include "devices/kinds.h"
#include "geometry/kurve.h"
#include "modeller/body.h"
#include "project/definition.h"
#include "vdm/vdm.h"

/// Devices that a shop has made itself, each in a VDM of its own: docs/formats/definition.md, "Own devices".
namespace vanzet::scene {

using devices::DeviceClass;
using devices::DeviceClassNamed;
using devices::WordOf;

/// What to make a device from.
struct OwnDevice {
  DeviceClass deviceClass = DeviceClass::kChuck;
  double first = 0;   ///< how far behind its working face a clamp device is held; B of the record
  double second = 0;  ///< the same of a center; A of the record
  modeller::Body body;
  geometry::Kurve outline;  ///< the contour that the simulation gets, as docs/formats/d2t.md has it
};

/// The VDM of the device. A fault when the body cannot be meshed.
Result<vdm::Vdm> MakeOwnDevice(const OwnDevice& device);

/// What a device's VDM tells of it besides its body and its outline.
struct OwnDeviceValues {
  DeviceClass deviceClass;
  double first, second;
};

/// Refused, without the file's name: a VDM that holds no device.
Result<OwnDeviceValues> ReadOwnDeviceValues(const project::Definition& content);

/// The operation of the VDM that all of a device stands in.
inline constexpr std::size_t kOwnDeviceOperation = 1;

/// The lines of a device's VRML text, with their line ends: docs/formats/device-vrml.md. `offset` is how far
/// behind the origin the plug begins.
Result<std::vector<std::string>> DeviceVrmlLines(const modeller::Body& body, double offset);

}  // namespace vanzet::scene
