#pragma once

#include <filesystem>

#include "base/result.h"

namespace vanzet::files {

/// Keeps other processes from changing the text files of a folder while this one reads one, changes it and
/// writes it anew. The kernel keeps the lock and drops it with the process, so nothing is left to clean up.
///
/// Errors   a fault with the folder's name: it cannot be locked, or others kept it for 10 seconds
/// Threads  one; a process that takes a lock twice waits for itself
class FolderLock {
 public:
  /// Waits until nobody else has the lock.
  static Result<FolderLock> Take(const std::filesystem::path& folder);
  ~FolderLock();
  FolderLock(FolderLock&& other) noexcept;
  FolderLock& operator=(FolderLock&&) = delete;

 private:
  explicit FolderLock(int descriptor) : descriptor_(descriptor) {}

  int descriptor_;  ///< below 0: moved away
};

}  // namespace vanzet::files
