#pragma once

#include <chrono>
#include <cstdint>
#include <utility>

#include "vdm/vdm.h"

namespace vanzet::vdm {

/// Locks VDMs, and the project as a whole, for one store against every other, here and in other processes.
/// The system or the server releases them with the process, however it ends, so nothing is left to clean up.
///
/// Errors   a fault that names what keeps the locks, or the VDM when it is open elsewhere (`kBusy`)
/// Threads  one
class StoreLocks {
 public:
  StoreLocks() = default;
  virtual ~StoreLocks() = default;
  StoreLocks(const StoreLocks&) = delete;
  StoreLocks& operator=(const StoreLocks&) = delete;

  /// The lock of one VDM, or of the project; the destructor releases it. `StoreLocks` must outlive it.
  class Held {
   public:
    Held(Held&& other) noexcept : locks_(std::exchange(other.locks_, nullptr)), place_(other.place_) {}
    Held& operator=(Held&&) = delete;
    ~Held() {
      if (locks_ != nullptr) locks_->Release(place_);
    }

    /// Requires: it is the lock of a VDM.
    Number number() const { return Number{static_cast<std::uint32_t>(place_)}; }

   private:
    friend class StoreLocks;
    Held(StoreLocks& locks, std::int64_t place) : locks_(&locks), place_(place) {}
    StoreLocks* locks_;  ///< null: moved away
    std::int64_t place_;
  };

  /// Locks the VDM. Fails when the VDM is open elsewhere. Requires: this object does not hold its lock.
  virtual Result<Held> Acquire(Number number) = 0;

  /// Locks the project against other runs that change it, and waits for them at most so long. Fails with
  /// `kBusy` after that. Requires: this object does not hold the lock.
  virtual Result<Held> AcquireProject(std::chrono::milliseconds longestWait) = 0;

  /// Fails when no VDM can be locked.
  virtual Result<void> Check() = 0;

  /// Takes away what this object created to hold its locks when nobody else has one there, so that a project
  /// without a store stays as it was. Requires: this object holds the project's lock, and uses no lock from
  /// then on.
  virtual void RemoveOwnFile() = 0;

  /// True when another process, or another store of this one, holds the lock. Never changes anything, so that
  /// it also answers where nothing can be written.
  virtual Result<bool> IsHeldElsewhere(Number number) const = 0;

 protected:
  /// The place of the project among the locks: after those of all numbers.
  static constexpr std::int64_t kProjectPlace = std::int64_t{1} << 32;

  static std::int64_t PlaceOf(Number number) { return static_cast<std::int64_t>(number); }
  Held Keep(std::int64_t place) { return {*this, place}; }

 private:
  virtual void Release(std::int64_t place) = 0;
};

}  // namespace vanzet::vdm
