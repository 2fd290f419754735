#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "devices/device_params.h"
#include "view/qt/pictures/sketch.h"

/// What is drawn around the outline of a parametric device: where each letter stands, what its values have to
/// keep to, and an example of each type. Formulas as in devices/formula.h.
namespace vanzet::view::qt {

struct DeviceMeasure {
  std::int32_t type;
  char letter;
  Measure::Kind kind;
  Where where;
  int lane;
  std::string_view fromX, fromY;  ///< a point of the outline
  std::string_view toX, toY;      ///< another one; of an angle the two directions
  double at = 0.5;
};

std::span<const DeviceMeasure> DeviceMeasures();

/// The first formula has to be less than the second.
struct DeviceRule {
  std::int32_t type;
  std::string_view less;
  std::string_view greater;
};

std::span<const DeviceRule> DeviceRules();

/// Values of a device that is easily read; zeros for a type without an outline.
DeviceParams ExampleOf(std::int32_t type);

}  // namespace vanzet::view::qt
