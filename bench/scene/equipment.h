#pragma once

#include <array>
#include <string>
#include <string_view>

#include "devices/device_params.h"
#include "project/definition.h"

/// The equipment that a definition describes, without its 3D texts. Source: docs/formats/definition.md.
///
/// The module writes these records in src/store (BilletRecord and its neighbours). That is the other side of
/// a contract between two programs: the records are parsed here on purpose once more, from the page alone,
/// so that a mistake on either side shows.
namespace vanzet::scene {

/// A clamp device, a jaw or a center. Type 0: no device.
struct Device {
  std::string name;
  DeviceParams params;

  bool operator==(const Device&) const = default;
};

namespace billet_type {
inline constexpr std::int32_t kCylinder = 1;
inline constexpr std::int32_t kFigures = 2;
inline constexpr std::int32_t kSolid = 3;
}  // namespace billet_type

namespace finish_part_type {
inline constexpr std::int32_t kFigures = 1;
inline constexpr std::int32_t kSolid = 2;
}  // namespace finish_part_type

struct Billet {
  std::int32_t type = 0;  ///< of billet_type; any other number means none
  double partLength = 0;
  double outerDiameter = 0, innerDiameter = 0;
  double frontAllowance = 0, rearAllowance = 0, barLength = 0;
  bool isShown = true;
  double clampDiameter = 0, angle = 0;
  std::string outside = {}, inside = {};  ///< figures; empty: none
  std::string solid = {};

  bool operator==(const Billet&) const = default;
};

struct FinishPart {
  std::int32_t type = 0;  ///< of finish_part_type; any other number means none
  std::string outside = {}, inside = {};
  std::string solid = {};

  bool operator==(const FinishPart&) const = default;
};

/// One spindle. Millimetres and degrees.
struct Spindle {
  Device clamp, jaw;
  bool clampsInside = false;
  std::int32_t jaws = 3;
  Billet billet;
  FinishPart finishPart;
  double clampingOut = 0, origin = 0;

  bool operator==(const Spindle&) const = default;
};

struct Equipment {
  std::array<Spindle, 2> spindles;  ///< main, sub
  Device center;
  bool isCenterInSub = false;  ///< no sub spindle: the center takes its place in the definition
  bool usesSteadyRest = false;

  bool operator==(const Equipment&) const = default;
};

/// A value that the definition does not have is that of an empty `Equipment`.
Equipment ReadEquipment(const project::Definition& definition);

/// The device of a value line; an older code of its type becomes the newer one.
DeviceParams ReadDeviceParams(std::string_view valueLine);

/// The first three reals of a text; missing ones are 0.
std::array<double, 3> ThreeReals(std::string_view text);

}  // namespace vanzet::scene
