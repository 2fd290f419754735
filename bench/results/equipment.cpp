#include "results/equipment.h"

#include "base/path_map.h"
#include "contour/library.h"
#include "drawing/board.h"
#include "drawing/figure_folder.h"
#include "modeller/body_folder.h"
#include "project/machine_ini.h"
#include "results/definitions.h"
#include "scene/equipment.h"

namespace vanzet::results {
namespace {

Result<project::Definition> DefinitionOf(const project::Project& project, std::int32_t spur) {
  VANZET_TRY(auto read, ReadDefinition(project, spur));
  const std::string of = "spur " + std::to_string(spur);
  if (!read.definition) {
    return Fault{.text = of + " has no definition yet; 'vanzet upgrade' creates it",
                 .kind = FaultKind::kMissing};
  }
  if (read.definition->IsDamaged()) {
    return Fault{.text = "the definition of " + of + " is damaged", .kind = FaultKind::kDamaged};
  }
  return std::move(*read.definition);
}

Result<std::vector<geometry::Kurve>> FigureOf(const project::Project& project, const std::string& name) {
  drawing::Board board(project.folder());
  VANZET_DO(board.Load());
  const auto& figures = board.drawing().figures;
  const auto drawn = figures.find(name);
  if (drawn == figures.end()) return drawing::FigureFolder(project.folder() / "figures").Read(name);
  return drawing::CurvesOf(drawn->second);
}

/// The names of the solids that are billets or finished parts.
std::set<std::string> SolidsOf(const project::Definition& definition) {
  std::set<std::string> names;
  for (const scene::Spindle& spindle : scene::ReadEquipment(definition).spindles) {
    if (spindle.billet.type == scene::billet_type::kSolid) names.insert(spindle.billet.solid);
    if (spindle.finishPart.type == scene::finish_part_type::kSolid) names.insert(spindle.finishPart.solid);
  }
  return names;
}

Result<project::SteadyRest> SteadyRestOf(const project::Project& project) {
  const std::string ini = project.Environment("ppdefini");
  const auto file =
      project.paths().Resolve(DriveOf(ini).empty() ? project.Environment("-d") + "/" + ini : ini);
  return project::ReadSteadyRest(file, file.string());
}

}  // namespace

Result<scene::Scene> SceneOf(const project::Project& project, std::int32_t spur,
                             const modeller::Exchange& exchange, const modeller::Foresight& foresight) {
  VANZET_TRY(const auto definition, DefinitionOf(project, spur));
  const auto solids =
      modeller::ImportNamedBodies(SolidsOf(definition), project.folder() / "bodies", exchange, foresight);
  // The definition itself: with the 3D text of a scan it is too large to be read twice.
  return SceneOf(project, definition, exchange, [&](const std::string& name) { return solids.at(name); });
}

Result<scene::Scene> SceneOf(const project::Project& project, std::int32_t spur,
                             const modeller::Exchange& exchange, FindBody body) {
  VANZET_TRY(const auto definition, DefinitionOf(project, spur));
  return SceneOf(project, definition, exchange, std::move(body));
}

Result<scene::Scene> SceneOf(const project::Project& project, const project::Definition& definition,
                             const modeller::Exchange& exchange, FindBody body) {
  contour::UseMillimetres();
  VANZET_TRY(const auto steadyRest, SteadyRestOf(project));
  const scene::Sources sources = {[&](const std::string& name) { return FigureOf(project, name); },
                                  std::move(body), exchange, steadyRest};
  return scene::MakeScene(definition, sources);
}

Result<scene::Scene> EquipmentOf(const project::Project& project, std::int32_t spur,
                                 const modeller::Exchange& exchange, project::MessagePanel& panel,
                                 const modeller::Foresight& foresight) {
  auto made = SceneOf(project, spur, exchange, foresight);
  if (!made) return made;
  for (const scene::MissingBody& each : made->missing) panel.Tell(each.fault);
  if (!made->bodies.empty()) return made;
  if (!made->missing.empty()) return ReportedFault();
  return Fault{"the definition of spur " + std::to_string(spur) + " holds no equipment"};
}

Result<scene::Scene> LiveSceneOf(const project::Project& project, const scene::Equipment& equipment,
                                 const project::Definition& definition, const modeller::Exchange& exchange,
                                 FindBody body) {
  contour::UseMillimetres();
  VANZET_TRY(const auto steadyRest, SteadyRestOf(project));
  const scene::Sources sources = {[&](const std::string& name) { return FigureOf(project, name); },
                                  std::move(body), exchange, steadyRest, true};
  return scene::MakeScene(equipment, definition, sources);
}

Result<section::Section> SectionOf(const project::Project& project, std::int32_t spur,
                                   const modeller::Exchange& exchange, project::MessagePanel& panel) {
  VANZET_TRY(const auto definition, DefinitionOf(project, spur));
  VANZET_TRY(const auto scene, EquipmentOf(project, spur, exchange, panel));
  return section::MakeSection(scene::ReadEquipment(definition), scene);
}

}  // namespace vanzet::results
