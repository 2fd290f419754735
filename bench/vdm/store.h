#pragma once

#include <map>
#include <optional>

#include "vdm/open_vdm.h"
#include "vdm/store_engine.h"
#include "vdm/vdm_locks.h"

namespace vanzet::vdm {

/// An open VDM, as callers name it: never 0, never 0xFFFFFFFF, never given twice.
enum class Handle : std::uint32_t {};

/// The VDMs of a project, as one process sees them.
///
/// A VDM is created or opened, worked on in memory through its handle, and closed; closing writes it in one
/// transaction. What is never closed never happened: a process that dies leaves the state of the last close.
/// From opening to closing the VDM is locked against every other process.
///
/// Owns     the engine, the locks and the open VDMs; the destructor drops what is still open
/// Numbers  any: those that no VDM can have do not exist, and are refused where one is to be made or opened
/// Handles  any: one that is not open, or not any more, has no records and closes without a fault
/// Errors   a fault, and everything is as it was (but see `Close`)
/// Threads  one; not to be carried over a fork
/// Source   docs/formats/store.md
class VdmStore {
 public:
  /// The store of a project: `store.db` and `store.lock` in its folder.
  explicit VdmStore(const std::filesystem::path& folder);
  VdmStore(std::unique_ptr<StoreEngine> engine, std::filesystem::path lockFile);

  /// Whether the store can be read and VDMs can be taken, for callers who want to hear it once and first.
  Result<void> Check();

  /// Refuses a file that the store itself lives in, so that nobody writes over it.
  Result<void> CheckTarget(const std::filesystem::path& file) const;

  /// True when it is kept, or open anywhere.
  Result<bool> Exists(std::int64_t number) const;

  /// True when it is open, here or elsewhere.
  Result<bool> IsOpen(std::int64_t number) const;

  /// Makes an empty VDM and opens it. Refused when the number is taken.
  Result<Handle> Create(std::int64_t number);

  /// Refused when there is none or it is open, here or elsewhere.
  Result<Handle> Open(std::int64_t number);

  /// Writes what was changed. On a fault the last closed state stays, and the work since is lost: the handle
  /// and the lock are gone all the same.
  Result<void> Close(Handle handle);

  /// Refused when it is open, here or elsewhere; silent when there is none.
  Result<void> Delete(std::int64_t number);

  /// The number of records.
  std::size_t Size(Handle handle) const;

  /// The open VDM, valid until it is closed; null when the handle is not open.
  OpenVdm* Find(Handle handle);

  /// A copy of what the VDM holds now: as it is in memory when open here, else as it was closed last.
  Result<Vdm> Snapshot(std::int64_t number) const;

  /// Puts `content` in the place of what the number held, or makes it. Refused when it is open, here or
  /// elsewhere.
  /// Requires: `content` is tied to no store, as `Snapshot` and the readers of files give it.
  Result<void> Replace(std::int64_t number, const Vdm& content);

  /// What is kept, rising. A VDM that was created and not closed is not among them.
  Result<std::vector<Number>> Numbers() const;

  /// What is open here, rising: work that is lost unless it is closed.
  std::vector<Number> LeftOpen() const;

  /// What was closed last through a handle of this store, if anything was.
  std::optional<Number> LastClosed() const { return lastClosed_; }

 private:
  static constexpr std::uint32_t kLastHandle = 0xFFFFFFFE;

  struct Opened {
    VdmLocks::Held lock;
    OpenVdm vdm;
  };

  /// Takes a VDM that is not open anywhere.
  Result<VdmLocks::Held> Take(std::int64_t number);
  Result<Handle> Enter(VdmLocks::Held lock, Vdm content);

  std::unique_ptr<StoreEngine> engine_;
  std::vector<std::filesystem::path> ownFiles_;
  VdmLocks locks_;
  std::map<Handle, Opened> opened_;
  std::map<Number, Handle> handles_;
  std::uint32_t lastHandle_ = 0;
  std::optional<Number> lastClosed_;
};

}  // namespace vanzet::vdm
