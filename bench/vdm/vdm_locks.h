#pragma once

#include <filesystem>
#include <utility>

#include "vdm/vdm.h"

namespace vanzet::vdm {

/// Tells every process who has which VDM open: one lock file, one byte a number.
///
/// The kernel keeps the locks and drops them with the process, however it ends, so nothing is left to clean
/// up. The file itself says nothing; it must stay where it is while any process has a VDM open.
///
/// Errors   a fault that names the lock file, or the VDM when somebody else has it
/// Threads  one; a child made by a fork shares the locks that its parent held
/// Source   docs/formats/store.md
class VdmLocks {
 public:
  explicit VdmLocks(std::filesystem::path file) : file_(std::move(file)) {}
  ~VdmLocks();
  VdmLocks(const VdmLocks&) = delete;
  VdmLocks& operator=(const VdmLocks&) = delete;

  /// A VDM that is held; it is free again when this goes. The locks have to outlive it.
  class Held {
   public:
    Held(Held&& other) noexcept : locks_(std::exchange(other.locks_, nullptr)), number_(other.number_) {}
    Held& operator=(Held&&) = delete;
    ~Held() {
      if (locks_ != nullptr) locks_->Release(number_);
    }

    Number number() const { return number_; }

   private:
    friend class VdmLocks;
    Held(VdmLocks& locks, Number number) : locks_(&locks), number_(number) {}
    VdmLocks* locks_;  ///< null: moved away
    Number number_;
  };

  /// Takes the VDM, making the lock file when there is none. A fault when somebody else has it.
  /// Requires: it is not held by these locks.
  Result<Held> Take(Number number);

  /// Whether VDMs can be taken at all; makes the lock file when there is none.
  Result<void> Check() { return OpenForTaking(); }

  /// True when another process, or another store of this one, holds the VDM. Never makes the lock file, so
  /// that a folder that cannot be written can still be asked.
  Result<bool> HeldElsewhere(Number number) const;

 private:
  Result<void> OpenForTaking();
  void Release(Number number);
  Fault FaultOf(int error) const;

  std::filesystem::path file_;
  int descriptor_ = -1;  ///< what the locks hang on; below 0 until the first is taken
};

}  // namespace vanzet::vdm
