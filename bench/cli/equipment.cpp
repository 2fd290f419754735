#include "cli/equipment.h"

#include <algorithm>

#include "cli/output.h"
#include "contour/library.h"
#include "drawing/board.h"
#include "drawing/figure_folder.h"
#include "modeller/body_folder.h"
#include "vdm/store.h"

namespace vanzet::cli {
namespace {

Result<project::Definition> DefinitionOf(const project::Project& project, std::int32_t spur) {
  const auto count = project.SpindleSpurs();
  if (!count) return count.fault();
  if (spur >= *count) {
    return Fault{"there is no spur " + std::to_string(spur) + "; the machine has " +
                 Counted(static_cast<std::size_t>(*count), "spur") + ", counted from 0"};
  }
  const vdm::VdmStore store(project.folder());
  const std::uint32_t number = project.DefinitionOf(spur);
  const auto numbers = store.Numbers();
  if (!numbers) return numbers.fault();
  const std::string of = "spur " + std::to_string(spur);
  if (std::ranges::find(*numbers, vdm::Number{number}) == numbers->end()) {
    return Fault{of + " has no definition yet; 'vanzet upgrade' makes it"};
  }
  const auto content = store.Snapshot(number);
  if (!content) return content.fault();
  auto definition = project::ReadDefinition(*content);
  if (definition && definition->IsDamaged()) return Fault{"the definition of " + of + " is damaged"};
  return definition;
}

Result<std::vector<geometry::Kurve>> FigureOf(const project::Project& project, const std::string& name) {
  drawing::Board board(project.folder());
  if (const auto loaded = board.Load(); !loaded) return loaded.fault();
  const auto& figures = board.drawing().figures;
  const auto drawn = figures.find(name);
  if (drawn == figures.end()) return drawing::FigureFolder(project.folder() / "figures").Read(name);
  std::vector<geometry::Kurve> curves;
  for (const drawing::Stroke& stroke : drawn->second.strokes) curves.push_back(stroke.curve);
  return curves;
}

Result<modeller::Body> BodyOf(const project::Project& project, const std::string& name) {
  modeller::BodyTable table;
  const auto number =
      modeller::NumberOfNamed(name, table, project.folder() / "bodies", modeller::Exchange::OfProcess());
  if (!number) return number.fault();
  return table.Get(*number);
}

}  // namespace

Result<scene::Scene> EquipmentOf(const project::Project& project, std::int32_t spur) {
  const auto definition = DefinitionOf(project, spur);
  if (!definition) return definition.fault();
  contour::UseMillimetres();
  const scene::Sources sources = {[&](const std::string& name) { return FigureOf(project, name); },
                                  [&](const std::string& name) { return BodyOf(project, name); },
                                  modeller::Exchange::OfProcess()};
  auto made = scene::MakeScene(*definition, sources);
  if (made && made->bodies.empty()) {
    return Fault{"the definition of spur " + std::to_string(spur) + " holds no equipment"};
  }
  return made;
}

}  // namespace vanzet::cli
