#include "store/billet_vdm.h"

#include <algorithm>

#include "host/bridge.h"
#include "host/fields.h"
#include "host/host_functions.h"
#include "host/macro_variables.h"
#include "macro/device_record.h"
#include "platform/message_box.h"
#include "store/clamp_schema.h"

namespace vanzet {
namespace {

using host::hostFunctions;

/// Name, values and options of a clamp device. The options came with version 100.
constexpr std::int32_t kClampDeviceItems = 3;

}  // namespace

std::uint32_t BilletVdm::VdmNumber(std::int32_t spur) {
  if (spur <= 0) return static_cast<std::uint32_t>(OrvoApi::GetGlobalIntVar("i_billet_vdm"));
  return static_cast<std::uint32_t>(OrvoApi::GetGlobalIntVar("i_billet_vdm_spispur")) +
         static_cast<std::uint32_t>(spur - 1);
}

std::int32_t BilletVdm::ReadVersion() {
  if (!OperationSelect(0)) return 0;
  if (!HasItems(0, 2) || !IsItemValid(0, 1)) return 0;
  SectionSeek(0);
  SingleSeek(1);
  std::string text;
  SingleGet(text);
  std::int32_t version = 0;
  std::size_t position = 0;
  host::ReadIntField(text, position, version, 0);
  return version;
}

bool BilletVdm::OperationInit(std::int32_t operation) {
  OperationDelete(operation);
  if (operation < 0 || operation >= kClampOperations) {
    host::HostMessageBox("Clamp VDM", "Wrong operation: " + std::to_string(operation), platform::box::kOk);
    return false;
  }
  const ClampOperation& schema = ClampOperations()[static_cast<std::size_t>(operation)];
  OperationCreate(operation, schema.kind);
  std::int32_t section = 0;
  const auto write = [&](SectionItems items) {
    SectionRewrite(section++);
    for (const std::string_view item : items) ItemAdd(std::string(item));
    SectionCommit();
  };
  write(schema.Head());
  for (const auto& items : schema.sections) {
    if (items) write(*items);
  }
  return true;
}

bool BilletVdm::ReOrg(const SimulationRebuild& rebuildSimulation) {
  const Found found = OpenOrCreate();
  for (std::int32_t operation = found.operations; operation < kClampOperations; ++operation) {
    OperationInit(operation);
  }
  if (found.version < kClampVersion) {
    PadClampDevice(clamp_operation::kMainSpindle);
    PadClampDevice(clamp_operation::kSubSpindle);
    rebuildSimulation(*this, false);
    rebuildSimulation(*this, true);
  }
  if (OperationSelect(0)) WriteVersion();
  Close();
  return true;
}

bool BilletVdm::ReadDeviceItems(std::int32_t spindle, std::string& name, DeviceParams& params) {
  return ReadDeviceAt(ClampDevicePlace(spindle), name, params);
}

bool BilletVdm::ReadJawItems(std::int32_t spindle, std::string& name, DeviceParams& params) {
  return ReadDeviceAt(JawPlace(spindle), name, params);
}

bool BilletVdm::ReadDeviceAt(DevicePlace place, std::string& name, DeviceParams& params) {
  if (!OperationSelect(place.operation) || !ItemSeek(place.section, 0)) return false;
  SingleGet(name);
  // The section is not checked: one without values gives the items after it.
  std::string text;
  SingleGet(text);
  UnpackDeviceParams(params, text);
  return true;
}

void BilletVdm::WriteDeviceAt(DevicePlace place, const std::string& name, const DeviceParams& params) {
  OperationSelect(place.operation);
  ItemPut(place.section, 0, name);
  std::string text;
  PackDeviceParams(params, text);
  ItemPut(place.section, 1, text);
}

BilletVdm::Found BilletVdm::OpenOrCreate() {
  if (IsOpen()) {
    ReportError("Create: class already open");
    Create();
    return {kClampVersion, 0};
  }
  if (hostFunctions.OrvoMacroVdmExists(vdmNumber) == 0 || !Open()) {
    Create();
    return {kClampVersion, 0};
  }
  // No store has fewer operations than none; each that is missing is made.
  const std::int32_t operations = std::max(0, Size());
  const std::int32_t version = ReadVersion();
  // The count of the old definition holds on, so that one of 18 operations or more leaves an empty VDM: a
  // definition too new for this program is given up, not made again.
  if (version > kClampVersion) GiveUpNewerVersion();
  return {version, operations};
}

void BilletVdm::GiveUpNewerVersion() {
  Close();
  host::HostMessageBox("Clamp definition", "Newer version can not read",
                       platform::box::kOk + platform::box::kExclamationIcon);
  hostFunctions.OrvoMacroVdmDelete(vdmNumber);
  Create();
}

void BilletVdm::PadClampDevice(std::int32_t operation) {
  OperationSelect(operation);
  if (SectionCount() < 2) SectionCreate(spindle_section::kClampDevice);
  if (HasItems(spindle_section::kClampDevice, kClampDeviceItems)) return;
  SectionAppend(spindle_section::kClampDevice);
  FillUpTo(kClampDeviceItems, "0");
  SectionCommit();
}

}  // namespace vanzet
