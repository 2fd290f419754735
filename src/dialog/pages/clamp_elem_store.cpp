#include "devices/kinds.h"
#include "dialog/pages/clamp_elem.h"
#include "dialog/pages/picks.h"
#include "dialog/texts.h"
#include "host/fields.h"
#include "host/macro_variables.h"
#include "host/message_ids.h"
#include "macro/device_record.h"
#include "platform/file_dialog.h"
#include "store/clamp_records.h"
#include "store/device_import.h"
#include "store/mill_turn_vdm.h"
#include "view/ids.h"

// The handlers of the page's buttons, and the records that they write.

namespace vanzet::dialog {

namespace {

/// The facts that the file of a prepared device holds.
struct OwnDeviceFacts {
  std::int32_t groupCode = 0;
  std::int32_t deviceClass = 0;
  double firstValue = 0;
  double secondValue = 0;
};

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

/// Loads the file into the VDM of that number, the collector, and reads the facts. Empty when it is not a
/// device's file or the collector cannot be opened. The collector is closed afterwards, with the file in it.
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

/// The jaws that are stored with a device that fixes how the spindle clamps.
constexpr std::int32_t kFixedJaws = 3;

/// The message for a file of a class other than the expected one.
std::int32_t WrongClassMessage(devices::DeviceClass expected) {
  switch (expected) {
    case devices::DeviceClass::kJaw: return message::kWrongJaw;
    case devices::DeviceClass::kCenter: return message::kWrongCenter;
    default: return message::kWrongChuck;
  }
}

/// The reason why a device's file does not fit the kind; empty when it fits.
std::optional<std::string> Objection(std::int32_t deviceKind, const OwnDeviceFacts& facts) {
  const devices::Kind* const kind = devices::FindKind(deviceKind);
  if (kind == nullptr) return Text(message::kInvalidDevice);
  const bool isOfGroup = facts.groupCode == devices::kClampDeviceGroup;
  if (isOfGroup && facts.deviceClass == static_cast<std::int32_t>(kind->ownClass)) return std::nullopt;
  return Text(WrongClassMessage(kind->ownClass));
}

}  // namespace

void CPageClampElem::OnSelectParametric() {
  if (!UpdateData()) return;
  const view::Control& list = controls_.Of(control::kDeviceList);
  if (list.selected >= 0) {
    NormaliseDeviceParams(params_);
    SaveDevice(list.text);
  } else if (devices::kCenter.HasOwn(params_.type)) {
    SaveDevice(pathText_);
  } else {
    Notice(Text(message::kNoDeviceSelected));
  }
}

void CPageClampElem::OnBrowse() {
  platform::FileQuestion question;
  question.defaultExtension = "vdm";
  question.suggested = "*.vdm";
  question.owner = owner_.Window();
  const auto path = platform::AskForFile(question);
  if (!path) return;
  params_.type = deviceKind_;
  NormaliseDeviceType(params_);
  controls_.Select(control::kDeviceList, -1);
  pathText_ = *path;
  FillControls();
  ShowDeviceState();
}

void CPageClampElem::OnSelectOwn() {
  if (!UpdateData()) return;
  const auto collector = static_cast<std::uint32_t>(OrvoApi::GetGlobalIntVar("i_tool_collect_vdm"));
  const std::optional<OwnDeviceFacts> facts = LoadOwnDevice(collector, pathText_);
  const std::optional<std::string> objection =
      facts ? Objection(deviceKind_, *facts) : Text(message::kInvalidDevice);
  if (objection) return Notice(*objection);
  params_.type = deviceKind_;
  NormaliseDeviceType(params_);
  if (devices::kCenter.HasOwn(params_.type)) params_.A = facts->secondValue;
  params_.B = WithoutSign(facts->firstValue);
  SaveDevice(pathText_);
  const bool isStored = Unstored().empty();
  ImportDevice(owner_.SelectedSpur(), owner_.CurrentSpindle(), owner_.Machine().IsSubSpindleAvailable(),
               collector);
  controls_.Select(control::kDeviceList, -1);
  FillControls();
  ShowDeviceState();
  if (isStored) controls_.Keep();
}

void CPageClampElem::SaveDevice(const std::string& name) {
  KeepIf(WriteByType(name));
  WriteOptions();
  owner_.RefreshTreeMarks();
}

std::int32_t CPageClampElem::WriteByType(const std::string& name) {
  const std::int32_t spur = owner_.SelectedSpur();
  const std::int32_t spindle = owner_.CurrentSpindle();
  PpDefIni& machine = owner_.Machine();
  if (devices::IsJaw(params_.type)) {
    return WriteJaw(spur, spindle, name, params_);
  }
  if (devices::IsCenter(params_.type)) {
    const bool isSubAvailable = machine.IsSubSpindleAvailable();
    const std::int32_t written = WriteCenter(spur, isSubAvailable, name, params_);
    if (spindle == 1 && isSubAvailable && !machine.IsTailStockAvailable()) ClearJaw(spur, spindle);
    return written;
  }
  const std::int32_t written = WriteClampDevice(spur, spindle, name, params_);
  if (!devices::IsChuck(params_.type)) ClearJaw(spur, spindle);
  return written;
}

void CPageClampElem::WriteOptions() {
  const std::int32_t spur = owner_.SelectedSpur();
  const std::int32_t spindle = owner_.CurrentSpindle();
  if (devices::IsJaw(params_.type)) {
    WriteClampOptions(spur, spindle, controls_.Of(control::kInnerChucking).isChecked,
                      controls_.Of(control::kJawSpin).value);
    return;
  }
  const devices::Kind* const kind = devices::KindOf(params_.type);
  if (kind == nullptr || kind->clamping == devices::Clamping::kNotFixed) return;
  WriteClampOptions(spur, spindle, kind->clamping == devices::Clamping::kInside, kFixedJaws);
}

}  // namespace vanzet::dialog
