#include "simulation/device_operations.h"

#include "store/clamp_schema.h"

namespace vanzet::simulation {
namespace {

using namespace clamp_operation;

// clang-format off
constexpr DeviceOperations kClampDevices =             {  1,  4, kMainClampDevice, kSubClampDevice, 11, 13 };
constexpr DeviceOperations kJaws =                     {  5, 12, kMainJaw,         kSubJaw,         12, 14 };
constexpr DeviceOperations kCenters =                  { 13, 14, kCenter,          kCenter,         15, 15 };
constexpr DeviceOperations kCentersWithoutSubSpindle = { 13, 14, kSubClampDevice,  kSubClampDevice, 15, 15 };
// clang-format on

}  // namespace

const DeviceOperations* OperationsOf(std::int32_t type, bool subSpindleAvailable) {
  const DeviceOperations& centers = subSpindleAvailable ? kCenters : kCentersWithoutSubSpindle;
  for (const DeviceOperations* row : {&kClampDevices, &kJaws, &centers}) {
    if (type >= row->firstType && type <= row->lastType) return row;
  }
  return nullptr;
}

}  // namespace vanzet::simulation
