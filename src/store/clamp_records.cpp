#include "store/clamp_records.h"

#include "devices/kinds.h"
#include "host/fields.h"
#include "store/record_frame.h"

namespace vanzet {
namespace {

constexpr std::int32_t kOptionsItem = 2;
constexpr std::int32_t kUsualJaws = 3;

std::int32_t WriteDevice(std::int32_t spur, DevicePlace place, const std::string& name,
                         const DeviceParams& params) {
  return WriteRecord(spur, [&](BilletVdm& definition) { definition.WriteDeviceAt(place, name, params); });
}

std::int32_t ReadDevice(std::int32_t spur, DevicePlace place, std::string& name, DeviceParams& params) {
  const std::int32_t result =
      ReadRecord(spur, [&](BilletVdm& definition) { return definition.ReadDeviceAt(place, name, params); });
  if (result != kRecordDone) params = {};
  return result;
}

}  // namespace

std::int32_t WriteClampDevice(std::int32_t spur, std::int32_t spindle, const std::string& name,
                              const DeviceParams& params) {
  return WriteDevice(spur, ClampDevicePlace(spindle), name, params);
}

std::int32_t ReadClampDevice(std::int32_t spur, std::int32_t spindle, std::string& name,
                             DeviceParams& params) {
  return ReadDevice(spur, ClampDevicePlace(spindle), name, params);
}

std::int32_t WriteClampOptions(std::int32_t spur, std::int32_t spindle, bool innerChucking,
                               std::int32_t jaws) {
  return WriteRecord(spur, [&](BilletVdm& definition) {
    definition.OperationSelect(SpindleOperation(spindle));
    const std::string text = (innerChucking ? "1 " : "0 ") + std::to_string(jaws);
    definition.ItemPut(spindle_section::kClampDevice, kOptionsItem, text);
  });
}

std::int32_t ReadClampOptions(std::int32_t spur, std::int32_t spindle, bool& innerChucking,
                              std::int32_t& jaws) {
  innerChucking = false;
  jaws = kUsualJaws;
  return ReadRecord(spur, [&](BilletVdm& definition) {
    definition.OperationSelect(SpindleOperation(spindle));
    if (!definition.HasItems(spindle_section::kClampDevice, kOptionsItem + 1)) return true;
    definition.ItemSeek(spindle_section::kClampDevice, kOptionsItem);
    std::string text;
    definition.SingleGet(text);
    std::size_t position = 0;
    host::ReadBoolField(text, position, innerChucking, innerChucking);
    host::ReadIntField(text, position, jaws, jaws);
    return true;
  });
}

std::int32_t WriteJaw(std::int32_t spur, std::int32_t spindle, const std::string& name,
                      const DeviceParams& params) {
  return WriteDevice(spur, JawPlace(spindle), name, params);
}

std::int32_t ReadJaw(std::int32_t spur, std::int32_t spindle, std::string& name, DeviceParams& params) {
  return ReadDevice(spur, JawPlace(spindle), name, params);
}

std::int32_t ClearJaw(std::int32_t spur, std::int32_t spindle) {
  return WriteJaw(spur, spindle, "", {});
}

std::int32_t WriteCenter(std::int32_t spur, bool subSpindleAvailable, const std::string& name,
                         const DeviceParams& params) {
  return WriteDevice(spur, CenterPlace(subSpindleAvailable), name, params);
}

std::int32_t ReadCenter(std::int32_t spur, bool subSpindleAvailable, std::string& name,
                        DeviceParams& params) {
  params = {};
  return ReadRecord(spur, [&](BilletVdm& definition) {
    const DevicePlace place = CenterPlace(subSpindleAvailable);
    if (!definition.OperationExist(place.operation)) return false;
    return definition.ReadDeviceAt(place, name, params) && devices::IsCenter(params.type);
  });
}

}  // namespace vanzet
