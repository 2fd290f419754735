#include "results/setup.h"

#include <algorithm>

#include "project/project_store.h"
#include "results/definitions.h"
#include "results/equipment.h"
#include "results/export_folder.h"
#include "results/setup_texts.h"

namespace vanzet::results {
namespace {

struct FormatRow {
  std::string_view word;
  SetupFormat format;
  std::string_view ending;
  Result<std::string> (*text)(const Setup& setup);
};
constexpr FormatRow kFormats[] = {
    {"json", SetupFormat::kJson, ".json", SceneJson},
    {"linuxcnc", SetupFormat::kLinuxCnc, ".ngc", LinuxCncText},
    {"mtconnect", SetupFormat::kMtConnect, ".xml", MtConnectText},
};

const FormatRow& RowOf(SetupFormat format) {
  return *std::ranges::find(kFormats, format, &FormatRow::format);
}

}  // namespace

const std::vector<std::string>& SetupWords() {
  static const auto words = [] {
    std::vector<std::string> all;
    for (const FormatRow& row : kFormats) all.emplace_back(row.word);
    return all;
  }();
  return words;
}

std::optional<SetupFormat> SetupNamed(std::string_view word) {
  const auto* const row = std::ranges::find(kFormats, word, &FormatRow::word);
  return row == std::end(kFormats) ? std::nullopt : std::optional(row->format);
}

Result<std::string> TimeOf(const project::Project& project, std::int32_t spur) {
  VANZET_TRY(const auto changes,
             project::StoreOf(project).ListChanges(vdm::Number{project.DefinitionOf(spur)}));
  const auto latest = std::ranges::max_element(
      changes, {}, [](const vdm::VdmChange& change) { return change.generation.number; });
  return latest == changes.end() ? std::string() : latest->generation.time;
}

const scene::SceneBody* BilletOf(const Setup& setup, bool isSub) {
  const auto& bodies = setup.scene.bodies;
  const auto found = std::ranges::find(bodies, isSub ? "sub billet" : "main billet", &scene::SceneBody::name);
  return found == bodies.end() ? nullptr : &*found;
}

Result<Setup> SetupOf(const project::Project& project, std::int32_t spur, const modeller::Exchange& exchange,
                      project::MessagePanel& panel) {
  Setup setup;
  modeller::Foresight foresight = kForPictures;
  foresight.measures = true;
  VANZET_TRY(setup.scene, EquipmentOf(project, spur, exchange, panel, foresight));
  VANZET_TRY(const auto read, ReadDefinition(project, spur));
  if (read.definition) setup.equipment = scene::ReadEquipment(*read.definition);
  setup.project = project.folder().filename().string();
  setup.spur = spur;
  VANZET_TRY(setup.time, TimeOf(project, spur));
  return setup;
}

Result<std::string> SetupText(const Setup& setup, SetupFormat format) {
  return RowOf(format).text(setup);
}

Result<ExportReport> WriteSetup(const Setup& setup, SetupFormat format, const std::filesystem::path& folder) {
  const std::string name = "equipment" + std::string(RowOf(format).ending);
  VANZET_TRY(const auto text, SetupText(setup, format));
  VANZET_TRY(auto target, ExportFolder::Begin(folder));
  VANZET_DO(target.Add(name, text));
  ExportReport report;
  VANZET_TRY(report.changed, target.Commit(Others::kRemoved));
  report.files.push_back({folder / name, {}});
  return report;
}

}  // namespace vanzet::results
