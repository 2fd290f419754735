#include "catalogue/maker_data.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "base/near_words.h"
#include "base/number_text.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "base/translations.h"
#include "define/json.h"

namespace vanzet::catalogue {
namespace {

constexpr int kVersion = 1;
constexpr const char* kDevices = "devices";

// clang-format off
constexpr MakerKey kKeys[] = {
    {"clamp_outside",  MakerValue::kRange,  "mm",    Translatable("Clamp diameter outside")},
    {"clamp_inside",   MakerValue::kRange,  "mm",    Translatable("Clamp diameter inside")},
    {"through_hole",   MakerValue::kNumber, "mm",    Translatable("Through hole")},
    {"stroke",         MakerValue::kNumber, "mm",    Translatable("Stroke of a jaw")},
    {"max_speed",      MakerValue::kNumber, "1/min", Translatable("Greatest speed")},
    {"max_force",      MakerValue::kNumber, "kN",    Translatable("Greatest clamping force")},
    {"max_pressure",   MakerValue::kNumber, "bar",   Translatable("Greatest pressure")},
    {"mass",           MakerValue::kNumber, "kg",    Translatable("Mass")},
    {"max_mass",       MakerValue::kNumber, "kg",    Translatable("Greatest mass of the work")},
    {"max_bar_length", MakerValue::kNumber, "mm",    Translatable("Greatest length of a bar")},
    {"order",          MakerValue::kText,   "",      Translatable("Order number")},
    {"link",           MakerValue::kText,   "",      Translatable("Link")},
    {"note",           MakerValue::kText,   "",      Translatable("Note")},
};
// clang-format on

bool IsFigure(const MakerJson& json) {
  return json.is_number() && std::isfinite(json.get<double>()) && json.get<double>() >= 0;
}

bool IsRange(const MakerJson& json) {
  return json.is_array() && json.size() == 2 && IsFigure(json[0]) && IsFigure(json[1]) &&
         json[0].get<double>() <= json[1].get<double>();
}

/// The reason for refusing a value of the key; empty: none.
std::string Refusal(const MakerKey& key, const MakerJson& value) {
  switch (key.value) {
    case MakerValue::kNumber: return IsFigure(value) ? "" : "expected a number that is not below 0";
    case MakerValue::kRange: return IsRange(value) ? "" : "expected two numbers, the smaller one first";
    case MakerValue::kText: return value.is_string() ? "" : "expected a text";
  }
  return "";
}

std::string UnknownKey(std::string_view key) {
  std::vector<std::string> known;
  for (const MakerKey& each : kKeys) known.emplace_back(each.key);
  return "the key " + Quoted(key) + " is not one of maker data" + DidYouMean(key, known);
}

Result<void> CheckFigures(const std::string& device, const MakerJson& figures, const std::string& file) {
  const auto refuse = [&](const std::string& reason) {
    return Fault{"devices: " + Quoted(device) + ": " + reason, file};
  };
  if (!figures.is_object()) return refuse("expected an object");
  for (const auto& [name, value] : figures.items()) {
    const MakerKey* const key = FindMakerKey(name);
    if (key == nullptr) return refuse(UnknownKey(name));
    const std::string refusal = Refusal(*key, value);
    if (!refusal.empty()) return refuse(name + ": " + refusal);
  }
  return {};
}

Result<void> CheckForm(const MakerJson& json, const std::string& file) {
  if (!json.is_object() || !json.contains(kDevices) || !json[kDevices].is_object())
    return Fault{"expected an object with the key \"devices\"", file};
  for (const auto& [name, value] : json.items()) {
    if (name == "$schema" || name == kDevices) continue;
    if (name != "version") return Fault{"the key " + Quoted(name) + " is unknown", file};
    if (value != kVersion) return Fault{"version: expected 1, found " + value.dump(), file};
  }
  for (const auto& [device, figures] : json[kDevices].items()) {
    VANZET_DO(CheckFigures(device, figures, file));
  }
  return {};
}

/// The lengths of a figure, changed one by one.
template <class Change>
MakerJson WithLengths(const MakerJson& value, const Change& change) {
  if (value.is_number()) return define::NumberJson(change(value.get<double>()));
  if (!value.is_array()) return value;
  MakerJson changed = MakerJson::array();
  for (const MakerJson& each : value) changed.push_back(WithLengths(each, change));
  return changed;
}

/// A value of the text; null where it is not one of the key.
MakerJson ValueOf(const MakerKey& key, const std::string& text) {
  if (key.value == MakerValue::kText) return text;
  if (key.value == MakerValue::kNumber) {
    const auto number = WholeReal(text);
    return number ? define::NumberJson(*number) : MakerJson();
  }
  const std::size_t dots = text.find("..");
  if (dots == std::string::npos) return {};
  const auto least = WholeReal(text.substr(0, dots)), most = WholeReal(text.substr(dots + 2));
  if (!least || !most) return {};
  return MakerJson::array({define::NumberJson(*least), define::NumberJson(*most)});
}

}  // namespace

std::span<const MakerKey> MakerKeys() {
  return kKeys;
}

const MakerKey* FindMakerKey(std::string_view key) {
  const auto* const found =
      std::ranges::find_if(kKeys, [&](const MakerKey& each) { return each.key == key; });
  return found == std::end(kKeys) ? nullptr : found;
}

std::string MakerText(const MakerJson& value) {
  constexpr int kDecimals = 8;
  if (value.is_string()) return value.get<std::string>();
  if (value.is_array()) return MakerText(value.at(0)) + ".." + MakerText(value.at(1));
  return ShortDecimalText(value.get<double>(), kDecimals);
}

MakerJson ShownIn(const MakerJson& figures, LengthUnit unit) {
  MakerJson shown = figures;
  for (const auto& [name, value] : shown.items()) {
    const MakerKey* const key = FindMakerKey(name);
    if (key == nullptr || !key->IsLength()) continue;
    value = WithLengths(value, [=](double length) { return RoundedInUnit(length, unit); });
  }
  return shown;
}

Result<MakerData> MakerData::Read(const std::string& text, const std::string& file) {
  MakerData data;
  VANZET_TRY(data.json_, define::ReadJson(text, file));
  VANZET_DO(CheckForm(data.json_, file));
  data.hasComments_ = !MakerJson::accept(text);
  data.Index();
  return data;
}

Result<MakerData> MakerData::OfFigures(const MakerFigures& all, const std::string& file) {
  MakerData data;
  if (all.empty()) return data;
  // Objects look for each key that is set by its name; what is added at the end costs nothing.
  MakerJson::object_t devices;
  for (const auto& [device, text] : all) {
    MakerJson figures = MakerJson::parse(text, nullptr, false);
    const auto checked = CheckFigures(device, figures, file);
    if (!checked) return Fault{.text = checked.fault().text, .file = file, .kind = FaultKind::kDamaged};
    devices.emplace_back(device, std::move(figures));
  }
  data.json_ = {{"version", kVersion}};
  data.json_[kDevices] = std::move(devices);
  data.Index();
  return data;
}

void MakerData::Index() {
  positions_.clear();
  for (const auto& [name, figures] : json_.at(kDevices).items()) positions_.emplace(name, positions_.size());
}

const MakerJson* MakerData::Find(std::string_view device) const {
  if (positions_.empty()) return nullptr;
  const auto found = positions_.find(std::string(device));
  if (found == positions_.end()) return nullptr;
  const auto& devices = json_.at(kDevices).get_ref<const MakerJson::object_t&>();
  return &std::next(devices.begin(), static_cast<std::ptrdiff_t>(found->second))->second;
}

std::vector<std::string> MakerData::Devices() const {
  std::vector<std::string> names;
  if (json_.is_null()) return names;
  for (const auto& [name, figures] : json_.at(kDevices).items()) names.push_back(name);
  return names;
}

Result<void> MakerData::Set(const std::string& device, std::string_view key, const std::string& text,
                            LengthUnit unit) {
  const MakerKey* const row = FindMakerKey(key);
  if (row == nullptr) return Fault{UnknownKey(key)};
  const MakerJson* const former = Find(device);
  MakerJson figures = former == nullptr ? MakerJson::object() : *former;
  if (text.empty()) {
    figures.erase(std::string(key));
  } else {
    const MakerJson value = ValueOf(*row, text);
    const std::string refusal = Refusal(*row, value);
    if (!refusal.empty()) return Fault{std::string(key) + ": " + refusal + ", found " + Quoted(text)};
    const auto stored = [=](double length) { return InMillimetres(length, unit); };
    figures[std::string(key)] = row->IsLength() ? WithLengths(value, stored) : value;
  }
  Put(device, figures.empty() ? nullptr : &figures);
  return {};
}

void MakerData::Put(const std::string& device, const MakerJson* figures) {
  if (figures == nullptr && Find(device) == nullptr) return;
  if (json_.is_null()) json_ = {{"version", kVersion}, {kDevices, MakerJson::object()}};
  if (figures == nullptr) {
    json_[kDevices].erase(device);
  } else {
    json_[kDevices][device] = MakerJson(*figures);
  }
  Index();
}

MakerData MakerData::ShownIn(LengthUnit unit) const {
  MakerData shown = *this;
  if (shown.json_.is_null()) return shown;
  for (const auto& [device, figures] : shown.json_.at(kDevices).items())
    figures = catalogue::ShownIn(figures, unit);
  return shown;
}

void MakerData::KeepFormOf(const MakerData& former) {
  if (former.json_.is_null()) return;
  MakerData kept = former;
  for (const std::string& device : former.Devices()) {
    if (Find(device) == nullptr) kept.Put(device, nullptr);
  }
  for (const std::string& device : Devices()) {
    const MakerJson* const old = former.Find(device);
    if (old == nullptr || *old != *Find(device)) kept.Put(device, Find(device));
  }
  *this = std::move(kept);
}

std::string MakerData::Text() const {
  return json_.is_null() ? "" : json_.dump(2, ' ', false, MakerJson::error_handler_t::replace) + "\n";
}

Result<void> MakerData::CheckChangeable(const std::string& file) const {
  if (!hasComments_) return {};
  return Fault{"has comments, which would be lost; remove them, or change the file in an editor", file};
}

}  // namespace vanzet::catalogue
