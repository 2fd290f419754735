#include "project/run_folder.h"

#include <unistd.h>

#include <string>
#include <system_error>

#include "base/files/system_fault.h"
#include "project/litter.h"

namespace vanzet::project {
namespace {

namespace fs = std::filesystem;

constexpr int kAttempts = 1000;

}  // namespace

RunFolder::~RunFolder() {
  std::error_code ignored;
  if (!made_.empty() && !isKept_) fs::remove_all(made_, ignored);
}

Result<fs::path> RunFolder::Path() {
  if (!made_.empty()) return made_;
  RemoveLitter(project_);
  const fs::path first = project_ / "tmp" / ((isKept_ ? "kept-" : "") + std::to_string(getpid()));
  std::error_code error;
  fs::create_directories(first.parent_path(), error);
  for (int attempt = 0; !error && attempt < kAttempts; ++attempt) {
    const fs::path folder = attempt == 0 ? first : fs::path(first.string() + "-" + std::to_string(attempt));
    if (!fs::create_directory(folder, error)) continue;
    auto lock = files::FolderLock::TryAcquire(folder);
    // Another run that looks for litter may have found the folder before it was locked, and removes it.
    const bool isLost = !lock && lock.fault().kind == FaultKind::kBusy;
    if (isLost || !fs::exists(folder, error)) continue;
    // A file system that cannot lock a folder refuses those who look for litter, too.
    if (lock) lock_.emplace(*std::move(lock));
    made_ = folder;
    return made_;
  }
  if (!error) error = std::make_error_code(std::errc::file_exists);
  return files::SystemFault("cannot be created", error, first);
}

}  // namespace vanzet::project
