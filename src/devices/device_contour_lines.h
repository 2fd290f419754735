#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "devices/device_outlines.h"

namespace vanzet {

/// The lines that make the contour of one type from the lines s100 (y = 0) and s101 (x = 0), and clean up.
/// In braces: a formula (devices/formula.h), sent by FormatReal, or n, the number of the contour.
struct DeviceContourLines {
  std::int32_t type;
  Bore bore;
  std::span<const std::string_view> lines;
};

std::span<const DeviceContourLines> AllDeviceContourLines();

}  // namespace vanzet
