#include "window/catalogue/device_edits.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/quote.h"
#include "catalogue/kinds.h"
#include "catalogue/rules.h"

namespace vanzet::window {

using catalogue::MakerJson;
using catalogue::Shop;

namespace {

/// The word for the history.
constexpr const char* kOccasion = "catalogue";

}  // namespace

Result<DeviceEdits::State> DeviceEdits::StateOf(const Shop& shop, const std::string& device) {
  const catalogue::Entry* const entry = shop.catalogue.Find(device);
  if (entry == nullptr) {
    return Fault{.text = "the catalogue does not have the device " + Quoted(device) + " any more",
                 .file = shop.file.string(),
                 .kind = FaultKind::kMissing};
  }
  const MakerJson* const figures = shop.maker.Find(device);
  return State{entry->params, figures == nullptr ? std::nullopt : std::optional(*figures)};
}

Result<Shop> DeviceEdits::Change(const std::string& device, const Work& work, Edit& edit) const {
  Shop changed;
  const auto change = [&](Shop& shop) -> Result<bool> {
    VANZET_TRY(const State before, StateOf(shop, device));
    VANZET_DO(work(shop, before));
    VANZET_TRY(const State after, StateOf(shop, device));
    edit = {device, before, after};
    changed = shop;
    return true;
  };
  VANZET_DO(catalogue::ChangeShop(place_, kOccasion, change));
  return changed;
}

Result<Shop> DeviceEdits::ChangeAndNote(const std::string& device, const Work& work) {
  Edit edit;
  VANZET_TRY(Shop changed, Change(device, work, edit));
  if (!(edit.before == edit.after)) undo_.push_back(std::move(edit));
  return changed;
}

Result<Shop> DeviceEdits::SetLetter(const std::string& device, char letter, const std::string& text) {
  std::string typed = text;
  std::ranges::replace(typed, ',', '.');
  const auto value = WholeReal(typed);
  if (!value) return Fault{std::string(1, letter) + ": expected a number, found " + Quoted(text)};
  return ChangeAndNote(device, [&](Shop& shop, const State& before) -> Result<void> {
    DeviceParams params = before.params;
    catalogue::LetterOf(params, letter) = *value;
    params = catalogue::Rounded(params);
    if (std::string refusal = catalogue::ValuesRefusal(params); !refusal.empty())
      return Fault{std::move(refusal)};
    return shop.catalogue.Put(device, params);
  });
}

Result<Shop> DeviceEdits::SetFigure(const std::string& device, const std::string& key,
                                    const std::string& text) {
  return ChangeAndNote(device, [&](Shop& shop, const State&) { return shop.maker.Set(device, key, text); });
}

Result<Shop> DeviceEdits::Undo() {
  const Edit last = undo_.back();
  Edit back;
  VANZET_TRY(Shop changed, Change(
                               last.device,
                               [&](Shop& shop, const State& now) -> Result<void> {
                                 if (!(now == last.after))
                                   return Fault{Quoted(last.device) + " was changed by others since"};
                                 shop.maker.Put(last.device,
                                                last.before.figures ? &*last.before.figures : nullptr);
                                 return last.before.params == now.params
                                            ? Result<void>()
                                            : shop.catalogue.Put(last.device, last.before.params);
                               },
                               back));
  undo_.pop_back();
  return changed;
}

}  // namespace vanzet::window
