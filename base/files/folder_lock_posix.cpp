#include "base/files/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

#include "base/files/system_fault.h"

namespace vanzet::files {
namespace {

constexpr std::chrono::milliseconds kStep{5};
constexpr std::chrono::seconds kLongestWait{10};

}  // namespace

std::filesystem::path LockedFolderOf(const std::filesystem::path& file) {
  std::error_code unknown;
  const std::filesystem::path target = std::filesystem::weakly_canonical(file, unknown);
  return (unknown ? file : target).parent_path();
}

Result<FolderLock> FolderLock::TryAcquire(const std::filesystem::path& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return SystemFault("cannot be locked", errno, folder);
  FolderLock lock(descriptor);
  if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) return lock;
  if (errno != EWOULDBLOCK && errno != EINTR) return SystemFault("cannot be locked", errno, folder);
  return Fault{
      .text = "another process keeps its files locked", .file = folder.string(), .kind = FaultKind::kBusy};
}

Result<FolderLock> FolderLock::Acquire(const std::filesystem::path& folder) {
  const auto end = std::chrono::steady_clock::now() + kLongestWait;
  while (true) {
    auto lock = TryAcquire(folder);
    const bool isHeld = !lock && lock.fault().kind == FaultKind::kBusy;
    if (!isHeld || std::chrono::steady_clock::now() > end) return lock;
    std::this_thread::sleep_for(kStep);
  }
}

FolderLock::~FolderLock() {
  if (handle_ >= 0) close(static_cast<int>(handle_));
}

FolderLock::FolderLock(FolderLock&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}

}  // namespace vanzet::files
