#pragma once

#include <string_view>

#include "devices/device_params.h"

namespace vanzet {

/// The value of a formula over a device's letters, as the rows of devices write it: "A-D+F",
/// "-abs B", "180-I", "-E*0.5", "F-D*tan I". Computed from left to right in double precision, products first.
///
///   formula = ["-"] product { ("+" | "-") product }
///   product = factor { ("*" | "/") factor }
///   factor  = "A" to "J", a decimal number, ("abs" | "tan") [" "] factor, or "(" formula ")"
///
/// A leading minus belongs to the first product's first factor: a zero after it becomes a negative zero.
/// "tan" takes degrees; "abs" leaves the sign of a zero alone.
/// Requires: a well-formed formula; a test covers those of the devices.
double Evaluate(std::string_view formula, const DeviceParams& params);

}  // namespace vanzet
