#pragma once

#include <array>
#include <string>
#include <string_view>

#include "devices/device_params.h"
#include "project/definition.h"

/// What a definition tells of the equipment, apart from its 3D texts. Forms: docs/formats/definition.md.
namespace vanzet::scene {

/// Clamp devices, jaws and centers. Type 0: there is none.
struct Device {
  std::string name;
  DeviceParams params;
};

struct Billet {
  std::int32_t type = 0;  ///< 1 cylindrical, 2 from figures, 3 from a solid; others are none
  double partLength = 0;
  double outerDiameter = 0, innerDiameter = 0;
  double frontAllowance = 0, rearAllowance = 0, barLength = 0;
  bool isShown = true;
  double clampDiameter = 0, angle = 0;
  std::string outside = {}, inside = {};  ///< figures; empty: none
  std::string solid = {};
};

struct FinishPart {
  std::int32_t type = 0;  ///< 1 from figures, 2 from a solid; others are none
  std::string outside = {}, inside = {};
  std::string solid = {};
};

/// One spindle. Millimetres and degrees.
struct Spindle {
  Device clamp, jaw;
  bool clampsInside = false;
  std::int32_t jaws = 3;
  Billet billet;
  FinishPart finishPart;
  double clampingOut = 0, origin = 0;
};

struct Equipment {
  std::array<Spindle, 2> spindles;  ///< main, sub
  Device center;
  bool isCenterInSub =
      false;  ///< the machine has no sub spindle: its place in the definition is the center's
  bool usesSteadyRest = false;
};

/// Whatever the definition lacks stays as it is in an empty one.
Equipment ReadEquipment(const project::Definition& definition);

/// The device that a value line tells, its type by its newer code.
DeviceParams ReadDeviceParams(std::string_view valueLine);

/// The items of a section; none when there is no such section.
const std::vector<std::string>& ItemsOf(const project::Definition& definition, std::size_t operation,
                                        std::size_t section);

/// The three reals that a text begins with; missing ones are 0.
std::array<double, 3> ThreeReals(std::string_view text);

}  // namespace vanzet::scene
