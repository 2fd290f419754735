#include "catalogue/device_catalogue.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "base/files/folder_lock.h"
#include "base/files/regular_file.h"
#include "base/files/whole_file.h"
#include "catalogue/catalogue_lines.h"
#include "host/bridge.h"
#include "host/fields.h"
#include "host/host_functions.h"
#include "host/macro_variables.h"
#include "platform/file_dialog.h"
#include "platform/files.h"
#include "platform/host_text.h"

namespace vanzet {
namespace {

/// A shorter setting names no file.
constexpr std::size_t kShortestPath = 3;

/// The bytes of a file name in the dialog, that of the suggestion too.
constexpr std::size_t kLongestFileName = 260;

std::string ProjectSetting() {
  // Left empty by a host whose project has no such setting.
  host::Flag ok = 0;
  host::hostFunctions.OrvoWriteGlobalStr("$_return", "", &ok);
  host::SendCommand("file e '' $_project 'CLAMP_DB_PATH' $_return");
  std::string path;
  OrvoApi::GetGlobalStrVar("$_return", path);
  return path;
}

std::string SuggestedName() {
  std::string country;
  OrvoApi::GetGlobalStrVar("$_COUNTRY", country);
  return ("clampdevice" + country).substr(0, kLongestFileName);
}

}  // namespace

CDevice::CDevice() : path_(ProjectSetting()) {
  if (path_.size() < kShortestPath) path_ = host::hostFunctions.OrvoEnvironment("clampmdb");
}

bool CDevice::SelectFile(bool forReading, void* owner) {
  platform::FileQuestion question;
  if (!forReading) question.suggested = SuggestedName();
  OrvoApi::GetGlobalStrVar("$_USER_DATA_SETTINGS", question.startFolder);
  question.filter = "Clampdevice Files (*.cld)|*.cld||";
  question.promptsOverwrite = true;
  question.longestPath = kLongestFileName;
  question.owner = owner;
  const auto chosen = platform::AskForFile(question);
  if (chosen) path_ = *chosen;
  return chosen.has_value();
}

Result<void> CDevice::ReadFile() {
  lines_.clear();
  const std::filesystem::path file = platform::FileOf(path_);
  VANZET_TRY(const auto text, files::ReadWholeFile(file));
  VANZET_DO(files::CheckChangeableFile(file));
  std::istringstream stream(text);
  ReadCatalogueLines(stream, lines_);
  return {};
}

bool CDevice::MayOnlyBeRead() const {
  const std::filesystem::path file = platform::FileOf(path_);
  return files::ReadWholeFile(file) && !files::CheckChangeableFile(file);
}

Result<void> CDevice::WriteFile() const {
  return files::ReplaceFile(platform::FileOf(path_), platform::TextFileBytes(CatalogueText(lines_)),
                            files::Keep::kIdentity);
}

Result<bool> CDevice::ChangeFile(const std::function<bool()>& change) {
  const std::filesystem::path file = platform::FileOf(path_);
  const std::filesystem::path folder = files::LockedFolderOf(file);
  const auto lock = files::FolderLock::Acquire(folder);
  // Folders of some network shares cannot be locked; a folder that does not exist is a fault of the writing.
  if (!lock && lock.fault().kind == FaultKind::kBusy) return lock.fault();
  files::RemoveLeftovers(folder);
  VANZET_DO(ReadAgain(file));
  if (!change()) return false;
  VANZET_DO(WriteFile());
  return true;
}

Result<void> CDevice::ReadAgain(const std::filesystem::path& file) {
  std::vector<std::string> before = lines_;
  const auto read = ReadFile();
  if (!read) {
    lines_ = std::move(before);
    return read.fault().kind == FaultKind::kMissing ? Result<void>() : read;
  }
  auto isCatalogue = CheckCatalogueLines(lines_, file.string());
  if (!isCatalogue) lines_.clear();
  return isCatalogue;
}

void CDevice::PutDevice(const std::string& name, const std::string& valueLine) {
  const std::string nameLine = OneCatalogueLine(name);
  const std::size_t at = Find(nameLine).value_or(lines_.size());
  lines_.resize(std::max(lines_.size(), at + 2));
  lines_[at] = nameLine;
  lines_[at + 1] = OneCatalogueLine(valueLine);
}

bool CDevice::RemoveDevice(const std::string& name) {
  const auto at = Find(name);
  if (!at) return false;
  const auto first = lines_.begin() + static_cast<std::ptrdiff_t>(*at);
  lines_.erase(first, first + std::min<std::ptrdiff_t>(2, lines_.end() - first));
  return true;
}

bool CDevice::HasDevice(const std::string& name) const {
  return Find(name).has_value();
}

std::string CDevice::ValueLineOf(const std::string& name) const {
  const auto at = Find(name);
  return at && *at + 1 < lines_.size() ? lines_[*at + 1] : std::string();
}

void CDevice::NamesOfType(std::int32_t type, std::vector<std::string>& names) const {
  names.clear();
  for (std::size_t at = 0; at < lines_.size(); at += 2) {
    if (at + 1 == lines_.size()) throw std::out_of_range("invalid vector subscript");
    std::size_t position = 0;
    std::int32_t found = 0;
    host::ReadIntField(lines_[at + 1], position, found, 0);
    if (found == type) names.push_back(lines_[at]);
  }
}

std::optional<std::size_t> CDevice::Find(const std::string& name) const {
  for (std::size_t at = 0; at < lines_.size(); at += 2) {
    if (lines_[at] == name) return at;
  }
  return std::nullopt;
}

}  // namespace vanzet
