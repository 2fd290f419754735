#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <utility>

#include "vdm/vdm.h"

namespace vanzet::vdm {

/// Locks VDMs, and the project as a whole, for this process against every other: one lock file, one byte for
/// each number, and one for the project.
///
/// The kernel holds the locks and releases them with the process, however it ends, so nothing is left to
/// clean up. The file has no content; it must not be moved while any process has a VDM open.
///
/// Errors   a fault with the name of the lock file, or of the VDM when it is open elsewhere (`kBusy`)
/// Threads  one; a child process made by a fork shares the locks of its parent
/// Source   docs/formats/store.md
class VdmLocks {
 public:
  explicit VdmLocks(std::filesystem::path file) : file_(std::move(file)) {}
  ~VdmLocks();
  VdmLocks(const VdmLocks&) = delete;
  VdmLocks& operator=(const VdmLocks&) = delete;

  /// The lock of one VDM, or of the project; the destructor releases it. `VdmLocks` must outlive it.
  class Held {
   public:
    Held(Held&& other) noexcept : locks_(std::exchange(other.locks_, nullptr)), byte_(other.byte_) {}
    Held& operator=(Held&&) = delete;
    ~Held() {
      if (locks_ != nullptr) locks_->Release(byte_);
    }

    /// Requires: it is the lock of a VDM.
    Number number() const { return Number{static_cast<std::uint32_t>(byte_)}; }

   private:
    friend class VdmLocks;
    Held(VdmLocks& locks, std::int64_t byte) : locks_(&locks), byte_(byte) {}
    VdmLocks* locks_;  ///< null: moved away
    std::int64_t byte_;
  };

  /// Locks the VDM; creates the lock file when it does not exist. Fails when the VDM is open elsewhere.
  /// Requires: this object does not hold its lock.
  Result<Held> Acquire(Number number);

  /// Locks the project against other runs that change it, and waits for them at most so long. Fails with
  /// `kBusy` after that. Requires: this object does not hold the lock.
  Result<Held> AcquireProject(std::chrono::milliseconds longestWait);

  /// Fails when no VDM can be locked; creates the lock file when it does not exist.
  Result<void> Check() { return OpenForLocking(); }

  /// Takes the lock file away when this object created it and nobody else has a lock in it, so that a project
  /// without a store stays as it was. Requires: this object holds the project's lock, and uses no lock from
  /// then on.
  void RemoveOwnFile();

  /// True when another process, or another store of this one, holds the lock. Never creates the lock file, so
  /// that it also answers in a folder that cannot be written.
  Result<bool> IsHeldElsewhere(Number number) const;

 private:
  Result<void> OpenForLocking();
  Result<void> LockProject(std::chrono::steady_clock::time_point end) const;
  /// False when the file was taken away after it was opened: others lock another one.
  bool IsInPlace() const;
  void Close();
  /// False, with the system's reason in `errno`, when another process holds it.
  bool Lock(std::int64_t byte) const;
  void Release(std::int64_t byte);
  Fault FaultOf(int error) const;

  std::filesystem::path file_;
  int descriptor_ = -1;      ///< of the lock file, which holds the locks; below 0 until the first lock
  bool hasCreated_ = false;  ///< the file did not exist before
};

}  // namespace vanzet::vdm
