#include "check/project_check.h"

#include <algorithm>
#include <iterator>

#include "base/letter_case.h"
#include "base/quote.h"
#include "catalogue/shop_place.h"
#include "check/check.h"
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

/// A catalogue that does not exist has no devices, as in the dialog.
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

Result<std::vector<Finding>> CheckSpur(const SpurDefinition& spur, const Project& project,
                                       const catalogue::Shop& shop, const Severities& severities,
                                       const modeller::Exchange& exchange) {
  VANZET_TRY(const auto scene, results::SceneOf(project, spur.spur, exchange));
  const scene::Equipment equipment = scene::ReadEquipment(*spur.definition);
  const auto& [speed, force, density] = project.settings().job;
  return Check({.spur = spur.spur,
                .definition = *spur.definition,
                .equipment = equipment,
                .scene = scene,
                .shop = shop,
                .job = {speed, force, density},
                .severities = severities,
                .ownDevice = [&](const std::string& file) { return ReadOwnDevice(project, file); }});
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

Result<std::vector<Finding>> CheckProject(const Project& project, std::optional<std::int32_t> spur,
                                          const modeller::Exchange& exchange) {
  VANZET_TRY(const Severities severities, SeveritiesOf(project.settings()));
  VANZET_TRY(const auto shop, ShopOf(project));
  VANZET_TRY(const auto heads, results::ReadHeads(project, spur));
  std::vector<Finding> all;
  bool isDefined = false;
  for (const SpurDefinition& each : heads) {
    if (!each.definition) continue;
    isDefined = true;
    VANZET_TRY(auto found, CheckSpur(each, project, shop, severities, exchange));
    std::ranges::move(found, std::back_inserter(all));
  }
  if (isDefined) return all;
  return Fault{.text = "the project has no definition yet; 'vanzet upgrade' creates it",
               .kind = FaultKind::kMissing};
}

}  // namespace vanzet::check
