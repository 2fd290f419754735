#include "dialog/controls.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "base/number_text.h"
#include "base/numbers.h"

namespace vanzet::dialog {
namespace {

view::Control ControlFrom(const ControlTemplate& row) {
  view::Control control;
  control.id = row.id;
  control.kind = row.kind;
  control.text = row.text;
  control.caption = row.caption;
  control.isVisible = row.isVisible;
  control.isList = row.isList;
  control.bitmap = row.bitmap;
  control.value = control.least = row.least;
  control.most = row.most;
  return control;
}

/// True for controls in which a user would find the same. Labels, buttons and pictures hold nothing.
bool HaveSameContent(const view::Control& a, const view::Control& b) {
  switch (a.kind) {
    case ControlKind::kEdit: return a.isReal && a.number ? a.number == b.number : a.text == b.text;
    case ControlKind::kCombo: return a.text == b.text;
    case ControlKind::kCheck: return a.isChecked == b.isChecked;
    case ControlKind::kSpin: return a.value == b.value;
    default: return true;
  }
}

}  // namespace

std::string RealText(double value) {
  constexpr int kDigits = 15;
  return GeneralText(value, kDigits);
}

std::optional<double> RealOf(std::string_view text) {
  if (std::ranges::all_of(text, IsWhiteSpace)) return 0.0;
  std::string withPoint(text);
  std::ranges::replace(withPoint, ',', '.');
  return WholeReal(withPoint);
}

Controls::Controls(std::span<const ControlTemplate> rows) : rows_(rows) {
  for (const ControlTemplate& row : rows) controls_.push_back(ControlFrom(row));
}

bool Controls::Has(std::int32_t id) const {
  return std::ranges::find(controls_, id, &view::Control::id) != controls_.end();
}

const view::Control& Controls::Of(std::int32_t id) const {
  const auto control = std::ranges::find(controls_, id, &view::Control::id);
  assert(control != controls_.end() && "a handler knows the controls of its window");
  return *control;
}

view::Control& Controls::At(std::int32_t id) {
  return const_cast<view::Control&>(std::as_const(*this).Of(id));
}

void Controls::SetText(std::int32_t id, std::string text) {
  At(id).text = std::move(text);
}

void Controls::SetReal(std::int32_t edit, double value) {
  view::Control& control = At(edit);
  control.isReal = true;
  control.text = RealText(value);
  control.number = RealOf(control.text);
}

void Controls::Enable(std::int32_t id, bool isEnabled) {
  At(id).isEnabled = isEnabled;
}

void Controls::Show(std::int32_t id, bool isVisible) {
  At(id).isVisible = isVisible;
}

void Controls::Check(std::int32_t id, bool isChecked) {
  At(id).isChecked = isChecked;
}

void Controls::SetPicture(std::int32_t id, std::int32_t bitmap) {
  At(id).bitmap = bitmap;
}

void Controls::Type(std::int32_t id, const std::string& text) {
  view::Control& control = At(id);
  control.text = text;
  control.selected = -1;
  if (control.isReal) control.number = RealOf(text);
  const auto spin = std::ranges::find(rows_, id, &ControlTemplate::buddy);
  if (spin == rows_.end()) return;
  const std::optional<std::int32_t> value = WholeInteger(text);
  if (value && *value >= spin->least && *value <= spin->most) At(spin->id).value = *value;
}

void Controls::SetSpin(std::int32_t id, std::int32_t value) {
  view::Control& spin = At(id);
  spin.value = std::clamp(value, spin.least, spin.most);
  const auto row = std::ranges::find(rows_, id, &ControlTemplate::id);
  SetText(row->buddy, std::to_string(spin.value));
}

void Controls::SetDevices(std::int32_t combo, std::vector<view::ListedDevice> devices) {
  At(combo).devices = std::move(devices);
}

std::vector<std::int32_t> Controls::NotKept() const {
  std::vector<std::int32_t> changed;
  for (std::size_t i = 0; i < kept_.size(); ++i) {
    if (!HaveSameContent(controls_[i], kept_[i])) changed.push_back(controls_[i].id);
  }
  return changed;
}

void Controls::Empty(std::int32_t combo) {
  At(combo).items.clear();
  At(combo).devices.clear();
  Select(combo, -1);
}

void Controls::AddEntries(std::int32_t combo, const std::vector<std::string>& entries) {
  auto& items = At(combo).items;
  items.insert(items.end(), entries.begin(), entries.end());
}

void Controls::Select(std::int32_t combo, std::int32_t index) {
  view::Control& control = At(combo);
  const bool isThere = index >= 0 && index < static_cast<std::int32_t>(control.items.size());
  control.selected = isThere ? index : -1;
  control.text = isThere ? control.items[static_cast<std::size_t>(index)] : std::string();
}

}  // namespace vanzet::dialog
