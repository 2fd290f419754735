#include "dialog/pages/clamp_elem.h"

#include <algorithm>

#include "base/letter_case.h"
#include "devices/kinds.h"
#include "dialog/catalogue_names.h"
#include "dialog/device_letters.h"
#include "dialog/texts.h"
#include "host/message_ids.h"
#include "macro/device_record.h"
#include "store/clamp_records.h"
#include "view/ids.h"

// The page's start, its list and its state. Its buttons: clamp_elem_store.cpp.

namespace vanzet::dialog {
namespace {

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = control::kDevicePicture,            .kind = ControlKind::kPicture},
    {.id = control::kDeviceList,         .kind = ControlKind::kCombo,  .isList = true},
    {.id = control::kLabelA,    .kind = ControlKind::kLabel,  .text = "A"},
    {.id = control::kEditA,     .kind = ControlKind::kEdit},
    {.id = control::kLabelB,    .kind = ControlKind::kLabel,  .text = "B"},
    {.id = control::kEditB,     .kind = ControlKind::kEdit},
    {.id = control::kLabelC,    .kind = ControlKind::kLabel,  .text = "C"},
    {.id = control::kEditC,     .kind = ControlKind::kEdit},
    {.id = control::kLabelD,    .kind = ControlKind::kLabel,  .text = "D"},
    {.id = control::kEditD,     .kind = ControlKind::kEdit},
    {.id = control::kLabelE,    .kind = ControlKind::kLabel,  .text = "E"},
    {.id = control::kEditE,     .kind = ControlKind::kEdit},
    {.id = control::kLabelF,    .kind = ControlKind::kLabel,  .text = "F"},
    {.id = control::kEditF,     .kind = ControlKind::kEdit},
    {.id = control::kLabelG,    .kind = ControlKind::kLabel,  .text = "G"},
    {.id = control::kEditG,     .kind = ControlKind::kEdit},
    {.id = control::kLabelH,    .kind = ControlKind::kLabel,  .text = "H"},
    {.id = control::kEditH,     .kind = ControlKind::kEdit},
    {.id = control::kLabelI,    .kind = ControlKind::kLabel,  .text = "I"},
    {.id = control::kEditI,     .kind = ControlKind::kEdit},
    {.id = control::kLabelJ,    .kind = ControlKind::kLabel,  .text = "J"},
    {.id = control::kEditJ,     .kind = ControlKind::kEdit},
    {.id = control::kJawsLabel,          .kind = ControlKind::kLabel},
    {.id = control::kJawsEdit,           .kind = ControlKind::kEdit,   .text = "3"},
    {.id = control::kJawSpin,            .kind = ControlKind::kSpin,   .least = 3, .most = 16, .buddy = control::kJawsEdit},
    {.id = control::kInnerChucking,      .kind = ControlKind::kCheck},
    {.id = control::kSelectParametric,   .kind = ControlKind::kButton},
    {.id = control::kPathLabel, .kind = ControlKind::kLabel},
    {.id = control::kPath,               .kind = ControlKind::kEdit},
    {.id = control::kBrowse,             .kind = ControlKind::kButton, .text = "..."},
    {.id = control::kSelectOwn,          .kind = ControlKind::kButton},
};

constexpr StartText kTexts[] = {
    {control::kJawsLabel,          message::kJawCount},
    {control::kInnerChucking,      message::kInnerChucking},
    {control::kSelectParametric,   message::kSelectParametric},
    {control::kPathLabel, message::kOwnPath},
    {control::kSelectOwn,          message::kSelectOwn},
};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageClampElem", page_template::kClampElem, kControls, kTexts};

}  // namespace

const Handler<CPageClampElem> CPageClampElem::kButtons[] = {
    {control::kSelectParametric, &CPageClampElem::OnSelectParametric},
    {control::kBrowse, &CPageClampElem::OnBrowse},
    {control::kSelectOwn, &CPageClampElem::OnSelectOwn},
};

CPageClampElem::CPageClampElem(PageOwner& owner) : Page(owner, kTemplate) {}

void CPageClampElem::OnPress(std::int32_t button) {
  RunHandler<CPageClampElem>(*this, kButtons, button);
}

void CPageClampElem::OnChoose(std::int32_t combo) {
  if (combo == control::kDeviceList) OnDeviceChange();
}

std::optional<std::int32_t> CPageClampElem::ReadControls() {
  const auto refused = ReadRecord(controls_, DeviceFields(), params_);
  if (!refused) pathText_ = controls_.Of(control::kPath).text;
  return refused;
}

void CPageClampElem::FillControls() {
  ShowRecord(controls_, DeviceFields(), params_);
  controls_.SetText(control::kPath, pathText_);
}

void CPageClampElem::OnSetActive() {
  deviceKind_ = owner_.CurrentDeviceType();
  const std::string name = ReadDevice();
  EnterInCatalogue(name);
  FillList();
  ShowJawControls();
  ShowName(name);
  FillControls();
  ShowDeviceState();
}

std::string CPageClampElem::ReadDevice() {
  const std::int32_t spur = owner_.SelectedSpur();
  const std::int32_t spindle = owner_.CurrentSpindle();
  params_ = {};
  std::string name;
  const devices::Kind* const kind = devices::FindKind(deviceKind_);
  if (kind == &devices::kJaw) {
    ReadJaw(spur, spindle, name, params_);
  } else if (kind == &devices::kCenter) {
    ReadCenter(spur, owner_.Machine().IsSubSpindleAvailable(), name, params_);
  } else if (kind != nullptr) {
    ReadClampDevice(spur, spindle, name, params_);
  }
  // A spindle holds one device, but the tree offers four kinds.
  if (kind == nullptr || !kind->Has(params_.type)) params_ = {};
  return name;
}

void CPageClampElem::EnterInCatalogue(const std::string& name) {
  // In memory only: a device that came with a definition can be chosen also where the shop does not know it.
  if (params_.type == 0 || devices::IsOwn(params_.type)) return;
  std::string values;
  PackDeviceParams(params_, values);
  owner_.Catalogue().PutDevice(name, values);
}

void CPageClampElem::FillList() {
  controls_.Empty(control::kDeviceList);
  const devices::Kind* const kind = devices::FindKind(deviceKind_);
  if (kind == nullptr) return;
  for (const devices::Device& device : kind->devices) {
    AddNamesOfType(owner_.Catalogue(), device.code, controls_, control::kDeviceList);
  }
}

void CPageClampElem::ShowJawControls() {
  const bool isJaw = devices::FindKind(deviceKind_) == &devices::kJaw;
  if (isJaw) {
    bool isInner = false;
    std::int32_t jaws = 0;
    ReadClampOptions(owner_.SelectedSpur(), owner_.CurrentSpindle(), isInner, jaws);
    controls_.Check(control::kInnerChucking, isInner);
    controls_.SetSpin(control::kJawSpin, jaws);
  }
  for (const std::int32_t control :
       {control::kJawsLabel, control::kJawsEdit, control::kJawSpin, control::kInnerChucking}) {
    controls_.Show(control, isJaw);
  }
}

void CPageClampElem::ShowName(const std::string& name) {
  const bool isOwn = devices::IsOwn(params_.type);
  pathText_ = isOwn ? name : "";
  if (isOwn || params_.type == 0) return;
  // The first that begins with the name, as a list finds its entries.
  const auto& items = controls_.Of(control::kDeviceList).items;
  const auto item = std::ranges::find_if(items, [&](const std::string& entry) {
    return EqualWithoutCase(std::string_view(entry).substr(0, name.size()), name);
  });
  if (item != items.end())
    controls_.Select(control::kDeviceList, static_cast<std::int32_t>(item - items.begin()));
}

void CPageClampElem::OnDeviceChange() {
  ReadCatalogueDevice(owner_.Catalogue(), controls_.Of(control::kDeviceList), params_);
  FillControls();
  ShowDeviceState();
}

void CPageClampElem::ShowDeviceState() {
  EnableLetters(controls_, &LetterControls::labelOnClampElem, params_.type);
  controls_.SetPicture(control::kDevicePicture, devices::PictureOf(params_.type));
}

}  // namespace vanzet::dialog
