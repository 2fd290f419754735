#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vanzet::dialog {

/// What the file of a prepared device says of it.
struct OwnDeviceFacts {
  std::int32_t groupCode = 0;
  std::int32_t deviceClass = 0;
  double firstValue = 0;
  double secondValue = 0;
};

/// Loads the file into the VDM of that number, the collector, and reads the facts. Nothing when it is no
/// device's file, or the collector cannot be opened. The collector is closed afterwards, with the file in it.
std::optional<OwnDeviceFacts> LoadOwnDevice(std::uint32_t collector, const std::string& path);

}  // namespace vanzet::dialog
