#include "project/project.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <system_error>

#include "base/files/system_fault.h"
#include "base/quote.h"
#include "project/machine_ini.h"
#include "project/project_store.h"
#include "project/text_file.h"
#include "vdm/embedded/engine.h"

namespace vanzet::project {
namespace {

namespace fs = std::filesystem;

/// The files that mark a folder as a project.
constexpr std::array kMarks = {"bench.ini", "machine.ini", "clampdevice.cld", vdm::SqliteEngine::kStoreFile};

constexpr const char* kMessages = "messages";  // in [language]

/// The file of locks is not content: a run that failed or was killed may have left it.
bool IsEmpty(const fs::path& folder, std::error_code& error) {
  for (fs::directory_iterator each(folder, error); each != fs::end(each); each.increment(error)) {
    if (each->path().filename() != "store.lock") return false;
  }
  return true;
}

Result<void> CheckIsProject(const fs::path& folder) {
  std::error_code error;
  if (!fs::is_directory(folder, error)) {
    return Fault{.text = "is not a folder, so it is not a project",
                 .file = folder.string(),
                 .kind = fs::exists(folder, error) ? FaultKind::kRefused : FaultKind::kMissing};
  }
  const bool empty = IsEmpty(folder, error);
  if (error) return files::SystemFault("cannot be read", error, folder);
  if (empty || IsMarkedAsProject(folder)) return {};
  return Fault{
      "is not a project: it has neither bench.ini, machine.ini, clampdevice.cld nor store.db ('vanzet new' "
      "creates one)",
      folder.string()};
}

}  // namespace

Result<void> CheckFolderName(const fs::path& folder) {
  if (folder.empty()) return Fault{"the name of the project's folder is empty"};
  if (folder.string().find('\\') == std::string::npos) return {};
  return Fault{"cannot be a project: its name has a backslash, which separates the parts of a path",
               folder.string()};
}

bool IsMarkedAsProject(const fs::path& folder) {
  std::error_code unknown;
  return std::ranges::any_of(kMarks, [&](const char* mark) { return fs::exists(folder / mark, unknown); });
}

Result<Project> Project::Open(const fs::path& folder, const fs::path& share) {
  VANZET_DO(CheckFolderName(folder));
  VANZET_DO(CheckIsProject(folder));
  Project project;
  std::error_code error;
  project.folder_ = fs::canonical(folder, error);
  if (error) return files::SystemFault("cannot be read", error, folder);
  VANZET_DO(CheckFolderName(project.folder_));
  VANZET_DO(project.ReadSettings(share));
  project.FinishFormerCommit();
  VANZET_DO(project.ReadMessages(share));
  return project;
}

Result<void> Project::ReadSettings(const fs::path& share) {
  const fs::path file = folder_ / "bench.ini";
  std::error_code error;
  if (fs::exists(file, error)) {
    VANZET_TRY(const auto text, ReadTextFile(file, file.string()));
    VANZET_TRY(auto settings, ReadBenchIni(text, file.string()));
    settings_ = std::move(settings);
  }
  VANZET_DO(SettleStore());
  paths_ = PathMap(settings_.drives);
  startVariables_ = Variables();
  for (const auto& [name, value] : {std::pair{"$_root_dir", share}, {"$_USER_DATA_SETTINGS", folder_}}) {
    VANZET_DO(startVariables_.Set(name, value.string() + "/"));
  }
  for (const auto& [name, setting] : settings_.variables) {
    const auto set = startVariables_.SetFromText(name, setting.value);
    if (!set) return setting.At(set.fault().text);
  }
  return {};
}

Result<void> Project::SettleStore() {
  StorePlace& store = settings_.store;
  const char* const engine = std::getenv("VANZET_STORE");
  if (engine != nullptr && *engine != '\0') {
    auto connection = ConnectionOf(engine);
    if (!connection) return Fault{"VANZET_STORE: " + connection.fault().text};
    store.connection = *std::move(connection);
  }
  if (store.project.empty()) store.project = folder_.filename().string();
  return {};
}

void Project::FinishFormerCommit() {
  const auto session = SessionAt(settings_.store);
  // A store that cannot be used is reported by those who use it.
  static_cast<void>(StoreAt(settings_.store, folder_, session).FinishFormerCommit());
  idle_ = std::make_shared<IdleSession>(settings_.store, session);
}

Result<void> Project::ReadMessages(const fs::path& share) {
  const auto language = settings_.language.find(kMessages);
  if (language == settings_.language.end() || language->second.value.empty()) return {};
  const fs::path file = share / "messages" / (language->second.value + ".txt");
  std::error_code error;
  const bool isName = language->second.value.find('/') == std::string::npos;
  if (!isName || !fs::is_regular_file(file, error)) {
    Fault fault = language->second.At("no such catalogue of texts: " + Quoted(language->second.value));
    fault.kind = FaultKind::kMissing;
    return fault;
  }
  VANZET_TRY(const auto text, ReadTextFile(file, file.string()));
  VANZET_TRY(auto messages, ReadMessageCatalogue(text, file.string()));
  messages_ = std::move(messages);
  return {};
}

std::string Project::Language() const {
  const auto language = settings_.language.find(kMessages);
  const bool isSet = language != settings_.language.end() && !language->second.value.empty();
  return isSet ? language->second.value : "en";
}

std::string Project::Environment(std::string_view key) const {
  if (const auto setting = settings_.environment.find(key); setting != settings_.environment.end()) {
    return setting->second.value;
  }
  if (key == "-d") return folder_.string();
  if (key == "ppdefini") return (folder_ / "machine.ini").string();
  if (key == "clampmdb") return (folder_ / "clampdevice.cld").string();
  return {};
}

std::optional<std::string> Project::Message(std::int32_t id) const {
  const auto message = messages_.find(id);
  return message == messages_.end() ? std::nullopt : std::optional(message->second);
}

Result<std::int32_t> Project::SpindleSpurs() const {
  const std::string ini = Environment("ppdefini");
  const fs::path file = paths_.Resolve(DriveOf(ini).empty() ? Environment("-d") + "/" + ini : ini);
  return CountSpindleSpurs(file, file.string());
}

std::uint32_t Project::DefinitionOf(std::int32_t spur) const {
  const char* const variable = spur <= 0 ? "i_billet_vdm" : "i_billet_vdm_spispur";
  const auto first = static_cast<std::uint32_t>(startVariables_.Integer(variable).value_or(0));
  return spur <= 0 ? first : first + static_cast<std::uint32_t>(spur - 1);
}

}  // namespace vanzet::project
