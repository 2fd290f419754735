#include "project/litter.h"

#include <cerrno>
#include <csignal>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/files/folder_lock.h"
#include "base/files/system_fault.h"
#include "base/files/whole_file.h"
#include "base/numbers.h"

namespace vanzet::project {
namespace {

namespace fs = std::filesystem;

/// The paths in a folder, read to the end before anything is removed.
Result<std::vector<fs::path>> EntriesOf(const fs::path& folder) {
  std::vector<fs::path> entries;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    entries.push_back(entry->path());
  }
  const bool isGone = error == std::errc::no_such_file_or_directory;
  if (error && !isGone) return files::SystemFault("cannot be read", error, folder);
  return entries;
}

bool IsNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// True for "4711" and "4711-2", the names that runs give their folders.
bool IsNameOfRun(std::string_view name) {
  const std::size_t dash = name.find('-');
  return IsNumber(name.substr(0, dash)) &&
         (dash == std::string_view::npos || IsNumber(name.substr(dash + 1)));
}

/// Calls for each folder of a run that has ended. Fails where one could not be looked at; a run that ends
/// meanwhile removes its own.
template <class Call>
Result<void> ForEachDeadFolder(const fs::path& all, const Call& call) {
  std::error_code error;
  if (!fs::is_directory(fs::symlink_status(all, error))) return {};
  VANZET_TRY(const auto entries, EntriesOf(all));
  Result<void> done;
  for (const fs::path& folder : entries) {
    if (!IsNameOfRun(folder.filename().string())) continue;
    if (!fs::is_directory(fs::symlink_status(folder, error))) continue;
    const auto lock = files::FolderLock::TryAcquire(folder);
    if (lock) call(folder);
    const bool isUnknown = !lock && lock.fault().kind != FaultKind::kBusy && fs::exists(folder, error);
    if (isUnknown) done = lock.fault();
  }
  return done;
}

bool IsRunning(std::int32_t process) {
  return kill(process, 0) == 0 || errno != ESRCH;
}

/// The files "NAME.new-PID" that earlier versions wrote, without a lock.
void RemoveOldForm(const fs::path& project) {
  std::error_code error;
  const auto entries = EntriesOf(project);
  if (!entries) return;
  for (const fs::path& file : *entries) {
    const std::string name = file.filename().string();
    for (const std::string_view start : {"bench.ini.new-", "drawing.txt.new-"}) {
      if (!name.starts_with(start)) continue;
      const auto process = WholeInteger(std::string_view(name).substr(start.size()));
      const bool isLeft = process && *process > 0 && !IsRunning(*process);
      if (isLeft && fs::is_regular_file(fs::symlink_status(file, error))) fs::remove(file, error);
    }
  }
}

}  // namespace

void RemoveLitter(const fs::path& project) {
  std::error_code ignored;
  static_cast<void>(
      ForEachDeadFolder(project / "tmp", [&](const fs::path& folder) { fs::remove_all(folder, ignored); }));
  for (const fs::path& folder : {project, project / "bodies", project / "figures"}) {
    files::RemoveLeftovers(folder);
  }
  RemoveOldForm(project);
}

Result<std::vector<fs::path>> DeadRunFolders(const fs::path& project) {
  std::vector<fs::path> folders;
  VANZET_DO(ForEachDeadFolder(project / "tmp", [&](const fs::path& folder) { folders.push_back(folder); }));
  return folders;
}

}  // namespace vanzet::project
