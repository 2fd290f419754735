#include "check/project_check.h"

#include <algorithm>
#include <iterator>

#include "base/letter_case.h"
#include "base/quote.h"
#include "catalogue/shop_place.h"
#include "check/check.h"
#include "check/parallel.h"
#include "modeller/body_folder.h"
#include "project/catalogue.h"
#include "project/settings_file.h"
#include "results/definitions.h"
#include "results/equipment.h"
#include "scene/own_device.h"
#include "vdm/vdm_file.h"

namespace vanzet::check {
namespace {

using project::Project;
using results::SpurDefinition;

Result<catalogue::Shop> ShopOf(const Project& project) {
  VANZET_TRY(const auto setting, project::SettingsFile(project.folder()).Value(project::kCatalogueSetting));
  auto shop = catalogue::ReadShop(catalogue::PlaceOf(project, setting));
  if (!shop && shop.fault().kind == FaultKind::kMissing) return catalogue::Shop();
  return shop;
}

Result<void> ReadOwnDevice(const Project& project, const std::string& file) {
  VANZET_TRY(const auto content, vdm::ReadVdmFile(project.paths().Resolve(file)));
  VANZET_TRY(const auto definition, project::ReadDefinition(content));
  VANZET_DO(scene::ReadOwnDeviceValues(definition));
  return {};
}

/// Named solids, each of which is read once for all spurs.
class SolidsOnce {
 public:
  SolidsOnce(const Project& project, const modeller::Exchange& exchange)
      : folder_(project.folder() / "bodies"), exchange_(exchange) {}

  Result<modeller::Body> Find(const std::string& name) {
    if (!read_.contains(name))
      read_.merge(modeller::ImportNamedBodies({name}, folder_, exchange_, results::kForPictures));
    return read_.at(name);
  }

 private:
  std::filesystem::path folder_;
  const modeller::Exchange& exchange_;
  std::map<std::string, Result<modeller::Body>> read_;
};

/// A spur with all that its check needs.
struct ReadSpur {
  std::int32_t number;
  project::Definition definition;
  scene::Equipment equipment;
  scene::Scene scene;
};

/// The spurs that have a definition, made one after the other: contours and progress are of one thread.
Result<std::vector<ReadSpur>> ReadSpurs(const Project& project, std::optional<std::int32_t> spur,
                                        const modeller::Exchange& exchange) {
  VANZET_TRY(auto heads, results::ReadHeads(project, spur));
  SolidsOnce solids(project, exchange);
  std::vector<ReadSpur> spurs;
  for (SpurDefinition& each : heads) {
    if (!each.definition) continue;
    const auto find = [&](const std::string& name) { return solids.Find(name); };
    VANZET_TRY(auto scene, results::SceneOf(project, each.spur, exchange, find));
    auto equipment = scene::ReadEquipment(*each.definition);
    spurs.push_back({each.spur, *std::move(each.definition), std::move(equipment), std::move(scene)});
  }
  return spurs;
}

}  // namespace

Result<Severities> SeveritiesOf(const project::BenchIni& settings) {
  Severities severities;
  for (const auto& [id, setting] : settings.check) {
    const Rule* const rule = FindRule(id);
    if (rule == nullptr) return setting.At("the rule " + Quoted(id) + " does not exist");
    const auto severity = SeverityNamed(setting.value);
    if (!severity && !EqualWithoutCase(setting.value, "off"))
      return setting.At("a severity is 'off', 'note', 'warning' or 'error', not " + Quoted(setting.value));
    severities.emplace(rule->id, severity);
  }
  return severities;
}

Result<Terms> TermsOf(const Project& project) {
  VANZET_TRY(auto severities, SeveritiesOf(project.settings()));
  VANZET_TRY(auto shop, ShopOf(project));
  const auto& [speed, force, density] = project.settings().job;
  return Terms{std::move(shop), {speed, force, density}, std::move(severities)};
}

Result<std::vector<Finding>> CheckKnown(const KnownSetup& known, const Project& project, const Terms& terms) {
  return Check({.spur = known.spur,
                .definition = known.definition,
                .equipment = known.equipment,
                .scene = known.scene,
                .shop = terms.shop,
                .job = terms.job,
                .severities = terms.severities,
                .ownDevice = [&](const std::string& file) { return ReadOwnDevice(project, file); }});
}

Result<std::vector<Finding>> CheckProject(const Project& project, std::optional<std::int32_t> spur,
                                          const modeller::Exchange& exchange) {
  VANZET_TRY(const Terms terms, TermsOf(project));
  VANZET_TRY(const auto spurs, ReadSpurs(project, spur, exchange));
  if (spurs.empty()) {
    return Fault{.text = "the project has no definition yet; 'vanzet upgrade' creates it",
                 .kind = FaultKind::kMissing};
  }
  std::vector<Result<std::vector<Finding>>> found(spurs.size(), std::vector<Finding>());
  ForEachInParallel(spurs.size(), [&](std::size_t i) {
    const auto& [number, definition, equipment, scene] = spurs[i];
    found[i] = CheckKnown({number, definition, equipment, scene}, project, terms);
  });
  std::vector<Finding> all;
  for (auto& each : found) {
    if (!each) return each.fault();
    std::ranges::move(*each, std::back_inserter(all));
  }
  return all;
}

}  // namespace vanzet::check
