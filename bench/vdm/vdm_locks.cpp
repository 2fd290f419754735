#include "vdm/vdm_locks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/files/system_fault.h"
#include "base/files/whole_file.h"

namespace vanzet::vdm {
namespace {

/// The byte of the lock file that represents a VDM.
struct flock ByteOf(Number number, short type) {
  struct flock byte = {};
  byte.l_type = type;
  byte.l_whence = SEEK_SET;
  byte.l_start = static_cast<off_t>(number);
  byte.l_len = 1;
  return byte;
}

/// Asks the kernel whether another open file holds the byte: 0 or 1, and below 0 when the call fails.
int HeldByOthers(int descriptor, Number number) {
  struct flock byte = ByteOf(number, F_WRLCK);
  if (fcntl(descriptor, F_OFD_GETLK, &byte) != 0) return -1;
  return byte.l_type == F_UNLCK ? 0 : 1;
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
  if (descriptor_ >= 0) close(descriptor_);
}

Result<VdmLocks::Held> VdmLocks::Acquire(Number number) {
  VANZET_DO(OpenForLocking());
  struct flock byte = ByteOf(number, F_WRLCK);
  if (fcntl(descriptor_, F_OFD_SETLK, &byte) == 0) return Held(*this, number);
  if (errno == EAGAIN || errno == EACCES) {
    return Fault{.text = NameOf(number) + " is open elsewhere", .kind = FaultKind::kBusy};
  }
  return FaultOf(errno);
}

Result<bool> VdmLocks::IsHeldElsewhere(Number number) const {
  const int asked = descriptor_ >= 0 ? descriptor_ : OpenRegular(file_, O_RDONLY);
  if (asked < 0 && errno == ENOENT) return false;
  const int held = asked < 0 ? -1 : HeldByOthers(asked, number);
  const int error = errno;
  if (asked >= 0 && asked != descriptor_) close(asked);
  if (held < 0) return FaultOf(error);
  return held == 1;
}

Result<void> VdmLocks::OpenForLocking() {
  if (descriptor_ >= 0) return {};
  if (files::IsReadOnly(file_))
    return Fault{.text = "is read-only", .file = file_.string(), .kind = FaultKind::kSystem};
  descriptor_ = OpenRegular(file_, O_RDWR | O_CREAT);
  if (descriptor_ < 0) return FaultOf(errno);
  return {};
}

void VdmLocks::Release(Number number) {
  struct flock byte = ByteOf(number, F_UNLCK);
  // It fails only on a descriptor that is not open, and then nothing is locked.
  fcntl(descriptor_, F_OFD_SETLK, &byte);
}

Fault VdmLocks::FaultOf(int error) const {
  return files::SystemFault("cannot be locked", error, file_);
}

}  // namespace vanzet::vdm
