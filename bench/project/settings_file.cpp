#include "project/settings_file.h"

#include <system_error>

#include "base/files/folder_lock.h"
#include "base/files/whole_file.h"
#include "project/bench_ini.h"
#include "project/ini_edit.h"
#include "project/text_file.h"

namespace vanzet::project {
namespace {

constexpr std::string_view kSection = "project";

}  // namespace

Result<std::string> SettingsFile::Value(std::string_view key) const {
  VANZET_TRY(const auto text, Text());
  VANZET_TRY(const auto settings, ReadBenchIni(text, File().string()));
  const auto entry = settings.project.find(key);
  return entry == settings.project.end() ? std::string() : entry->second.value;
}

Result<void> SettingsFile::Set(std::string_view key, std::string_view value) const {
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
