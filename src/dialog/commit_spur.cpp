#include "dialog/commit_spur.h"

#include <string>

#include "devices/kinds.h"
#include "simulation/rebuild.h"
#include "store/clamp_records.h"

namespace vanzet::dialog {
namespace {

constexpr std::int32_t kCenterPass = 2;

DeviceParams DeviceOfPass(std::int32_t pass, std::int32_t spur, bool isSubAvailable) {
  std::string name;
  DeviceParams device;
  if (pass == kCenterPass) {
    ReadCenter(spur, isSubAvailable, name, device);
  } else {
    ReadClampDevice(spur, pass, name, device);
  }
  return device;
}

}  // namespace

void CommitSpur(std::int32_t spur, PpDefIni& machine) {
  const bool isSubAvailable = machine.IsSubSpindleAvailable();
  const std::int32_t passes = isSubAvailable && machine.IsTailStockAvailable() ? 3 : 2;
  for (std::int32_t pass = 0; pass < passes; ++pass) {
    const std::int32_t spindle = pass == 0 ? 0 : 1;
    const DeviceParams device = DeviceOfPass(pass, spur, isSubAvailable);
    // One from a VDM has brought its data with it.
    if (device.type != 0 && !devices::IsOwn(device.type)) {
      BuildSpunDevice(spur, spindle, isSubAvailable, device);
    }
    RebuildSimulation(spur, spindle);
  }
}

}  // namespace vanzet::dialog
