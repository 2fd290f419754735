#pragma once

#include <cstdint>
#include <filesystem>

#include "base/result.h"

namespace vanzet::files {

/// Keeps other processes from changing the text files of a folder while this one reads a file, changes it and
/// writes it back. The system holds the lock and releases it with the process, so nothing is left to clean
/// up.
///
/// Errors   a fault with the folder's name: the folder cannot be locked, or another process held the lock for
///          10 seconds (`FaultKind::kBusy`)
/// Threads  one; a process that acquires a lock twice waits for itself
class FolderLock {
 public:
  /// Waits until no other process has the lock.
  static Result<FolderLock> Acquire(const std::filesystem::path& folder);

  /// Fails at once (`FaultKind::kBusy`) when the folder is locked.
  static Result<FolderLock> TryAcquire(const std::filesystem::path& folder);
  ~FolderLock();
  FolderLock(FolderLock&& other) noexcept;
  FolderLock& operator=(FolderLock&&) = delete;

 private:
  explicit FolderLock(std::intptr_t handle) : handle_(handle) {}

  std::intptr_t handle_;  ///< an open file of the system; below 0: moved away
};

/// The folder to lock while a file is changed: the one that it is in, or that of the file that a link leads
/// to.
std::filesystem::path LockedFolderOf(const std::filesystem::path& file);

}  // namespace vanzet::files
