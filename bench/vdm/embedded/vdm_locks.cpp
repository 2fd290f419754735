#include "vdm/embedded/vdm_locks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <thread>

#include "base/files/system_fault.h"
#include "base/files/whole_file.h"

namespace vanzet::vdm {
namespace {

constexpr std::chrono::milliseconds kStep{5};

/// How often a lock is asked for that the system could not grant or refuse at the moment.
constexpr int kAttempts = 20;

struct flock RangeOf(std::int64_t byte, short type) {
  struct flock range = {};
  range.l_type = type;
  range.l_whence = SEEK_SET;
  range.l_start = static_cast<off_t>(byte);
  range.l_len = 1;
  return range;
}

/// True when the next attempt may succeed: a signal came in between, or a server of files was short of locks.
bool MayPass(int error) {
  return error == EINTR || error == ENOLCK;
}

bool IsBusy(int error) {
  return error == EAGAIN || error == EACCES;
}

/// Asks the kernel whether another open file holds the byte: 0 or 1, and below 0 when the call fails.
int HeldByOthers(int descriptor, std::int64_t byte) {
  struct flock range = RangeOf(byte, F_WRLCK);
  if (fcntl(descriptor, F_OFD_GETLK, &range) != 0) return -1;
  return range.l_type == F_UNLCK ? 0 : 1;
}

/// Opens the file as `open` does. A pipe, a folder and a device, which could block, fail with EINVAL.
int OpenRegular(const std::filesystem::path& file, int flags) {
  const int descriptor = open(file.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666);
  struct stat status = {};
  if (descriptor < 0 || (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode))) return descriptor;
  close(descriptor);
  errno = EINVAL;
  return -1;
}

}  // namespace

VdmLocks::~VdmLocks() {
  Close();
}

void VdmLocks::Close() {
  if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
}

Result<VdmLocks::Held> VdmLocks::Acquire(Number number) {
  VANZET_DO(OpenForLocking());
  if (Lock(PlaceOf(number))) return Keep(PlaceOf(number));
  if (!IsBusy(errno)) return FaultOf(errno);
  return Fault{.text = NameOf(number) + " is open elsewhere", .kind = FaultKind::kBusy};
}

Result<VdmLocks::Held> VdmLocks::AcquireProject(std::chrono::milliseconds longestWait) {
  const auto end = std::chrono::steady_clock::now() + longestWait;
  while (true) {
    VANZET_DO(OpenForLocking());
    VANZET_DO(LockProject(end));
    if (IsInPlace()) return Keep(kProjectPlace);
    Close();
  }
}

Result<void> VdmLocks::LockProject(std::chrono::steady_clock::time_point end) const {
  while (!Lock(kProjectPlace)) {
    if (!IsBusy(errno)) return FaultOf(errno);
    if (std::chrono::steady_clock::now() >= end) {
      return Fault{.text = "another process is changing the project",
                   .file = file_.parent_path().string(),
                   .kind = FaultKind::kBusy};
    }
    std::this_thread::sleep_for(kStep);
  }
  return {};
}

bool VdmLocks::IsInPlace() const {
  struct stat status = {};
  return descriptor_ >= 0 && (fstat(descriptor_, &status) != 0 || status.st_nlink > 0);
}

void VdmLocks::RemoveOwnFile() {
  if (!hasCreated_) return;
  // A lock on all bytes: the kernel grants it when nobody else has one.
  struct flock all = RangeOf(0, F_WRLCK);
  all.l_len = 0;
  if (fcntl(descriptor_, F_OFD_SETLK, &all) != 0) return;
  std::error_code stays;
  std::filesystem::remove(file_, stays);
}

Result<bool> VdmLocks::IsHeldElsewhere(Number number) const {
  const int asked = IsInPlace() ? descriptor_ : OpenRegular(file_, O_RDONLY);
  if (asked < 0 && errno == ENOENT) return false;
  const int held = asked < 0 ? -1 : HeldByOthers(asked, PlaceOf(number));
  const int error = errno;
  if (asked >= 0 && asked != descriptor_) close(asked);
  if (held < 0) return FaultOf(error);
  return held == 1;
}

Result<void> VdmLocks::OpenForLocking() {
  if (descriptor_ >= 0) return {};
  if (files::IsReadOnly(file_))
    return Fault{.text = "is read-only", .file = file_.string(), .kind = FaultKind::kSystem};
  descriptor_ = OpenRegular(file_, O_RDWR | O_CREAT | O_EXCL);
  hasCreated_ = descriptor_ >= 0;
  if (!hasCreated_ && errno == EEXIST) descriptor_ = OpenRegular(file_, O_RDWR | O_CREAT);
  if (descriptor_ < 0) return FaultOf(errno);
  return {};
}

bool VdmLocks::Lock(std::int64_t byte) const {
  struct flock range = RangeOf(byte, F_WRLCK);
  for (int attempt = 1; fcntl(descriptor_, F_OFD_SETLK, &range) != 0; ++attempt) {
    if (attempt == kAttempts || !MayPass(errno)) return false;
    std::this_thread::sleep_for(kStep);
  }
  return true;
}

void VdmLocks::Release(std::int64_t byte) {
  struct flock range = RangeOf(byte, F_UNLCK);
  // It fails only on a descriptor that is not open, and then nothing is locked.
  fcntl(descriptor_, F_OFD_SETLK, &range);
}

Fault VdmLocks::FaultOf(int error) const {
  return files::SystemFault("cannot be locked", error, file_);
}

}  // namespace vanzet::vdm
