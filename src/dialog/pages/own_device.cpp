#include "dialog/pages/own_device.h"

#include "host/fields.h"
#include "store/mill_turn_vdm.h"

namespace vanzet::dialog {
namespace {

/// Where a device's file keeps its facts.
constexpr std::int32_t kOperation = 1;
constexpr std::int32_t kSection = 2;

OwnDeviceFacts FactsFrom(const std::string& item) {
  OwnDeviceFacts facts;
  std::size_t position = 0;
  host::ReadIntField(item, position, facts.groupCode, 0);
  host::ReadIntField(item, position, facts.deviceClass, 0);
  host::ReadRealField(item, position, facts.firstValue, 0);
  host::ReadRealField(item, position, facts.secondValue, 0);
  return facts;
}

}  // namespace

std::optional<OwnDeviceFacts> LoadOwnDevice(std::uint32_t collector, const std::string& path) {
  OrvoApi::MillTurnVdm device(collector);
  if (!device.LoadFromFile(path) || !device.Open()) return std::nullopt;
  device.OperationSelect(kOperation);
  device.ItemSeek(kSection, 0);
  std::string item;
  device.SingleGet(item);
  device.Close();
  return FactsFrom(item);
}

}  // namespace vanzet::dialog
