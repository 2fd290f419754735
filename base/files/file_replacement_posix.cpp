#include <sys/stat.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "base/files/neighbour_posix.h"
#include "base/files/system_fault.h"
#include "base/files/whole_file.h"

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPendingLimit = 1 << 16;
constexpr mode_t kPermissions = 07777;

Fault CannotBeWritten(const fs::path& file, int error) {
  return SystemFault("cannot be written", error, file);
}

}  // namespace

Result<FileReplacement> FileReplacement::Begin(const fs::path& file) {
  struct stat old = {};
  const bool exists = stat(file.c_str(), &old) == 0;
  if (exists && !S_ISREG(old.st_mode)) return Fault{"is not a regular file", file.string()};
  std::error_code failure;
  fs::path target = exists ? fs::canonical(file, failure) : file;
  if (failure) return CannotBeWritten(file, failure.value());
  if (IsReadOnly(target)) {
    return Fault{.text = "is read-only", .file = file.string(), .kind = FaultKind::kSystem};
  }
  auto content = std::make_unique<Neighbour>(Neighbour::OfThisProcess(std::move(target)));
  if (!*content) return CannotBeWritten(file, errno);
  if (exists && fchmod(content->descriptor().number(), old.st_mode & kPermissions) != 0) {
    return CannotBeWritten(file, errno);
  }
  return FileReplacement(std::move(content));
}

FileReplacement::FileReplacement(std::unique_ptr<Neighbour> content) : content_(std::move(content)) {}
FileReplacement::FileReplacement(FileReplacement&& other) noexcept = default;
FileReplacement::~FileReplacement() = default;

Result<void> FileReplacement::Write(std::string_view bytes) {
  pending_.append(bytes);
  if (pending_.size() < kPendingLimit) return {};
  return Flush();
}

Result<void> FileReplacement::Commit() {
  VANZET_DO(Flush());
  const fs::path& file = content_->target();
  if (!content_->TakeNameOfTarget() || !SyncFolder(file.parent_path())) return CannotBeWritten(file, errno);
  return {};
}

Result<void> FileReplacement::Flush() {
  if (!content_->descriptor().Write(pending_)) return CannotBeWritten(content_->target(), errno);
  pending_.clear();
  return {};
}

Result<void> ReplaceFile(const fs::path& file, std::string_view bytes) {
  VANZET_TRY(auto replacement, FileReplacement::Begin(file));
  VANZET_DO(replacement.Write(bytes));
  return replacement.Commit();
}

}  // namespace vanzet::files
