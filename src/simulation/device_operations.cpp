#include "simulation/device_operations.h"

#include "devices/kinds.h"
#include "store/clamp_schema.h"

namespace vanzet::simulation {
namespace {

using namespace clamp_operation;

// clang-format off
constexpr DeviceOperations kClampDevices =             { kMainClampDevice, kSubClampDevice, 11, 13 };
constexpr DeviceOperations kJaws =                     { kMainJaw,         kSubJaw,         12, 14 };
constexpr DeviceOperations kCenters =                  { kCenter,          kCenter,         15, 15 };
constexpr DeviceOperations kCentersWithoutSubSpindle = { kSubClampDevice,  kSubClampDevice, 15, 15 };
// clang-format on

}  // namespace

const DeviceOperations* OperationsOf(std::int32_t type, bool subSpindleAvailable) {
  const devices::Kind* const kind = devices::KindOf(type);
  if (kind == nullptr || !kind->HasParametric(type)) return nullptr;
  if (kind == &devices::kJaw) return &kJaws;
  if (kind == &devices::kCenter) return subSpindleAvailable ? &kCenters : &kCentersWithoutSubSpindle;
  return &kClampDevices;
}

}  // namespace vanzet::simulation
