#pragma once

#include <array>
#include <cstdint>

namespace vanzet {

/// A clamp device: what kind it is and the values behind the letters of its page.
///
/// Units    lengths are the host's; I of a face driver, E and G of a center are degrees
/// Which    letters a type has: devices/device_types.h
struct DeviceParams {
  std::int32_t type = 0;  ///< 0: no device
  double A = 0, B = 0, C = 0, D = 0, E = 0, F = 0, G = 0, H = 0, I = 0, J = 0;

  bool operator==(const DeviceParams&) const = default;
};

/// The reals in the order of their letters, A first.
inline constexpr std::array<double DeviceParams::*, 10> kDeviceReals = {
    &DeviceParams::A, &DeviceParams::B, &DeviceParams::C, &DeviceParams::D, &DeviceParams::E,
    &DeviceParams::F, &DeviceParams::G, &DeviceParams::H, &DeviceParams::I, &DeviceParams::J};

/// The real behind a letter. Requires: 'A' to 'J'.
inline double ValueOf(const DeviceParams& params, char letter) {
  return params.*kDeviceReals.at(static_cast<std::size_t>(letter - 'A'));
}

/// True for a device whose solid is kept in a VDM of its own; it has no outline.
constexpr bool IsOwnVdmType(std::int32_t type) {
  // A bit for each type from 103 on: 103 to 107, 109 to 113, 115.
  constexpr std::uint32_t kOwnTypes = 6111;
  const std::uint32_t bit = static_cast<std::uint32_t>(type) - 103U;
  return bit < 13U && (kOwnTypes >> bit & 1U) != 0;
}

/// Whether jaws belong to a device of that type; 109 is an older code of 103.
constexpr bool IsChuckType(std::int32_t type) {
  return type == 1 || type == 103 || type == 109;
}

constexpr bool IsCenterType(std::int32_t type) {
  return type == 13 || type == 14 || type == 115;
}

}  // namespace vanzet
