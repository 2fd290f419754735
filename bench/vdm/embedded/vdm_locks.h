#pragma once

#include <filesystem>

#include "vdm/store_locks.h"

namespace vanzet::vdm {

/// The locks of a project folder: one lock file, one byte for each number, and one for the project.
///
/// The kernel holds the locks. The file has no content; it must not be moved while any process has a VDM
/// open. The first lock creates it.
///
/// Threads  one; a child process made by a fork shares the locks of its parent
/// Source   docs/formats/store.md
class VdmLocks : public StoreLocks {
 public:
  explicit VdmLocks(std::filesystem::path file) : file_(std::move(file)) {}
  ~VdmLocks() override;

  Result<Held> Acquire(Number number) override;
  Result<Held> AcquireProject(std::chrono::milliseconds longestWait) override;
  Result<void> Check() override { return OpenForLocking(); }
  void RemoveOwnFile() override;
  Result<bool> IsHeldElsewhere(Number number) const override;

 private:
  Result<void> OpenForLocking();
  Result<void> LockProject(std::chrono::steady_clock::time_point end) const;
  /// False when the file was taken away after it was opened: others lock another one.
  bool IsInPlace() const;
  void Close();
  /// False, with the system's reason in `errno`, when another process holds it.
  bool Lock(std::int64_t byte) const;
  void Release(std::int64_t byte) override;
  Fault FaultOf(int error) const;

  std::filesystem::path file_;
  int descriptor_ = -1;      ///< of the lock file, which holds the locks; below 0 until the first lock
  bool hasCreated_ = false;  ///< the file did not exist before
};

}  // namespace vanzet::vdm
