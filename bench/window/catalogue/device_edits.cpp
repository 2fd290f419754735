#include "window/catalogue/device_edits.h"

#include <algorithm>
#include <utility>

#include "base/numbers.h"
#include "base/quote.h"
#include "catalogue/kinds.h"
#include "catalogue/rules.h"
#include "devices/kinds.h"

namespace vanzet::window {

using catalogue::MakerJson;
using catalogue::Shop;

namespace {

/// The word for the history.
constexpr const char* kOccasion = "catalogue";

/// A name that no device has: "Chuck", "Chuck 2", "Chuck 3".
std::string FreeName(const Shop& shop, const std::string& name) {
  for (int number = 2;; ++number) {
    std::string free = number == 2 ? name : name + ' ' + std::to_string(number - 1);
    if (shop.catalogue.Find(free) == nullptr) return free;
  }
}

Result<void> CheckName(const Shop& shop, const std::string& name) {
  if (std::string refusal = catalogue::NameRefusal(name); !refusal.empty()) return Fault{std::move(refusal)};
  if (shop.catalogue.Find(name) == nullptr) return {};
  return Fault{"the catalogue already has the device " + Quoted(name)};
}

}  // namespace

bool DeviceEdits::State::HasValuesOf(const State& other) const {
  return entry.params == other.entry.params && figures == other.figures;
}

std::optional<DeviceEdits::State> DeviceEdits::Find(const Shop& shop, const std::string& device) {
  const catalogue::Entry* const entry = shop.catalogue.Find(device);
  if (entry == nullptr) return {};
  const MakerJson* const figures = shop.maker.Find(device);
  return State{static_cast<std::size_t>(entry - shop.catalogue.entries().data()), *entry,
               std::string(entry->bytes), figures == nullptr ? std::nullopt : std::optional(*figures)};
}

Result<DeviceEdits::State> DeviceEdits::StateOf(const Shop& shop, const std::string& device) {
  auto state = Find(shop, device);
  if (state) return *std::move(state);
  return Fault{.text = "the catalogue does not have the device " + Quoted(device) + " any more",
               .file = shop.file.string(),
               .kind = FaultKind::kMissing};
}

Result<Shop> DeviceEdits::Change(const Work& work) {
  Shop changed;
  Edits edits;
  VANZET_DO(catalogue::ChangeShop(place_, kOccasion, [&](Shop& shop) -> Result<bool> {
    VANZET_TRY(edits, work(shop));
    changed = shop;
    return true;
  }));
  std::erase_if(edits, [](const Edit& edit) {
    return edit.before && edit.after && edit.before->entry.name == edit.after->entry.name &&
           edit.before->HasValuesOf(*edit.after);
  });
  if (!edits.empty()) undo_.push_back(std::move(edits));
  return changed;
}

Result<Shop> DeviceEdits::ChangeDevice(const std::string& device,
                                       const std::function<Result<void>(Shop&)>& work) {
  return Change([&](Shop& shop) -> Result<Edits> {
    VANZET_TRY(auto before, StateOf(shop, device));
    VANZET_DO(work(shop));
    return Edits{{std::move(before), Find(shop, device)}};
  });
}

Result<Shop> DeviceEdits::SetLetter(const std::string& device, char letter, const std::string& text) {
  std::string typed = text;
  std::ranges::replace(typed, ',', '.');
  const auto value = WholeReal(typed);
  if (!value) return Fault{std::string(1, letter) + ": expected a number, found " + Quoted(text)};
  return ChangeDevice(device, [&](Shop& shop) -> Result<void> {
    DeviceParams params = shop.catalogue.Find(device)->params;
    const devices::Letter* const row = devices::FindLetter(params.type, letter);
    const bool isLength = row != nullptr && row->unit == devices::Unit::kMillimetre;
    catalogue::LetterOf(params, letter) = isLength ? InMillimetres(*value, unit_) : *value;
    params = catalogue::Rounded(params);
    if (std::string refusal = catalogue::ValuesRefusal(params, unit_); !refusal.empty())
      return Fault{std::move(refusal)};
    return shop.catalogue.Put(device, params);
  });
}

Result<Shop> DeviceEdits::SetFigure(const std::string& device, const std::string& key,
                                    const std::string& text) {
  return ChangeDevice(device, [&](Shop& shop) { return shop.maker.Set(device, key, text, unit_); });
}

Result<Shop> DeviceEdits::Rename(const std::string& device, const std::string& name) {
  return Change([&](Shop& shop) -> Result<Edits> {
    VANZET_TRY(auto before, StateOf(shop, device));
    VANZET_DO(CheckName(shop, name));
    shop.catalogue.Rename(device, name);
    shop.maker.Put(name, before.figures ? &*before.figures : nullptr);
    shop.maker.Put(device, nullptr);
    return Edits{{std::move(before), Find(shop, name)}};
  });
}

Result<Shop> DeviceEdits::Remove(const std::vector<std::string>& devices) {
  return Change([&](Shop& shop) -> Result<Edits> {
    Edits edits;
    for (const std::string& device : devices) {
      VANZET_TRY(auto before, StateOf(shop, device));
      shop.catalogue.Remove(device);
      const bool hasAnother = shop.catalogue.Find(device) != nullptr;
      if (!hasAnother) shop.maker.Put(device, nullptr);
      edits.push_back({std::move(before), Find(shop, device), true});
    }
    return edits;
  });
}

Result<DeviceEdits::Added> DeviceEdits::AddNamed(
    const std::string& name, const std::function<Result<void>(Shop&, const std::string&)>& work) {
  std::string free;
  VANZET_TRY(Shop changed, Change([&](Shop& shop) -> Result<Edits> {
               free = FreeName(shop, name);
               VANZET_DO(CheckName(shop, free));
               VANZET_DO(work(shop, free));
               return Edits{{std::nullopt, Find(shop, free)}};
             }));
  return Added{std::move(free), std::move(changed)};
}

Result<DeviceEdits::Added> DeviceEdits::Add(std::int32_t type, const std::string& name) {
  return AddNamed(name, [&](Shop& shop, const std::string& free) {
    return shop.catalogue.Put(free, catalogue::Rounded(devices::Find(type)->example));
  });
}

Result<DeviceEdits::Added> DeviceEdits::AddCopy(const std::string& device) {
  return AddNamed(device, [&](Shop& shop, const std::string& free) -> Result<void> {
    VANZET_TRY(const auto model, StateOf(shop, device));
    if (devices::IsOwn(model.entry.params.type)) {
      return Fault{Quoted(device) + " has a solid of its own; the dialog adds such devices"};
    }
    VANZET_DO(shop.catalogue.Put(free, model.entry.params));
    shop.maker.Put(free, model.figures ? &*model.figures : nullptr);
    return {};
  });
}

Result<void> DeviceEdits::TakeBack(Shop& shop, const Edit& edit) {
  const std::string& name = (edit.after ? edit.after : edit.before)->entry.name;
  const auto now = Find(shop, name);
  const bool isAsLeft = now.has_value() == edit.after.has_value() && (!now || now->HasValuesOf(*edit.after));
  if (!isAsLeft) return Fault{Quoted(name) + " was changed by others since"};
  if (!edit.before) {
    shop.catalogue.Remove(name);
    shop.maker.Put(name, nullptr);
    return {};
  }
  return PutBack(shop, name, edit);
}

/// `name` is the one that the device has now, or had.
Result<void> DeviceEdits::PutBack(Shop& shop, const std::string& name, const Edit& edit) {
  const State& before = *edit.before;
  const std::string& former = before.entry.name;
  if (former != name) {
    VANZET_DO(CheckName(shop, former));
    shop.catalogue.Rename(name, former);
    shop.maker.Put(name, nullptr);
  }
  shop.maker.Put(former, before.figures ? &*before.figures : nullptr);
  if (edit.isRemoval) {
    catalogue::Entry entry = before.entry;
    entry.bytes = before.bytes;
    return shop.catalogue.Insert(before.position, std::move(entry));
  }
  const bool hasValues = shop.catalogue.Find(former)->params == before.entry.params;
  return hasValues ? Result<void>() : shop.catalogue.Put(former, before.entry.params);
}

Result<Shop> DeviceEdits::Undo() {
  const Edits last = std::move(undo_.back());
  undo_.pop_back();
  auto changed = Change([&](Shop& shop) -> Result<Edits> {
    for (std::size_t i = last.size(); i-- > 0;) VANZET_DO(TakeBack(shop, last[i]));
    return Edits();
  });
  if (!changed) undo_.push_back(last);
  return changed;
}

}  // namespace vanzet::window
