#include "base/files/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <system_error>
#include <utility>

#include "base/files/neighbour_posix.h"
#include "base/files/regular_file.h"
#include "base/files/system_fault.h"

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPendingLimit = 1 << 16;
constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t kPermissions = 07777;
constexpr int kMostLinks = 40;

Fault CannotBeWritten(const fs::path& file, int error) {
  return SystemFault("cannot be written", error, file);
}

Fault ReadOnly(const fs::path& file) {
  return {.text = "is read-only", .file = file.string(), .kind = FaultKind::kSystem};
}

/// The file that links lead to, which need not exist.
fs::path BehindLinks(fs::path file) {
  std::error_code unknown;
  for (int i = 0; i < kMostLinks && fs::is_symlink(fs::symlink_status(file, unknown)); ++i) {
    file = file.parent_path() / fs::read_symlink(file, unknown);
  }
  return file;
}

bool HasNoWriteBit(const fs::path& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && (status.st_mode & kAnyWrite) == 0;
}

/// True when a new file can replace this one: it has no second name and no access list to lose.
bool CanBeReplaced(const fs::path& file, const struct stat& old) {
  return old.st_nlink == 1 && getxattr(file.c_str(), "system.posix_acl_access", nullptr, 0) <= 0;
}

/// Gives the new file the permissions of the old one, and its owner if that stays.
bool TakeOver(const struct stat& old, const Descriptor& file, Keep keep) {
  struct stat made = {};
  if (fstat(file.number(), &made) != 0) return false;
  const bool isOfSameOwner = made.st_uid == old.st_uid && made.st_gid == old.st_gid;
  const bool needsOwner = keep == Keep::kIdentity && !isOfSameOwner;
  if (needsOwner && fchown(file.number(), old.st_uid, old.st_gid) != 0) return false;
  return fchmod(file.number(), old.st_mode & kPermissions) == 0;
}

/// The status of a file; none, with the reason in `errno`, for one that cannot be reached.
std::optional<struct stat> StatusOf(const fs::path& file) {
  struct stat status = {};
  return stat(file.c_str(), &status) == 0 ? std::optional(status) : std::nullopt;
}

/// Requires: `errno` is that of `StatusOf` where the file does not exist.
Result<void> CheckTarget(const fs::path& file, const fs::path& target, const std::optional<struct stat>& old,
                         Keep keep) {
  if (!old && (errno != ENOENT || !target.has_filename())) return CannotBeWritten(file, errno);
  if (old && !S_ISREG(old->st_mode)) return Fault{"is not a regular file", file.string()};
  if (old && keep == Keep::kIdentity ? !HasNoWriteBit(target) : !IsReadOnly(target)) return {};
  return ReadOnly(file);
}

/// A new file that can take the place of the old one, or null, with the reason in `errno`.
std::unique_ptr<Neighbour> Successor(const fs::path& target, const std::optional<struct stat>& old,
                                     Keep keep) {
  auto content = std::make_unique<Neighbour>(Neighbour::Of(target));
  const bool isUsable = *content && (!old || TakeOver(*old, content->descriptor(), keep));
  return isUsable ? std::move(content) : nullptr;
}

}  // namespace

bool IsReadOnly(const fs::path& file) {
  return HasNoWriteBit(file) || HasNoWriteBit(file.has_parent_path() ? file.parent_path() : fs::path("."));
}

Result<void> CheckChangeableFile(const fs::path& file) {
  VANZET_DO(CheckRegularFile(file));
  if (HasNoWriteBit(file)) return ReadOnly(file);
  const Descriptor opened(file, O_RDWR | O_NONBLOCK);
  return opened ? Result<void>() : CannotBeWritten(file, errno);
}

Result<FileReplacement> FileReplacement::Begin(const fs::path& file, Keep keep) {
  const fs::path target = BehindLinks(file);
  const auto old = StatusOf(target);
  VANZET_DO(CheckTarget(file, target, old, keep));
  const bool mayBeInPlace = old && keep == Keep::kIdentity;
  Descriptor opened = mayBeInPlace ? Descriptor(target, O_RDWR | O_NONBLOCK) : Descriptor(-1);
  if (mayBeInPlace && !opened) return CannotBeWritten(file, errno);
  if (!mayBeInPlace || CanBeReplaced(target, *old)) {
    if (auto content = Successor(target, old, keep)) return FileReplacement(file, std::move(content));
    if (!mayBeInPlace) return CannotBeWritten(file, errno);
  }
  return FileReplacement(file, std::move(opened));
}

FileReplacement::FileReplacement(fs::path file, std::unique_ptr<Neighbour> content)
    : file_(std::move(file)), content_(std::move(content)) {}
FileReplacement::FileReplacement(fs::path file, Descriptor old)
    : file_(std::move(file)), old_(std::make_unique<Descriptor>(std::move(old))) {}
FileReplacement::FileReplacement(FileReplacement&& other) noexcept = default;
FileReplacement::~FileReplacement() = default;

Result<void> FileReplacement::Write(std::string_view bytes) {
  pending_.append(bytes);
  if (content_ == nullptr || pending_.size() < kPendingLimit) return {};
  return Flush();
}

Result<void> FileReplacement::Prepare() {
  if (content_ == nullptr) return {};
  VANZET_DO(Flush());
  return content_->descriptor().Sync() ? Result<void>() : CannotBeWritten(file_, errno);
}

Result<void> FileReplacement::Commit() {
  if (content_ == nullptr) {
    return old_->ReplaceContent(pending_) ? Result<void>() : CannotBeWritten(file_, errno);
  }
  VANZET_DO(Flush());
  const fs::path folder = content_->target().parent_path();
  if (!content_->TakeNameOfTarget() || !SyncFolder(folder)) return CannotBeWritten(file_, errno);
  return {};
}

Result<void> FileReplacement::Flush() {
  if (!content_->descriptor().Write(pending_)) return CannotBeWritten(file_, errno);
  pending_.clear();
  return {};
}

Result<void> ReplaceFile(const fs::path& file, std::string_view bytes, Keep keep) {
  VANZET_TRY(auto replacement, FileReplacement::Begin(file, keep));
  VANZET_DO(replacement.Write(bytes));
  return replacement.Commit();
}

}  // namespace vanzet::files
