#include "base/files/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "base/files/neighbour_posix.h"

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t kPermissions = 07777;
constexpr mode_t kNewFile = 0666;

/// Gives the new file the owner and the permissions of the old one. Returns false when that is not allowed.
bool CopyOwnerAndPermissions(const struct stat& old, const Descriptor& file) {
  struct stat made = {};
  if (fstat(file.number(), &made) != 0) return false;
  const bool isOfSameOwner = made.st_uid == old.st_uid && made.st_gid == old.st_gid;
  if (!isOfSameOwner && fchown(file.number(), old.st_uid, old.st_gid) != 0) return false;
  return fchmod(file.number(), old.st_mode & kPermissions) == 0;
}

bool WriteAndRename(Neighbour& content, std::string_view bytes) {
  if (!content.descriptor().Write(bytes) || !content.TakeNameOfTarget()) return false;
  // Where the folder cannot be put on the disk, the content is complete all the same.
  static_cast<void>(SyncFolder(content.target().parent_path()));
  return true;
}

/// Reserves the room first, so that a full disk leaves the old content. Requires: open for writing.
bool WriteInPlace(const Descriptor& file, std::string_view bytes) {
  struct stat old = {};
  if (fstat(file.number(), &old) != 0) return false;
  const auto size = static_cast<off_t>(bytes.size());
  if (size > old.st_size && posix_fallocate(file.number(), 0, size) != 0) {
    static_cast<void>(ftruncate(file.number(), old.st_size));
    return false;
  }
  return file.Write(bytes) && ftruncate(file.number(), size) == 0 && file.Sync();
}

/// True when a new file can replace this one: it has no second name and no access list to lose.
bool CanBeReplaced(const fs::path& file, const struct stat& old) {
  return old.st_nlink == 1 && getxattr(file.c_str(), "system.posix_acl_access", nullptr, 0) <= 0;
}

bool WriteNewFile(const fs::path& file, std::string_view bytes) {
  std::error_code unknown;
  if (!fs::is_symlink(fs::symlink_status(file, unknown))) {
    Neighbour content = Neighbour::Unique(file);
    if (content) return WriteAndRename(content, bytes);
  }
  // A link whose target does not exist yet, or a name too long for a longer one next to it.
  const Descriptor made(file, O_RDWR | O_CREAT, kNewFile);
  if (!made) return false;
  const bool isWritten = WriteInPlace(made, bytes);
  if (!isWritten) fs::remove(fs::weakly_canonical(file, unknown), unknown);
  return isWritten;
}

bool WriteOldFile(const fs::path& file, const struct stat& old, std::string_view bytes) {
  const Descriptor opened(file, O_RDWR);
  if (!opened) return false;
  std::error_code unknown;
  const fs::path target = fs::canonical(file, unknown);
  if (!unknown && CanBeReplaced(target, old)) {
    Neighbour content = Neighbour::Unique(target);
    if (content && CopyOwnerAndPermissions(old, content.descriptor())) return WriteAndRename(content, bytes);
  }
  return WriteInPlace(opened, bytes);
}

}  // namespace

bool IsReadOnly(const fs::path& file) {
  const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
  for (const fs::path& path : {file, folder}) {
    struct stat status = {};
    if (stat(path.c_str(), &status) == 0 && (status.st_mode & kAnyWrite) == 0) return true;
  }
  return false;
}

bool IsChangeableFile(const fs::path& file) {
  struct stat status = {};
  if (stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  return (status.st_mode & kAnyWrite) != 0 && Descriptor(file, O_RDWR);
}

bool WriteWholeFile(const fs::path& file, std::string_view bytes) {
  struct stat old = {};
  if (stat(file.c_str(), &old) == 0) return IsChangeableFile(file) && WriteOldFile(file, old, bytes);
  return errno == ENOENT && WriteNewFile(file, bytes);
}

}  // namespace vanzet::files
