#include "api/host.h"

#include <utility>

#include "base/files/whole_file.h"
#include "catalogue/shop_place.h"
#include "modeller/body_folder.h"
#include "project/catalogue.h"
#include "project/project_store.h"

namespace vanzet::api {
namespace {

Host* currentHost = nullptr;

/// Adds the name of a line to a fault. Its column counts in `source`, unless it has a place in another file.
Result<void> WithLine(const Result<void>& run, const std::string& line, std::string_view source) {
  if (run) return run;
  Fault fault = run.fault();
  const std::string name = "'" + line + "'";
  if (!fault.file.empty()) return Fault{.text = fault.Message(), .file = name, .kind = fault.kind};
  fault.file = name;
  fault.source = source;
  return fault;
}

}  // namespace

Host::Host(const project::Project& theProject, project::MessagePanel& thePanel,
           std::unique_ptr<CallLog> theTrace)
    : project(theProject),
      panel(thePanel),
      trace(std::move(theTrace)),
      variables(theProject.startVariables()),
      store(project::StoreOf(theProject)),
      runFolder(theProject.folder()),
      board(theProject.folder()),
      mesh{theProject.settings().mesh.chord, theProject.settings().mesh.angle},
      settings_(theProject.folder()),
      figures_(theProject.folder() / "figures") {}

Result<void> Host::Commit(const std::string& occasion, const vdm::LastStep& lastStep) {
  // From here to the commit nobody else changes the drawing, into which the changes are merged.
  if (board.HasChanges()) VANZET_DO(store.Hold());
  VANZET_TRY(auto content, board.Unsaved());
  std::optional<vdm::TextFile> file;
  if (content) file = vdm::TextFile{drawing::Board::kFile, std::move(*content)};
  VANZET_DO(store.Commit(occasion, std::move(file), lastStep));
  board.MarkSaved();
  return {};
}

Result<void> Host::Command(std::string_view line) {
  language::Surroundings surroundings = Surroundings();
  const auto run = language::Run(line, surroundings);
  store.ForgetDeleted();
  return WithLine(run, std::string(line), line);
}

Result<void> Host::Macro(std::string_view name, std::string_view arguments) {
  language::Surroundings surroundings = Surroundings();
  const std::string line = std::string(name) + (arguments.empty() ? "" : " ") + std::string(arguments);
  return WithLine(language::RunMacro(name, arguments, surroundings), line, arguments);
}

Result<std::int32_t> Host::FindBody(std::string_view name) {
  return modeller::FindOrImportBody(name, bodies, project.folder() / "bodies", exchange, {.extents = true});
}

Result<std::string> Host::Setting(std::string_view key) {
  if (!catalogue.empty() && key == project::kCatalogueSetting) return catalogue.string();
  if (const auto changed = dryRun ? dryRun->Setting(key) : std::nullopt) return *changed;
  return settings_.Value(key);
}

Result<void> Host::SetSetting(std::string_view key, std::string_view value) {
  if (!dryRun) return settings_.Set(key, value);
  dryRun->SetSetting(key, value, project.folder() / "bench.ini");
  if (key != project::kCatalogueSetting) return {};
  VANZET_TRY(catalogue, dryRun->CopyCatalogue(project.paths().Resolve(value)));
  return {};
}

Result<void> Host::BeginDryRun() {
  VANZET_TRY(const auto folder, runFolder.Path());
  VANZET_TRY(const auto setting, Setting(project::kCatalogueSetting));
  dryRun.emplace(folder);
  const auto place = catalogue::PlaceOf(project, setting);
  VANZET_TRY(catalogue, dryRun->CopyCatalogue(place.file));
  if (!place.IsOnServer()) return {};
  const auto devices = ReadCatalogue(place);
  if (!devices) return devices.fault().kind == FaultKind::kMissing ? Result<void>() : devices.fault();
  return files::ReplaceFile(catalogue, devices->Text());
}

std::string Host::Environment(std::string_view key) {
  const std::string value = project.Environment(key);
  if (key != "TMP" || (!value.empty() && !dryRun)) return value;
  const auto folder = runFolder.Path();
  if (!folder) panel.Tell(folder.fault());
  return folder ? folder->string() : "";
}

HostScope::HostScope(Host& host) : former_(std::exchange(currentHost, &host)) {}

HostScope::~HostScope() {
  currentHost = former_;
}

Host* CurrentHost() {
  return currentHost;
}

}  // namespace vanzet::api
