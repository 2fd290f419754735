#pragma once

#include <string>
#include <vector>

#include "devices/kinds.h"
#include "geometry/kurve.h"
#include "modeller/body.h"
#include "modeller/mesh.h"
#include "project/definition.h"
#include "vdm/vdm.h"

/// Devices that a shop makes itself, each in a VDM of its own: docs/formats/definition.md, "Own devices".
namespace vanzet::scene {

using devices::DeviceClass;
using devices::DeviceClassNamed;
using devices::WordOf;

/// The parts of a device that is made.
struct OwnDevice {
  DeviceClass deviceClass = DeviceClass::kChuck;
  double first =
      0;  ///< the distance from the working face of a clamp device to where it is held; B of the record
  double second = 0;  ///< the same of a center; A of the record
  modeller::Body body;
  geometry::Kurve outline;  ///< the contour that the simulation gets, as docs/formats/d2t.md has it
  modeller::MeshTolerance fineness = {};
};

/// The VDM of the device. Fails when the body cannot be meshed.
Result<vdm::Vdm> MakeOwnDevice(const OwnDevice& device);

/// The values in the VDM of a device.
struct OwnDeviceValues {
  DeviceClass deviceClass;
  double first, second;
};

/// Fails when the VDM does not contain a device; the fault has no file name.
Result<OwnDeviceValues> ReadOwnDeviceValues(const project::Definition& content);

/// The operation of the VDM that contains the device.
inline constexpr std::size_t kOwnDeviceOperation = 1;

/// The lines of a device's VRML text, with their line ends: docs/formats/device-vrml.md. The plug
/// begins `offset` behind the origin.
Result<std::vector<std::string>> DeviceVrmlLines(const modeller::Body& body, double offset,
                                                 const modeller::MeshTolerance& fineness);

}  // namespace vanzet::scene
