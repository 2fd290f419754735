#include "window/session.h"

#include "api/module.h"
#include "base/translations.h"
#include "results/equipment.h"

namespace vanzet::window {
namespace {

namespace fs = std::filesystem;

/// What tells by its time and size that the project was changed.
constexpr const char* kSigns[] = {"bench.ini",   "machine.ini", "clampdevice.cld", "store.db",
                                  "drawing.txt", "bodies",      "figures"};

/// Is done whichever way a function is left.
struct AtTheEnd {
  std::function<void()> work;
  ~AtTheEnd() { work(); }
};

}  // namespace

Places Places::OfProcess() {
  std::error_code error;
  Places places;
  places.program = fs::read_symlink("/proc/self/exe", error);
  places.share = ShareFolder(places.program.parent_path());
  return places;
}

Result<std::unique_ptr<Session>> Session::Open(const fs::path& folder, const Places& places) {
  auto project = project::Project::Open(folder, places.share);
  if (!project) return project.fault();
  const auto usable = vdm::VdmStore(project->folder()).Check();
  if (!usable) return usable.fault();
  return std::unique_ptr<Session>(new Session(std::move(*project), places));
}

Result<void> Session::Reload() {
  auto project = project::Project::Open(project_.folder(), places_.share);
  if (!project) return project.fault();
  project_ = std::move(*project);
  return {};
}

Result<std::vector<results::SpurDefinition>> Session::Definitions() const {
  return results::ReadDefinitions(project_);
}

Result<drawing::Drawing> Session::Drawing() const {
  if (host_ != nullptr) return host_->board.drawing();
  drawing::Board board(project_.folder());
  if (const auto loaded = board.Load(); !loaded) return loaded.fault();
  return board.drawing();
}

Result<std::shared_ptr<const scene::Scene>> Session::Equipment(std::int32_t spur,
                                                               const modeller::Progress& progress) const {
  const auto definition = results::ReadDefinition(project_, spur);
  if (!definition) return definition.fault();
  if (!definition->definition) return std::shared_ptr<const scene::Scene>();
  modeller::Exchange exchange = modeller::Exchange::OfProcess();
  exchange.progress = progress;
  auto scene = results::SceneOf(project_, spur, exchange);
  if (!scene) return scene.fault();
  return std::shared_ptr<const scene::Scene>(std::make_shared<scene::Scene>(std::move(*scene)));
}

Result<std::vector<std::uint32_t>> Session::OpenElsewhere() const {
  const auto spurs = project_.SpindleSpurs();
  if (!spurs) return spurs.fault();
  const vdm::VdmStore store(project_.folder());
  std::vector<std::uint32_t> open;
  for (std::int32_t spur = 0; spur < *spurs; ++spur) {
    const auto isOpen = store.IsOpen(project_.DefinitionOf(spur));
    if (!isOpen) return isOpen.fault();
    if (*isOpen) open.push_back(project_.DefinitionOf(spur));
  }
  return open;
}

Result<void> Session::Call(const char* function, Surroundings surroundings) {
  if (isAtWork()) return Fault{"the module is at work already"};
  const auto module = api::FindModule(places_.program);
  if (!module) return module.fault();
  host_ = std::make_unique<api::Host>(project_, surroundings.panel, std::move(surroundings.log));
  host_->picks = std::move(surroundings.picks);
  host_->mainWindow = surroundings.mainWindow;
  host_->exchange.progress = std::move(surroundings.progress);
  host_->help = std::move(surroundings.help);
  const AtTheEnd rest{[this] { host_.reset(); }};
  if (const auto usable = host_->store.Check(); !usable) return usable;
  return api::CallModule(*module, function, *host_);
}

std::string Session::Signs() const {
  std::string signs;
  for (const char* name : kSigns) {
    std::error_code error;
    const fs::path file = project_.folder() / name;
    const auto time = fs::last_write_time(file, error).time_since_epoch().count();
    signs += error ? "-" : std::to_string(time);
    const auto size = fs::is_regular_file(file, error) ? fs::file_size(file, error) : 0;
    signs += ":" + std::to_string(size) + ";";
  }
  return signs;
}

}  // namespace vanzet::window
