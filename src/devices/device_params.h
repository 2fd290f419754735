#pragma once

#include <array>
#include <cstdint>

namespace vanzet {

/// A clamp device: its type and the values of the letters of its page. devices/device.h says which letters a
/// type has.
///
/// Units    lengths are the host's; I of a face driver, E and G of a center are degrees
struct DeviceParams {
  std::int32_t type = 0;  ///< 0: no device
  double A = 0, B = 0, C = 0, D = 0, E = 0, F = 0, G = 0, H = 0, I = 0, J = 0;

  bool operator==(const DeviceParams&) const = default;
};

/// The reals in the order of their letters, A first.
inline constexpr std::array<double DeviceParams::*, 10> kDeviceReals = {
    &DeviceParams::A, &DeviceParams::B, &DeviceParams::C, &DeviceParams::D, &DeviceParams::E,
    &DeviceParams::F, &DeviceParams::G, &DeviceParams::H, &DeviceParams::I, &DeviceParams::J};

/// The value of a letter. Requires: 'A' to 'J'.
inline double ValueOf(const DeviceParams& params, char letter) {
  return params.*kDeviceReals.at(static_cast<std::size_t>(letter - 'A'));
}

}  // namespace vanzet
