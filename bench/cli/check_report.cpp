#include "cli/check_report.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "base/files/whole_file.h"
#include "check/pictures.h"
#include "check/project_check.h"
#include "cli/exchange_options.h"
#include "cli/length_unit.h"
#include "cli/output.h"
#include "cli/output_files.h"
#include "devices/kinds.h"
#include "results/equipment.h"

namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

Result<void> MakeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (fs::is_directory(folder, error)) return {};
  return Fault{.text = "the folder cannot be created", .file = folder.string(), .kind = FaultKind::kSystem};
}

/// The pictures of a spur's findings.
class SpurPictures {
 public:
  static Result<SpurPictures> Of(std::int32_t spur, const project::Project& project) {
    VANZET_TRY(const auto head, results::ReadDefinition(project, spur));
    VANZET_TRY(auto scene, results::SceneOf(project, spur, ExchangeWithProgress()));
    return SpurPictures(scene::ReadEquipment(*head.definition), std::move(scene));
  }

  Result<std::vector<check::Picture>> Of(const check::Finding& finding, int number,
                                         const check::Style& style) const {
    return check::PicturesOf(finding, number, {equipment_, scene_}, style);
  }

 private:
  SpurPictures(scene::Equipment equipment, scene::Scene scene)
      : equipment_(std::move(equipment)), scene_(std::move(scene)) {}

  scene::Equipment equipment_;
  scene::Scene scene_;
};

bool HasFiles(const scene::Equipment& equipment) {
  const auto isOwn = [](const scene::Device& device) { return devices::IsOwn(device.params.type); };
  return isOwn(equipment.center) ||
         std::ranges::any_of(equipment.spindles, [&](const scene::Spindle& spindle) {
           return isOwn(spindle.clamp) || isOwn(spindle.jaw) ||
                  spindle.billet.type == scene::billet_type::kSolid ||
                  spindle.finishPart.type == scene::finish_part_type::kSolid;
         });
}

}  // namespace

Result<std::string> MentionOfFindings(const project::Project& project,
                                      const std::vector<results::SpurDefinition>& spurs,
                                      const Context& context) {
  Findings all;
  for (const results::SpurDefinition& spur : spurs) {
    if (!spur.definition || HasFiles(scene::ReadEquipment(*spur.definition))) continue;
    const auto found = check::CheckProject(project, spur.spur, ExchangeWithProgress());
    if (!found && found.fault().kind == FaultKind::kSystem) return found.fault();
    if (!found) return std::string();
    all.insert(all.end(), found->begin(), found->end());
  }
  const check::Counts counts = check::CountsOf(all);
  if (counts.errors + counts.warnings == 0) return std::string();
  return "\n" + check::CountText(counts, context.texts) + "; " +
         context.Heading(Translatable("see 'vanzet check'")) + "\n";
}

void CountFindings(const Findings& findings, bool isStrict, Context& context) {
  const check::Severity worst = isStrict ? check::Severity::kWarning : check::Severity::kError;
  context.hasFindings =
      std::ranges::any_of(findings, [&](const check::Finding& finding) { return finding.severity >= worst; });
}

Result<void> CheckCanBeChecked(const project::Project& project) {
  VANZET_DO(check::TermsOf(project));
  return {};
}

Result<void> CheckAfterRun(const project::Project& project, std::initializer_list<std::string_view> outputs,
                           Context& context) {
  VANZET_TRY(const auto unit, UnitOf({}, project));
  const auto findings = check::CheckProject(project, {}, ExchangeWithProgress());
  if (!findings) {
    Fault fault = findings.fault();
    fault.text = "the run is stored, but cannot be checked: " + fault.text;
    return fault;
  }
  CountFindings(*findings, false, context);
  return PrintBeside(outputs, check::PageOf(*findings, {context.texts, unit}));
}

Result<std::vector<fs::path>> WritePictures(const fs::path& folder, const Findings& findings,
                                            const project::Project& project, const check::Style& style) {
  VANZET_DO(CheckIsNoInputFolder(folder, project));
  VANZET_DO(MakeFolder(folder));
  std::map<std::int32_t, SpurPictures> spurs;
  std::map<std::tuple<std::string_view, std::int32_t, check::Where>, int> numbers;
  std::vector<fs::path> written;
  for (const check::Finding& finding : findings) {
    if (!spurs.contains(finding.spur)) {
      VANZET_TRY(auto drawn, SpurPictures::Of(finding.spur, project));
      spurs.emplace(finding.spur, std::move(drawn));
    }
    const int number = ++numbers[{finding.rule->id, finding.spur, finding.where}];
    VANZET_TRY(const auto pictures, spurs.at(finding.spur).Of(finding, number, style));
    for (const check::Picture& picture : pictures) {
      VANZET_DO(files::ReplaceFile(folder / picture.name, picture.bytes));
      written.push_back(folder / picture.name);
    }
  }
  return written;
}

}  // namespace vanzet::cli
