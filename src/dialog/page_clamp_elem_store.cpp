#include "devices/kinds.h"
#include "dialog/device_kinds.h"
#include "dialog/dlg_main.h"
#include "dialog/own_device.h"
#include "dialog/page_clamp_elem.h"
#include "dialog/page_clamp_elem_controls.h"
#include "dialog/picks.h"
#include "dialog/texts.h"
#include "host/macro_variables.h"
#include "host/message_ids.h"
#include "macro/device_record.h"
#include "platform/file_dialog.h"
#include "store/clamp_records.h"
#include "store/device_import.h"
#include "view/ids.h"

// What the page of what holds the work takes from a person and stores.

namespace vanzet::dialog {

namespace {

/// A center from a VDM: the one own type with a second value.
constexpr std::int32_t kOwnCenter = 115;

/// The message for a file of another class.
std::int32_t WrongClassMessage(std::int32_t deviceKind) {
  switch (deviceKind) {
    case device_kind::kJaw: return message::kWrongJaw;
    case device_kind::kCenter: return message::kWrongCenter;
    default: return message::kWrongChuck;
  }
}

/// Why a device's file cannot serve for the kind; nothing when it can.
std::optional<std::string> Objection(std::int32_t deviceKind, const OwnDeviceFacts& facts) {
  const DeviceKind* const kind = FindDeviceKind(deviceKind);
  if (kind == nullptr) return Text(message::kInvalidDevice);
  if (facts.groupCode == kClampDeviceGroup && facts.deviceClass == kind->deviceClass) return std::nullopt;
  return Text(WrongClassMessage(deviceKind));
}

}  // namespace

void CPageClampElem::OnSelectParametric() {
  if (!UpdateData()) return;
  const view::Control& list = controls_.Of(control::kDeviceList);
  if (list.selected >= 0) {
    NormaliseDeviceParams(params_);
    SaveDevice(list.text);
  } else if (params_.type == kOwnCenter) {
    SaveDevice(pathText_);
  } else {
    Notice(Text(message::kNoDeviceSelected));
  }
}

void CPageClampElem::OnBrowse() {
  platform::FileQuestion question;
  question.defaultExtension = "vdm";
  question.suggested = "*.vdm";
  question.owner = dialog_.Window();
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
  if (params_.type == kOwnCenter) params_.A = facts->secondValue;
  params_.B = WithoutSign(facts->firstValue);
  SaveDevice(pathText_);
  ImportDevice(dialog_.SelectedSpur(), dialog_.CurrentSpindle(), dialog_.Machine().IsSubSpindleAvailable(),
               collector);
  controls_.Select(control::kDeviceList, -1);
  FillControls();
  ShowDeviceState();
}

void CPageClampElem::SaveDevice(const std::string& name) {
  WriteByType(name);
  WriteOptions();
  dialog_.RefreshTreeMarks();
}

void CPageClampElem::WriteByType(const std::string& name) {
  const std::int32_t spur = dialog_.SelectedSpur();
  const std::int32_t spindle = dialog_.CurrentSpindle();
  PpDefIni& machine = dialog_.Machine();
  if (IsJawType(params_.type)) {
    WriteJaw(spur, spindle, name, params_);
  } else if (IsCenterType(params_.type)) {
    const bool isSubAvailable = machine.IsSubSpindleAvailable();
    WriteCenter(spur, isSubAvailable, name, params_);
    if (spindle == 1 && isSubAvailable && !machine.IsTailStockAvailable()) ClearJaw(spur, spindle);
  } else {
    WriteClampDevice(spur, spindle, name, params_);
    if (!devices::IsChuck(params_.type)) ClearJaw(spur, spindle);
  }
}

void CPageClampElem::WriteOptions() {
  const std::int32_t spur = dialog_.SelectedSpur();
  const std::int32_t spindle = dialog_.CurrentSpindle();
  if (IsJawType(params_.type)) {
    WriteClampOptions(spur, spindle, controls_.Of(control::kInnerChucking).isChecked,
                      controls_.Of(control::kJawSpin).value);
  } else if (const ClampOptions* const options = FixedClampOptions(params_.type)) {
    WriteClampOptions(spur, spindle, options->isInner, kFixedJaws);
  }
}

}  // namespace vanzet::dialog
