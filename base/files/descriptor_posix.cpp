#include "base/files/descriptor_posix.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace vanzet::files {

namespace fs = std::filesystem;

Descriptor::Descriptor(const fs::path& file, int flags, mode_t mode)
    : number_(open(file.c_str(), flags | O_CLOEXEC, mode)) {}

Descriptor::~Descriptor() {
  if (number_ >= 0) close(number_);
}

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  std::swap(number_, other.number_);
  return *this;
}

bool Descriptor::Write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t written = write(number_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool Descriptor::ReplaceContent(std::string_view bytes) const {
  struct stat old = {};
  if (fstat(number_, &old) != 0) return false;
  const auto size = static_cast<off_t>(bytes.size());
  const int refusal = size > old.st_size ? posix_fallocate(number_, 0, size) : 0;
  if (refusal != 0) {
    static_cast<void>(!ftruncate(number_, old.st_size));  // the first failure is the one to report
    errno = refusal;
    return false;
  }
  return Write(bytes) && ftruncate(number_, size) == 0 && Sync();
}

bool Descriptor::Sync() const {
  return fsync(number_) == 0;
}

bool Descriptor::TryLock() const {
  return flock(number_, LOCK_EX | LOCK_NB) == 0;
}

bool SyncFolder(const fs::path& folder) {
  const Descriptor opened(folder.empty() ? fs::path(".") : folder, O_RDONLY | O_DIRECTORY);
  if (!opened) return errno == EACCES;
  return opened.Sync() || errno == EINVAL;
}

}  // namespace vanzet::files
