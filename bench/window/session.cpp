#include "window/session.h"

#include "api/module.h"
#include "api/upgrade.h"
#include "project/project_store.h"
#include "vdm/embedded/engine.h"

namespace vanzet::window {
namespace {

namespace fs = std::filesystem;

/// The files and folders whose times and sizes show that the project was changed.
constexpr const char* kWatchedFiles[] = {
    "bench.ini",   "machine.ini", "clampdevice.cld", vdm::SqliteEngine::kStoreFile,
    "drawing.txt", "bodies",      "figures"};

/// A person who works in the window does not wait longer for another process.
constexpr std::chrono::seconds kLongestWait{2};

/// Runs its work whichever way a function is left.
struct AtExit {
  std::function<void()> work;
  ~AtExit() { work(); }
};

}  // namespace

Result<std::unique_ptr<Session>> Session::Open(const fs::path& folder, const Places& places) {
  VANZET_TRY(auto project, project::Project::Open(folder, places.share));
  VANZET_DO(project::StoreOf(project).Check());
  return std::unique_ptr<Session>(new Session(std::move(project), places));
}

Result<void> Session::MakeDefinitions(const fs::path& folder, const Places& places,
                                      project::MessagePanel& panel) {
  VANZET_TRY(const auto project, project::Project::Open(folder, places.share));
  VANZET_TRY(const auto module, api::FindModule(places.program));
  panel.BeginRun();
  api::Host host(project, panel, nullptr);
  VANZET_DO(api::UpgradeDefinitions(module, host));
  return host.Commit("new");
}

Result<void> Session::Reload() {
  VANZET_TRY(project_, project::Project::Open(project_.folder(), places_.share));
  return {};
}

Result<std::vector<results::SpurDefinition>> Session::Definitions() const {
  return results::ReadDefinitions(project_);
}

Result<drawing::Drawing> Session::Drawing() const {
  if (host_ != nullptr) {
    // The first pick can come before the first line.
    VANZET_DO(host_->board.Load());
    return host_->board.drawing();
  }
  drawing::Board board(project_.folder());
  VANZET_DO(board.Load());
  return board.drawing();
}

Result<std::shared_ptr<const scene::Scene>> Session::Equipment(std::int32_t spur,
                                                               const modeller::Progress& progress,
                                                               results::FindBody body) const {
  VANZET_TRY(const results::SpurDefinition definition, results::ReadDefinition(project_, spur));
  if (!definition.definition) return std::shared_ptr<const scene::Scene>();
  modeller::Exchange exchange = modeller::Exchange::OfProcess();
  exchange.progress = progress;
  VANZET_TRY(auto scene, results::SceneOf(project_, spur, exchange, std::move(body)));
  return std::shared_ptr<const scene::Scene>(std::make_shared<scene::Scene>(std::move(scene)));
}

Result<Session::Live> Session::LiveEquipment(std::int32_t spur) const {
  VANZET_TRY(const auto content, host_->store.Snapshot(project_.DefinitionOf(spur)));
  VANZET_TRY(auto definition, project::ReadDefinition(content));
  scene::Equipment equipment = scene::ReadEquipment(definition);
  return Live{std::move(definition), std::move(equipment)};
}

Result<scene::Scene> Session::LiveScene(const Live& live, const results::FindBody& body) const {
  const auto find = [&](const std::string& name) -> Result<modeller::Body> {
    const auto number = host_->bodies.NumberOf(name);
    return number == 0 ? body(name) : host_->bodies.Get(number);
  };
  return results::LiveSceneOf(project_, live.equipment, live.definition, modeller::Exchange::OfProcess(),
                              find);
}

Result<scene::Scene> Session::SceneOf(const project::Definition& definition, results::FindBody body) const {
  return results::SceneOf(project_, definition, modeller::Exchange::OfProcess(), std::move(body));
}

Result<std::optional<project::Definition>> Session::DefinitionAt(std::int64_t generation,
                                                                 std::int32_t spur) const {
  const vdm::Number number{project_.DefinitionOf(spur)};
  vdm::VdmStore store = project::StoreOf(project_);
  VANZET_TRY(const auto state, history::History(store).StateAt(generation, number));
  const auto found = state.find(number);
  if (found == state.end()) return std::optional<project::Definition>();
  VANZET_TRY(auto definition, project::ReadDefinition(found->second));
  return std::optional(std::move(definition));
}

Result<std::vector<history::Entry>> Session::History() const {
  vdm::VdmStore store = project::StoreOf(project_);
  return history::History(store).List();
}

Result<std::int64_t> Session::LastGeneration() const {
  vdm::VdmStore store = project::StoreOf(project_);
  return history::History(store).Last();
}

Result<void> Session::Restore(std::int64_t generation) {
  vdm::VdmStore store = project::StoreOf(project_);
  VANZET_DO(history::History(store).Restore(generation));
  return store.Commit("restore");
}

Result<std::vector<std::uint32_t>> Session::OpenElsewhere() const {
  VANZET_TRY(const std::int32_t spurs, project_.SpindleSpurs());
  const vdm::VdmStore store = project::StoreOf(project_);
  std::vector<std::uint32_t> open;
  for (std::int32_t spur = 0; spur < spurs; ++spur) {
    VANZET_TRY(const bool isOpen, store.IsOpen(project_.DefinitionOf(spur)));
    if (isOpen) open.push_back(project_.DefinitionOf(spur));
  }
  return open;
}

Result<void> Session::Call(const char* function, Surroundings surroundings) {
  if (isAtWork()) return Fault{.text = "the module is already at work", .kind = FaultKind::kBusy};
  VANZET_TRY(const auto module, api::FindModule(places_.program));
  surroundings.panel.BeginRun();
  host_ = std::make_unique<api::Host>(project_, surroundings.panel, std::move(surroundings.log));
  host_->picks = std::move(surroundings.picks);
  host_->mainWindow = surroundings.mainWindow;
  host_->exchange.progress = std::move(surroundings.progress);
  host_->help = std::move(surroundings.help);
  host_->announce = surroundings.announce;
  const AtExit end{[this] { host_.reset(); }};
  VANZET_DO(host_->store.Check());
  host_->store.WaitAtMost(kLongestWait);
  const std::string occasion = function == std::string_view("mstart") ? "dialog" : "upgrade";
  host_->keepEvent = [this, occasion, keep = std::move(surroundings.keepEvent)] {
    const auto kept = host_->Commit(occasion);
    return keep ? keep(kept) : kept;
  };
  if (occasion == "dialog") {
    VANZET_DO(api::UpgradeWhereNeeded(module, *host_, surroundings.announce));
  }
  VANZET_DO(api::CallModule(module, function, *host_));
  return host_->Commit(occasion);
}

std::vector<fs::path> Session::WatchedFiles() const {
  std::vector<fs::path> files;
  for (const char* name : kWatchedFiles) files.push_back(project_.folder() / name);
  return files;
}

std::string Session::FileStamps() const {
  std::string stamps;
  for (const fs::path& file : WatchedFiles()) {
    std::error_code error;
    const auto time = fs::last_write_time(file, error).time_since_epoch().count();
    stamps += error ? "-" : std::to_string(time);
    const auto size = fs::is_regular_file(file, error) ? fs::file_size(file, error) : 0;
    stamps += ":" + std::to_string(size) + ";";
  }
  return stamps;
}

}  // namespace vanzet::window
