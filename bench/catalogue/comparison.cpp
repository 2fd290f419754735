#include "catalogue/comparison.h"

#include "catalogue/kinds.h"
#include "catalogue/rules.h"

namespace vanzet::catalogue {
namespace {

std::string KindOrNumber(const DeviceParams& params) {
  const std::string_view word = KindWord(params.type);
  return word.empty() ? std::to_string(params.type) : std::string(word);
}

std::string FigureText(const MakerJson* figures, const char* key) {
  return figures != nullptr && figures->contains(key) ? MakerText((*figures)[key]) : "";
}

}  // namespace

std::vector<std::string> ChangesOf(const DeviceParams& before, const DeviceParams& now) {
  std::vector<std::string> changes;
  if (before.type != now.type) changes.push_back("kind " + KindOrNumber(before) + " -> " + KindOrNumber(now));
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    if (ValueOf(before, letter) == ValueOf(now, letter)) continue;
    changes.push_back(LetterText(before, letter) + " -> " + LetterText(now, letter).substr(2));
  }
  return changes;
}

std::vector<std::string> FigureChangesOf(const MakerJson* before, const MakerJson* now) {
  std::vector<std::string> changes;
  for (const MakerKey& key : MakerKeys()) {
    const std::string former = FigureText(before, key.key), later = FigureText(now, key.key);
    if (former == later) continue;
    changes.push_back(std::string(key.key) + " " + (former.empty() ? "-" : former) + " -> " +
                      (later.empty() ? "-" : later));
  }
  return changes;
}

std::vector<std::string> DeviceChanges(const Shop& shop, const std::string& before, const Shop& other,
                                       const std::string& now) {
  const Entry* const former = shop.catalogue.Find(before);
  const Entry* const later = other.catalogue.Find(now);
  auto changes = ChangesOf(former->params, later->params);
  for (std::string& change : FigureChangesOf(shop.maker.Find(before), other.maker.Find(now))) {
    changes.push_back(std::move(change));
  }
  return changes;
}

std::vector<Difference> DifferencesOf(const Shop& before, const Shop& now) {
  std::vector<Difference> differences;
  for (const std::string& name : before.catalogue.Names()) {
    const Entry* const later = now.catalogue.Find(name);
    if (later == nullptr) {
      differences.push_back({name, before.catalogue.Find(name), nullptr, {}});
      continue;
    }
    auto changes = DeviceChanges(before, name, now, name);
    if (!changes.empty())
      differences.push_back({name, before.catalogue.Find(name), later, std::move(changes)});
  }
  for (const std::string& name : now.catalogue.Names()) {
    if (before.catalogue.Find(name) == nullptr)
      differences.push_back({name, nullptr, now.catalogue.Find(name), {}});
  }
  return differences;
}

}  // namespace vanzet::catalogue
