#include "dialog/page_clamp_elem_new.h"

#include <algorithm>

#include "catalogue/catalogue_work.h"
#include "dialog/catalogue_names.h"
#include "dialog/device_letters.h"
#include "dialog/dlg_main.h"
#include "dialog/texts.h"
#include "macro/device_record.h"

namespace vanzet::dialog {
namespace {

constexpr std::int32_t kPicture = 2150;
constexpr std::int32_t kNameList = 2123;
constexpr std::int32_t kSave = 2152;
constexpr std::int32_t kDelete = 2127;

/// The last type that has a picture here: devices from a VDM are not made on this page.
constexpr std::int32_t kLastParametricType = 14;

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = kPicture,  .kind = ControlKind::kPicture},
    {.id = kNameList, .kind = ControlKind::kCombo},
    {.id = 2115,      .kind = ControlKind::kLabel, .text = "A"},
    {.id = 2031,      .kind = ControlKind::kEdit},
    {.id = 2118,      .kind = ControlKind::kLabel, .text = "B"},
    {.id = 2033,      .kind = ControlKind::kEdit},
    {.id = 2120,      .kind = ControlKind::kLabel, .text = "C"},
    {.id = 2034,      .kind = ControlKind::kEdit},
    {.id = 2125,      .kind = ControlKind::kLabel, .text = "D"},
    {.id = 2036,      .kind = ControlKind::kEdit},
    {.id = 2128,      .kind = ControlKind::kLabel, .text = "E"},
    {.id = 2037,      .kind = ControlKind::kEdit},
    {.id = 2130,      .kind = ControlKind::kLabel, .text = "F"},
    {.id = 2038,      .kind = ControlKind::kEdit},
    {.id = 2134,      .kind = ControlKind::kLabel, .text = "G"},
    {.id = 2041,      .kind = ControlKind::kEdit},
    {.id = 2136,      .kind = ControlKind::kLabel, .text = "H"},
    {.id = 2042,      .kind = ControlKind::kEdit},
    {.id = 2139,      .kind = ControlKind::kLabel, .text = "I"},
    {.id = 2043,      .kind = ControlKind::kEdit},
    {.id = 2142,      .kind = ControlKind::kLabel, .text = "J"},
    {.id = 2044,      .kind = ControlKind::kEdit},
    {.id = kSave,     .kind = ControlKind::kButton, .text = "*Save"},
    {.id = kDelete,   .kind = ControlKind::kButton, .text = "*Delete"},
};

constexpr StartText kTexts[] = {
    {kSave,   734, "Save"},
    {kDelete, 735, "Delete"},
};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageClampElemNew", 2166, kControls, kTexts};

}  // namespace

const Handler<CPageClampElemNew> CPageClampElemNew::kButtons[] = {
    {kSave, &CPageClampElemNew::OnSave},
    {kDelete, &CPageClampElemNew::OnDelete},
};

CPageClampElemNew::CPageClampElemNew(CDlgMain& dialog) : Page(dialog, kTemplate) {}

void CPageClampElemNew::OnPress(std::int32_t button) {
  RunHandler<CPageClampElemNew>(*this, kButtons, button);
}

void CPageClampElemNew::OnChoose(std::int32_t combo) {
  if (combo == kNameList) OnNameChange();
}

std::optional<std::int32_t> CPageClampElemNew::TakeControls() {
  const auto refused = ReadRecord(controls_, DeviceFields(), params_);
  if (!refused) deviceName_ = controls_.Of(kNameList).text;
  return refused;
}

void CPageClampElemNew::FillControls() {
  ShowRecord(controls_, DeviceFields(), params_);
  controls_.SetText(kNameList, deviceName_);
}

void CPageClampElemNew::OnSetActive() {
  params_ = {};
  params_.type = dialog_.CurrentDeviceType();
  controls_.SetPicture(kPicture, params_.type <= kLastParametricType ? DevicePicture(params_.type) : 0);
  Refill();
  EnableLetters(controls_, &DeviceLetter::labelOnNew, params_.type);
}

void CPageClampElemNew::Refill() {
  controls_.Empty(kNameList);
  deviceName_.clear();
  FillControls();
  AddNamesOfType(dialog_.Catalogue(), params_.type, controls_, kNameList);
}

void CPageClampElemNew::OnNameChange() {
  TakeCatalogueDevice(dialog_.Catalogue(), controls_.Of(kNameList), params_);
  deviceName_ = controls_.Of(kNameList).text;
  FillControls();
}

void CPageClampElemNew::OnSave() {
  if (!UpdateData() || params_.type == 0 || IsIncomplete()) return;
  std::string values;
  PackDeviceParams(params_, values);
  SaveDeviceToCatalogue(dialog_.Catalogue(), deviceName_, values, dialog_.Window(), [this] { Refill(); });
}

bool CPageClampElemNew::IsIncomplete() {
  if (deviceName_.empty()) {
    Refuse(Text(721), kNameList);
    return true;
  }
  const auto letters = DeviceLetters();
  const auto missing = std::ranges::find_if(letters, [&](const DeviceLetter& letter) {
    return HasType(letter.needed, params_.type) && ValueOf(params_, letter.letter) == 0;
  });
  if (missing == letters.end()) return false;
  Refuse(Replaced(Text(722), "#", std::string(1, missing->letter)), missing->edit);
  return true;
}

void CPageClampElemNew::OnDelete() {
  if (!UpdateData() || deviceName_.empty()) return;
  DeleteDeviceFromCatalogue(dialog_.Catalogue(), deviceName_, [this] { Refill(); });
}

}  // namespace vanzet::dialog
