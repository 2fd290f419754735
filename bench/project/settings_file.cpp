#include "project/settings_file.h"

#include <system_error>

#include "base/files/folder_lock.h"
#include "base/files/whole_file.h"
#include "base/letter_case.h"
#include "project/bench_ini.h"
#include "project/ini_edit.h"
#include "project/length_unit.h"
#include "project/text_file.h"

namespace vanzet::project {
namespace {

constexpr std::string_view kSection = "project";

bool IsOfWorkbench(std::string_view key) {
  return EqualWithoutCase(key, kLengthUnitSetting);
}

}  // namespace

Result<std::string> SettingsFile::Value(std::string_view key) const {
  VANZET_TRY(const auto text, Text());
  VANZET_TRY(const auto settings, ReadBenchIni(text, File().string()));
  const auto entry = IsOfWorkbench(key) ? settings.project.end() : settings.project.find(key);
  return entry == settings.project.end() ? std::string() : entry->second.value;
}

Result<void> SettingsFile::Set(std::string_view key, std::string_view value) const {
  if (IsOfWorkbench(key)) {
    return Fault{"'" + std::string(key) + "' is a setting of the workbench, which only a person changes",
                 File().string()};
  }
  VANZET_TRY(const auto lock, files::FolderLock::Acquire(folder_));
  VANZET_TRY(const auto text, Text());
  // Settings that cannot be read are not changed: a person has to correct them first.
  VANZET_DO(ReadBenchIni(text, File().string()));
  VANZET_TRY(const auto edited, WithIniEntry(text, kSection, key, value));
  return files::ReplaceFile(File(), edited);
}

Result<std::string> SettingsFile::Text() const {
  std::error_code error;
  if (!std::filesystem::exists(File(), error)) return std::string();
  return ReadTextFile(File(), File().string());
}

}  // namespace vanzet::project
