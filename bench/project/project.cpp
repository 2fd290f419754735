#include "project/project.h"

#include <algorithm>
#include <array>
#include <system_error>

#include "project/machine_ini.h"
#include "project/text_file.h"

namespace vanzet::project {
namespace {

namespace fs = std::filesystem;

/// What shows that a folder is a project.
constexpr std::array kMarks = {"bench.ini", "machine.ini", "clampdevice.cld", "store.db"};

constexpr const char* kMessages = "messages";  // in [language]

Result<void> CheckIsProject(const fs::path& folder) {
  std::error_code error;
  if (!fs::is_directory(folder, error)) return Fault{"is no folder, so it is no project", folder.string()};
  const bool marked =
      std::ranges::any_of(kMarks, [&](const char* mark) { return fs::exists(folder / mark, error); });
  const bool empty = fs::directory_iterator(folder, error) == fs::directory_iterator();
  if (error) return Fault{"cannot be read: " + error.message(), folder.string()};
  if (marked || empty) return {};
  return Fault{
      "is no project: it has neither bench.ini, machine.ini, clampdevice.cld nor store.db ('vanzet new' "
      "makes one)",
      folder.string()};
}

}  // namespace

Result<void> CheckFolderName(const fs::path& folder) {
  if (folder.empty()) return Fault{"the name of the project's folder is empty"};
  if (folder.string().find('\\') == std::string::npos) return {};
  return Fault{"cannot be a project: its name has a backslash, which separates the parts of a path",
               folder.string()};
}

Result<Project> Project::Open(const fs::path& folder, const fs::path& share) {
  VANZET_DO(CheckFolderName(folder));
  VANZET_DO(CheckIsProject(folder));
  Project project;
  std::error_code error;
  project.folder_ = fs::canonical(folder, error);
  if (error) return Fault{"cannot be read: " + error.message(), folder.string()};
  VANZET_DO(CheckFolderName(project.folder_));
  VANZET_DO(project.ReadSettings(share));
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
  paths_ = PathMap(settings_.drives);
  startVariables_ = Variables();
  for (const auto& [name, value] : {std::pair{"$_root_dir", share}, {"$_USER_DATA_SETTINGS", folder_}}) {
    VANZET_DO(startVariables_.Set(name, value.string() + "/"));
  }
  for (const auto& [name, setting] : settings_.variables) {
    const auto set = startVariables_.SetFromText(name, setting.value);
    if (!set) return Fault{set.fault().text, file.string(), setting.line};
  }
  return {};
}

Result<void> Project::ReadMessages(const fs::path& share) {
  const auto language = settings_.language.find(kMessages);
  if (language == settings_.language.end() || language->second.value.empty()) return {};
  const fs::path file = share / "messages" / (language->second.value + ".txt");
  std::error_code error;
  if (!fs::is_regular_file(file, error)) {
    return Fault{"there is no catalogue of texts '" + language->second.value + "'",
                 (folder_ / "bench.ini").string(), language->second.line};
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
