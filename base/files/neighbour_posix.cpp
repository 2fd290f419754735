#include "base/files/neighbour_posix.h"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

#include "base/files/whole_file.h"

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kNewFile = 0666;
constexpr std::size_t kLongestName = 255;
constexpr int kAttempts = 100;

constexpr std::string_view kMark = ".new-";
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kCapitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kSmall = "abcdefghijklmnopqrstuvwxyz";

/// The characters of the six places. No word has this form, so that a file of the user's such as
/// "plan.new-layout" is never taken for one that was left over.
constexpr std::string_view kPlaces[] = {kDigits, kCapitals, kSmall, kDigits, kCapitals, kSmall};

/// A name next to the target that nobody can guess.
fs::path NameBeside(const fs::path& target) {
  unsigned char random[std::size(kPlaces)] = {};
  // Without random bytes the name can be guessed, but it is never opened when it exists.
  static_cast<void>(!getrandom(random, sizeof random, 0));
  std::string end(kMark);
  for (std::size_t i = 0; i < std::size(kPlaces); ++i) end += kPlaces[i][random[i] % kPlaces[i].size()];
  return target.parent_path() / (target.filename().string().substr(0, kLongestName - end.size()) + end);
}

bool IsNameOfNeighbour(std::string_view name) {
  const std::size_t length = kMark.size() + std::size(kPlaces);
  if (name.size() <= length || !name.substr(name.size() - length).starts_with(kMark)) return false;
  name.remove_prefix(name.size() - std::size(kPlaces));
  for (std::size_t i = 0; i < std::size(kPlaces); ++i) {
    if (kPlaces[i].find(name[i]) == std::string_view::npos) return false;
  }
  return true;
}

/// The path by which the system knows the open file, whatever its name.
std::string PathOfOpenFile(const Descriptor& file) {
  return "/proc/self/fd/" + std::to_string(file.number());
}

/// True when the name still leads to the open file.
bool IsNameOf(const fs::path& path, const Descriptor& file) {
  struct stat named = {}, opened = {};
  return lstat(path.c_str(), &named) == 0 && fstat(file.number(), &opened) == 0 &&
         named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
}

/// Without O_NONBLOCK a pipe of that name would wait for a writer.
void RemoveIfLeft(const fs::path& path) {
  std::error_code unknown;
  if (!fs::is_regular_file(fs::symlink_status(path, unknown))) return;
  const Descriptor file(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
  if (file && file.TryLock() && IsNameOf(path, file)) unlink(path.c_str());
}

}  // namespace

Neighbour Neighbour::Of(const fs::path& target) {
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  Descriptor nameless(folder, O_TMPFILE | O_WRONLY, kNewFile);
  // The name is given through the list of open files, which a process in a cage may lack.
  if (!nameless || access(PathOfOpenFile(nameless).c_str(), F_OK) != 0) return WithName(target);
  static_cast<void>(nameless.TryLock());
  return Neighbour(target, {}, std::move(nameless));
}

Neighbour Neighbour::WithName(const fs::path& target) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    fs::path path = NameBeside(target);
    Descriptor made(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, kNewFile);
    if (!made && errno == EEXIST) continue;
    if (!made) return Neighbour(target, {}, std::move(made));
    Neighbour neighbour(target, std::move(path), std::move(made));
    // Somebody who looks for left files may have found this one before it was locked, and deletes it.
    const bool isLocked = neighbour.descriptor_.TryLock() || errno != EWOULDBLOCK;
    if (isLocked && IsNameOf(neighbour.path_, neighbour.descriptor_)) return neighbour;
  }
  errno = EEXIST;
  return Neighbour(target, {}, Descriptor(-1));
}

Neighbour::Neighbour(fs::path target, fs::path path, Descriptor descriptor)
    : target_(std::move(target)), path_(std::move(path)), descriptor_(std::move(descriptor)) {}

Neighbour::Neighbour(Neighbour&& other) noexcept
    : target_(std::move(other.target_)),
      path_(std::exchange(other.path_, {})),
      descriptor_(std::move(other.descriptor_)) {}

Neighbour::~Neighbour() {
  if (!path_.empty()) unlink(path_.c_str());
}

bool Neighbour::TakeNameOfTarget() {
  if (!descriptor_.Sync() || (path_.empty() && !TakeSomeName())) return false;
  if (rename(path_.c_str(), target_.c_str()) != 0) return false;
  path_.clear();
  return true;
}

/// No call of the system gives a nameless file a name that is in use, so it takes a free one first.
bool Neighbour::TakeSomeName() {
  const std::string opened = PathOfOpenFile(descriptor_);
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    fs::path path = NameBeside(target_);
    if (linkat(AT_FDCWD, opened.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0) {
      path_ = std::move(path);
      return true;
    }
    if (errno != EEXIST) return false;
  }
  return false;
}

void RemoveLeftovers(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    if (IsNameOfNeighbour(entry->path().filename().string())) RemoveIfLeft(entry->path());
  }
}

}  // namespace vanzet::files
