#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

#include "base/files/whole_file.h"

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t kPermissions = 07777;
constexpr mode_t kNewFile = 0666;

/// An open file; closed when it goes.
class Descriptor {
 public:
  Descriptor(const fs::path& file, int flags, mode_t mode = 0)
      : number_(open(file.c_str(), flags | O_CLOEXEC, mode)) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  explicit Descriptor(int number) : number_(number) {}

  explicit operator bool() const { return number_ >= 0; }
  int number() const { return number_; }

  /// True when all bytes are written and on the disk.
  bool Write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = write(number_, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return fsync(number_) == 0;
  }

 private:
  int number_;
};

/// Puts the folder's entries on the disk: until then a power failure can undo a rename. Where that cannot be
/// asked for there is nothing to be done about it.
void SyncFolder(const fs::path& folder) {
  const Descriptor opened(folder.empty() ? fs::path(".") : folder, O_RDONLY | O_DIRECTORY);
  if (opened) static_cast<void>(fsync(opened.number()));
}

/// The new content on its way: a file beside the one that it is for.
class NewFile {
 public:
  explicit NewFile(const fs::path& target)
      : target_(target),
        beside_(target.string() + ".new-XXXXXX"),
        descriptor_(mkostemp(beside_.data(), O_CLOEXEC)),
        isThere_(descriptor_ && fchmod(descriptor_.number(), kNewFile & ~Mask()) == 0) {}
  ~NewFile() {
    if (descriptor_ && !isNamed_) unlink(beside_.c_str());
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  explicit operator bool() const { return isThere_; }

  /// Gives it the owner and the permissions of the old file. False when that is not allowed.
  bool TakeAfter(const struct stat& old) const {
    struct stat made = {};
    if (fstat(descriptor_.number(), &made) != 0) return false;
    const bool isOfSameOwner = made.st_uid == old.st_uid && made.st_gid == old.st_gid;
    if (!isOfSameOwner && fchown(descriptor_.number(), old.st_uid, old.st_gid) != 0) return false;
    return fchmod(descriptor_.number(), old.st_mode & kPermissions) == 0;
  }

  /// Writes the bytes and gives the file its name.
  bool Become(std::string_view bytes) {
    if (!descriptor_.Write(bytes) || rename(beside_.c_str(), target_.c_str()) != 0) return false;
    isNamed_ = true;
    SyncFolder(target_.parent_path());
    return true;
  }

 private:
  /// What the process takes away from the permissions of new files.
  static mode_t Mask() {
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
  }

  fs::path target_;
  std::string beside_;  ///< a name that nobody else has, here or on another machine
  Descriptor descriptor_;
  bool isThere_;
  bool isNamed_ = false;
};

/// Requires: open for writing. Takes the room first, so that a full disk leaves the old content.
bool WriteInPlace(const Descriptor& file, std::string_view bytes) {
  struct stat old = {};
  if (fstat(file.number(), &old) != 0) return false;
  const auto size = static_cast<off_t>(bytes.size());
  if (size > old.st_size && posix_fallocate(file.number(), 0, size) != 0) {
    static_cast<void>(ftruncate(file.number(), old.st_size));
    return false;
  }
  return file.Write(bytes) && ftruncate(file.number(), size) == 0 && fsync(file.number()) == 0;
}

/// True when a new file can take the place of this one without anybody losing sight of it, or rights to it.
bool CanBeReplaced(const fs::path& file, const struct stat& old) {
  return old.st_nlink == 1 && getxattr(file.c_str(), "system.posix_acl_access", nullptr, 0) <= 0;
}

bool WriteMissing(const fs::path& file, std::string_view bytes) {
  std::error_code unknown;
  if (!fs::is_symlink(fs::symlink_status(file, unknown))) {
    NewFile made(file);
    if (made) return made.Become(bytes);
  }
  // A link that leads nowhere yet, or a name too long to have another beside it.
  const Descriptor made(file, O_RDWR | O_CREAT, kNewFile);
  if (!made) return false;
  const bool isWritten = WriteInPlace(made, bytes);
  if (!isWritten) fs::remove(fs::weakly_canonical(file, unknown), unknown);
  return isWritten;
}

bool WriteOld(const fs::path& file, const struct stat& old, std::string_view bytes) {
  const Descriptor opened(file, O_RDWR);
  if (!opened) return false;
  std::error_code unknown;
  const fs::path target = fs::canonical(file, unknown);
  if (!unknown && CanBeReplaced(target, old)) {
    NewFile made(target);
    if (made && made.TakeAfter(old)) return made.Become(bytes);
  }
  return WriteInPlace(opened, bytes);
}

}  // namespace

bool IsChangeableFile(const fs::path& file) {
  struct stat status = {};
  if (stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  return (status.st_mode & kAnyWrite) != 0 && Descriptor(file, O_RDWR);
}

bool WriteWholeFile(const fs::path& file, std::string_view bytes) {
  struct stat old = {};
  if (stat(file.c_str(), &old) == 0) return IsChangeableFile(file) && WriteOld(file, old, bytes);
  return errno == ENOENT && WriteMissing(file, bytes);
}

}  // namespace vanzet::files
