#pragma once

#include <filesystem>

#include "modeller/device_package.h"

namespace vanzet::modeller {

/// The work of `ReadDevicePackage`, in this process.
Result<DevicePackage> ReadPackage(const std::filesystem::path& file);

}  // namespace vanzet::modeller
