#include "base/files/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "base/files/read_only.h"
#include "base/files/system_reason.h"

namespace vanzet::files {
namespace {

constexpr std::size_t kPendingLimit = 1 << 16;

Fault CannotBeWritten(const std::filesystem::path& file, int error) {
  return {"cannot be written: " + SystemReason(error), file.string()};
}

/// Puts the folder's entries on the disk: until then a rename can be undone by a power failure.
bool SyncFolder(const std::filesystem::path& folder) {
  const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return false;
  const bool done = fsync(descriptor) == 0;
  close(descriptor);
  return done;
}

}  // namespace

Result<FileReplacement> FileReplacement::Begin(const std::filesystem::path& file) {
  struct stat old = {};
  const bool isThere = stat(file.c_str(), &old) == 0;
  if (isThere && !S_ISREG(old.st_mode)) return Fault{"is no regular file", file.string()};
  // A link stays one: what it leads to is replaced.
  std::error_code failure;
  std::filesystem::path target = isThere ? std::filesystem::canonical(file, failure) : file;
  if (failure) return CannotBeWritten(file, failure.value());
  if (IsReadOnly(target)) return Fault{"is read-only", file.string()};
  std::filesystem::path beside = target;
  beside += ".new-" + std::to_string(getpid());
  const int descriptor = open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (descriptor < 0) return CannotBeWritten(file, errno);
  FileReplacement replacement(std::move(target), std::move(beside), descriptor);
  if (isThere && fchmod(descriptor, old.st_mode & 07777) != 0) return CannotBeWritten(file, errno);
  return replacement;
}

FileReplacement::FileReplacement(FileReplacement&& other) noexcept
    : file_(std::move(other.file_)),
      beside_(std::exchange(other.beside_, {})),
      descriptor_(std::exchange(other.descriptor_, -1)),
      pending_(std::move(other.pending_)) {}

FileReplacement::~FileReplacement() {
  if (descriptor_ >= 0) close(descriptor_);
  if (!beside_.empty()) unlink(beside_.c_str());
}

Result<void> FileReplacement::Write(std::string_view bytes) {
  pending_.append(bytes);
  if (pending_.size() < kPendingLimit) return {};
  return Flush();
}

Result<void> FileReplacement::Commit() {
  if (const auto flushed = Flush(); !flushed) return flushed.fault();
  if (fsync(descriptor_) != 0) return CannotBeWritten(file_, errno);
  if (rename(beside_.c_str(), file_.c_str()) != 0) return CannotBeWritten(file_, errno);
  beside_.clear();
  if (!SyncFolder(file_.parent_path())) return CannotBeWritten(file_, errno);
  return {};
}

Result<void> FileReplacement::Flush() {
  for (std::string_view rest = pending_; !rest.empty();) {
    const ssize_t written = write(descriptor_, rest.data(), rest.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return CannotBeWritten(file_, errno);
    rest.remove_prefix(static_cast<std::size_t>(written));
  }
  pending_.clear();
  return {};
}

}  // namespace vanzet::files
