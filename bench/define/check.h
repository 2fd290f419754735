#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "define/json.h"
#include "devices/device_params.h"
#include "scene/own_device.h"

namespace vanzet::define {

/// The surroundings that a form is checked against: the machine, the shop's catalogue and the project's
/// files. Without one of the functions names of its kind are not looked up.
struct Surroundings {
  std::int32_t spurs = 1;
  bool hasSubSpindle = false, hasTailStock = false, hasSteadyRest = false;
  std::map<std::string, DeviceParams> catalogue;  ///< its devices by their names
  std::function<Result<scene::DeviceClass>(const std::string& file)> ownDevice;
  std::function<Result<void>(const std::string& name)> figure;
  std::function<Result<void>(const std::string& name)> solid;
};

/// Checks a whole form and completes it: devices get the shape and the letters that they leave to the
/// catalogue, and jaws get the usual count and side, so that the page's former values do not remain. Lengths
/// become millimetres. When nothing is refused, the form is what `StepsOf` needs.
Refusals CheckForm(Json& form, const Surroundings& surroundings);

/// The refusals of a form that do not depend on machine, catalogue and files: values and parts that can be
/// nowhere. What the dialog has stored may have some.
Refusals FindImpossible(Json form);

}  // namespace vanzet::define
