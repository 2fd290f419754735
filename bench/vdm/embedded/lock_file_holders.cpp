#include "vdm/embedded/lock_file_holders.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <fstream>
#include <sstream>

#include "vdm/commit_origin.h"

namespace vanzet::vdm {
namespace {

namespace fs = std::filesystem;

/// Whether any other open file has a lock on this one.
bool IsLocked(const fs::path& lockFile) {
  const int descriptor = open(lockFile.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return false;
  struct flock range = {};
  range.l_type = F_WRLCK;
  range.l_whence = SEEK_SET;
  const bool isLocked = fcntl(descriptor, F_OFD_GETLK, &range) == 0 && range.l_type != F_UNLCK;
  close(descriptor);
  return isLocked;
}

bool IsSameFile(const fs::path& descriptor, const struct stat& file) {
  struct stat status = {};
  return stat(descriptor.c_str(), &status) == 0 && status.st_dev == file.st_dev &&
         status.st_ino == file.st_ino;
}

/// The entries of a folder that have a number for a name, such as processes; none of one that cannot be read.
std::vector<fs::path> NumberedIn(const fs::path& folder) {
  std::vector<fs::path> numbered;
  std::error_code error;
  for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error)) {
    const std::string name = each->path().filename();
    if (std::ranges::all_of(name, [](char c) { return c >= '0' && c <= '9'; }))
      numbered.push_back(each->path());
  }
  return numbered;
}

std::string UserOf(const fs::path& process) {
  struct stat status = {};
  std::array<char, 4096> buffer = {};
  passwd entry = {};
  passwd* found = nullptr;
  if (stat(process.c_str(), &status) != 0) return "?";
  const bool isKnown =
      getpwuid_r(status.st_uid, &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr;
  return isKnown ? found->pw_name : std::to_string(status.st_uid);
}

/// The seconds since 1970 at which the machine started; 0: not known.
std::time_t StartOfMachine() {
  std::ifstream file("/proc/stat");
  for (std::string word; file >> word;) {
    std::time_t seconds = 0;
    if (word == "btime" && file >> seconds) return seconds;
  }
  return 0;
}

/// The time at which a process started; empty when it is not known.
std::string StartOf(const fs::path& process) {
  constexpr int kFieldsBetween = 19;  // from the state, which follows the name in brackets, to the start
  std::ifstream file(process / "stat");
  std::string line;
  std::getline(file, line);
  std::istringstream fields(line.substr(std::min(line.rfind(')') + 1, line.size())));
  std::string skipped;
  for (int i = 0; i < kFieldsBetween; ++i) fields >> skipped;
  std::time_t ticks = 0;
  const std::time_t machine = StartOfMachine();
  if (!(fields >> ticks) || machine == 0) return {};
  const std::time_t start = machine + ticks / sysconf(_SC_CLK_TCK);
  std::tm parts = {};
  std::array<char, 32> text = {};
  gmtime_r(&start, &parts);
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

/// The bytes that a descriptor has locked: the numbers of VDMs, and one above them for the project.
std::vector<std::int64_t> LockedBy(const fs::path& info) {
  std::vector<std::int64_t> locked;
  std::ifstream file(info);
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    std::string name, number, kind, advisory, mode, owner, inode;
    std::int64_t first = 0;
    if (words >> name >> number >> kind >> advisory >> mode >> owner >> inode >> first && name == "lock:")
      locked.push_back(first);
  }
  return locked;
}

void AddHolders(const fs::path& process, const struct stat& lockFile, std::vector<LockHolder>& holders) {
  for (const fs::path& descriptor : NumberedIn(process / "fd")) {
    if (!IsSameFile(descriptor, lockFile)) continue;
    const std::string who = UserOf(process) + "@" + OriginOfProcess().host;
    for (const std::int64_t place : LockedBy(process / "fdinfo" / descriptor.filename())) {
      LockHolder& holder = holders.emplace_back(LockHolder{{}, who, StartOf(process)});
      if (const auto number = NumberFrom(place)) holder.vdm = *number;
    }
  }
}

}  // namespace

std::vector<LockHolder> HoldersOf(const fs::path& lockFile) {
  struct stat status = {};
  std::vector<LockHolder> holders;
  if (stat(lockFile.c_str(), &status) != 0 || !IsLocked(lockFile)) return holders;
  const fs::path own = fs::path("/proc") / std::to_string(getpid());
  for (const fs::path& process : NumberedIn("/proc")) {
    if (process != own) AddHolders(process, status, holders);
  }
  std::ranges::stable_sort(holders, {}, [](const LockHolder& holder) {
    return holder.vdm ? static_cast<std::int64_t>(*holder.vdm) : INT64_MAX;
  });
  // Those of other users can be hidden.
  if (holders.empty() && IsLocked(lockFile)) holders.push_back({{}, "?@" + OriginOfProcess().host});
  return holders;
}

}  // namespace vanzet::vdm
