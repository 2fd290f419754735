#include "dialog/pages/clamp_elem.h"

#include <algorithm>

#include "base/letter_case.h"
#include "devices/kinds.h"
#include "dialog/catalogue_names.h"
#include "dialog/device_letters.h"
#include "dialog/pages/clamp_elem_controls.h"
#include "dialog/texts.h"
#include "macro/device_record.h"
#include "store/clamp_records.h"
#include "view/ids.h"

// The page's start, its list and what it shows. What it stores: clamp_elem_store.cpp.

namespace vanzet::dialog {

const Handler<CPageClampElem> CPageClampElem::kButtons[] = {
    {control::kSelectParametric, &CPageClampElem::OnSelectParametric},
    {control::kBrowse, &CPageClampElem::OnBrowse},
    {control::kSelectOwn, &CPageClampElem::OnSelectOwn},
};

CPageClampElem::CPageClampElem(PageOwner& owner) : Page(owner, kClampElemTemplate) {}

void CPageClampElem::OnPress(std::int32_t button) {
  RunHandler<CPageClampElem>(*this, kButtons, button);
}

void CPageClampElem::OnChoose(std::int32_t combo) {
  if (combo == control::kDeviceList) OnDeviceChange();
}

std::optional<std::int32_t> CPageClampElem::TakeControls() {
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
