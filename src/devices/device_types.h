#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace vanzet {

/// What a page has to know of a type of device.
struct DeviceType {
  std::int32_t code;
  std::string_view name;
  std::string_view keeps;    ///< the letters of the values it has; all others are 0
  std::string_view outline;  ///< those that its outline is made from
  char thickness;            ///< the letter of a jaw's thickness, ' ' for what is spun or kept in a VDM
  std::int32_t picture;      ///< that explains the letters on the page
};

/// All types, in the order of their codes.
std::span<const DeviceType> DeviceTypes();

/// The row of a type, or null.
const DeviceType* FindDeviceType(std::int32_t code);

}  // namespace vanzet
