#include "dialog/pages/clamp_elem_new.h"

#include "catalogue/catalogue_work.h"
#include "devices/kinds.h"
#include "devices/page_rules.h"
#include "dialog/catalogue_names.h"
#include "dialog/device_letters.h"
#include "dialog/texts.h"
#include "host/message_ids.h"
#include "macro/device_record.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = control::kNewPicture,   .kind = ControlKind::kPicture},
    {.id = control::kNameList,     .kind = ControlKind::kCombo},
    {.id = control::kNewLabelA,    .kind = ControlKind::kLabel, .text = "A"},
    {.id = control::kEditA,        .kind = ControlKind::kEdit},
    {.id = control::kNewLabelB,    .kind = ControlKind::kLabel, .text = "B"},
    {.id = control::kEditB,        .kind = ControlKind::kEdit},
    {.id = control::kNewLabelC,    .kind = ControlKind::kLabel, .text = "C"},
    {.id = control::kEditC,        .kind = ControlKind::kEdit},
    {.id = control::kNewLabelD,    .kind = ControlKind::kLabel, .text = "D"},
    {.id = control::kEditD,        .kind = ControlKind::kEdit},
    {.id = control::kNewLabelE,    .kind = ControlKind::kLabel, .text = "E"},
    {.id = control::kEditE,        .kind = ControlKind::kEdit},
    {.id = control::kNewLabelF,    .kind = ControlKind::kLabel, .text = "F"},
    {.id = control::kEditF,        .kind = ControlKind::kEdit},
    {.id = control::kNewLabelG,    .kind = ControlKind::kLabel, .text = "G"},
    {.id = control::kEditG,        .kind = ControlKind::kEdit},
    {.id = control::kNewLabelH,    .kind = ControlKind::kLabel, .text = "H"},
    {.id = control::kEditH,        .kind = ControlKind::kEdit},
    {.id = control::kNewLabelI,    .kind = ControlKind::kLabel, .text = "I"},
    {.id = control::kEditI,        .kind = ControlKind::kEdit},
    {.id = control::kNewLabelJ,    .kind = ControlKind::kLabel, .text = "J"},
    {.id = control::kEditJ,        .kind = ControlKind::kEdit},
    {.id = control::kSaveDevice,   .kind = ControlKind::kButton},
    {.id = control::kDeleteDevice, .kind = ControlKind::kButton},
};

constexpr StartText kTexts[] = {
    {control::kSaveDevice,   message::kSave},
    {control::kDeleteDevice, message::kDelete},
};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageClampElemNew", page_template::kClampElemNew, kControls, kTexts};

}  // namespace

const Handler<CPageClampElemNew> CPageClampElemNew::kButtons[] = {
    {control::kSaveDevice, &CPageClampElemNew::OnSave},
    {control::kDeleteDevice, &CPageClampElemNew::OnDelete},
};

CPageClampElemNew::CPageClampElemNew(PageOwner& owner) : Page(owner, kTemplate) {}

void CPageClampElemNew::OnPress(std::int32_t button) {
  RunHandler<CPageClampElemNew>(*this, kButtons, button);
}

void CPageClampElemNew::OnChoose(std::int32_t combo) {
  if (combo == control::kNameList) OnNameChange();
}

std::optional<std::int32_t> CPageClampElemNew::ReadControls() {
  const auto refused = ReadRecord(controls_, DeviceFields(), params_);
  if (!refused) deviceName_ = controls_.Of(control::kNameList).text;
  return refused;
}

void CPageClampElemNew::FillControls() {
  ShowRecord(controls_, DeviceFields(), params_);
  controls_.SetText(control::kNameList, deviceName_);
}

void CPageClampElemNew::OnSetActive() {
  params_ = {};
  params_.type = owner_.CurrentDeviceType();
  // Devices from a VDM are not made on this page.
  controls_.SetPicture(control::kNewPicture,
                       devices::IsOwn(params_.type) ? picture::kNone : devices::PictureOf(params_.type));
  Refill();
  EnableLetters(controls_, &LetterControls::labelOnNew, params_.type);
}

void CPageClampElemNew::Refill() {
  controls_.Empty(control::kNameList);
  deviceName_.clear();
  FillControls();
  AddNamesOfType(owner_.Catalogue(), params_.type, controls_, control::kNameList);
  controls_.Keep();
}

void CPageClampElemNew::OnNameChange() {
  ReadCatalogueDevice(owner_.Catalogue(), controls_.Of(control::kNameList), params_);
  deviceName_ = controls_.Of(control::kNameList).text;
  FillControls();
  controls_.Keep();
}

void CPageClampElemNew::OnSave() {
  if (!UpdateData() || params_.type == 0 || IsIncomplete()) return;
  std::string values;
  PackDeviceParams(params_, values);
  SaveDeviceToCatalogue(owner_.Catalogue(), deviceName_, values, owner_.Window(), [this] { Refill(); });
}

bool CPageClampElemNew::IsIncomplete() {
  if (deviceName_.empty()) {
    Refuse(Text(message::kNoDeviceName), control::kNameList);
    return true;
  }
  const std::string missing = devices::MissingLetters(params_);
  if (missing.empty()) return false;
  Refuse(ReplaceAll(Text(message::kNoDeviceValue), "#", missing.substr(0, 1)),
         control::EditOfLetter(missing.front()));
  return true;
}

void CPageClampElemNew::OnDelete() {
  if (!UpdateData() || deviceName_.empty()) return;
  DeleteDeviceFromCatalogue(owner_.Catalogue(), deviceName_, [this] { Refill(); });
}

}  // namespace vanzet::dialog
