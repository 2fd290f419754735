#include "project/sample.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <system_error>

#include "base/files/system_fault.h"
#include "base/near_words.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "project/project.h"

namespace vanzet::project {
namespace {

namespace fs = std::filesystem;

/// The folders that every new project has, also without files in them.
constexpr const char* kFolders[] = {"bodies", "figures", "tmp"};

fs::path WithoutTrailingSlash(const fs::path& folder) {
  return folder.has_filename() ? folder : folder.parent_path();
}

/// The folder that a process makes first in a new project, and removes last: that of a run.
fs::path MarkOf(const fs::path& project, const std::string& process) {
  return project / "tmp" / process;
}

/// True when the folder has no file, at any depth.
bool HoldsNoFile(const fs::path& folder) {
  std::error_code error;
  for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (!fs::is_directory(entry->symlink_status(error))) return false;
  }
  return !error;
}

/// Removes what killed processes left of the projects that they were making here. What has such a name and is
/// not theirs stays.
void RemoveLeftovers(const fs::path& place) {
  const std::string prefix = place.filename().string() + ".new-";
  std::error_code error;
  for (fs::directory_iterator entry(place.parent_path().empty() ? "." : place.parent_path(), error), end;
       !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    const auto process = name.starts_with(prefix) ? WholeInteger(name.substr(prefix.size())) : std::nullopt;
    const bool isDead = process && *process > 0 && kill(*process, 0) != 0 && errno == ESRCH;
    if (!isDead || !fs::is_directory(entry->symlink_status(error))) continue;
    const fs::path& left = entry->path();
    std::error_code ignored;
    const bool isMarked = fs::is_directory(MarkOf(left, std::to_string(*process)), ignored);
    if (isMarked || HoldsNoFile(left)) fs::remove_all(left, ignored);
  }
}

/// Creates the folder. Fails where something has the name, such as a link to another folder.
Result<void> MakeNewFolder(const fs::path& folder) {
  std::error_code error;
  if (folder.has_parent_path()) fs::create_directories(folder.parent_path(), error);
  const bool isNew = !error && fs::create_directory(folder, error);
  if (isNew) return {};
  if (!error) error = std::make_error_code(std::errc::file_exists);
  return files::SystemFault("cannot be created", error, folder);
}

Result<void> CopySample(const fs::path& sample, const fs::path& target, const fs::path& project) {
  std::error_code error;
  fs::copy(sample, target, fs::copy_options::recursive, error);
  for (const char* const name : kFolders) {
    if (!error) fs::create_directories(target / name, error);
  }
  return error ? Result<void>(files::SystemFault("cannot be created", error, project)) : Result<void>();
}

Result<void> Rename(const fs::path& from, const fs::path& to, const fs::path& project) {
  std::error_code error;
  fs::rename(from, to, error);
  return error ? Result<void>(files::SystemFault("cannot be created", error, project)) : Result<void>();
}

std::string ListOf(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

Result<void> CheckSample(const std::string& sample, const fs::path& share) {
  const std::vector<std::string> known = SampleNames(share);
  if (std::ranges::find(known, sample) != known.end()) return {};
  const std::vector<std::string> near = NearWords(sample, known);
  const std::string hint =
      near.empty() ? "the samples are: " + ListOf(known) : "did you mean " + Quoted(near.front()) + "?";
  return Fault{.text = "no such sample: " + Quoted(sample) + "; " + hint, .kind = FaultKind::kMissing};
}

}  // namespace

std::vector<std::string> SampleNames(const fs::path& share) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(share / "samples", error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->is_directory()) names.push_back(entry->path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

Result<void> MakeProject(const fs::path& folder, const std::string& sample, const fs::path& share,
                         const FillFolder& fill) {
  VANZET_DO(CheckSample(sample, share));
  VANZET_DO(CheckFolderName(folder));
  std::error_code error;
  if (fs::exists(folder, error) && (!fs::is_directory(folder, error) || !fs::is_empty(folder, error))) {
    return Fault{"already exists and is not an empty folder", folder.string()};
  }
  // Created next to the place and renamed: a killed process leaves no half project under the name.
  const fs::path place = WithoutTrailingSlash(folder);
  RemoveLeftovers(place);
  const std::string process = std::to_string(getpid());
  const fs::path temporary = place.string() + ".new-" + process;
  VANZET_DO(MakeNewFolder(temporary));
  fs::create_directories(MarkOf(temporary, process), error);
  auto made = error ? Result<void>(files::SystemFault("cannot be created", error, folder))
                    : CopySample(share / "samples" / sample, temporary, folder);
  if (made && fill) made = fill(temporary);
  if (made) made = Rename(temporary, place, folder);
  // A run that finds the mark, because this one was killed, removes it as that of a dead one.
  if (made) fs::remove(MarkOf(place, process), error);
  if (!made) fs::remove_all(temporary, error);
  return made;
}

}  // namespace vanzet::project
