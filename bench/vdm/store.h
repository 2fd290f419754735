#pragma once

#include <map>
#include <optional>

#include "vdm/open_vdm.h"
#include "vdm/store_engine.h"
#include "vdm/vdm_locks.h"

namespace vanzet::vdm {

/// The number by which callers refer to an open VDM: never 0, never 0xFFFFFFFF, never used twice.
enum class Handle : std::uint32_t {};

/// The VDMs of a project, as one process sees them.
///
/// A caller creates or opens a VDM, works on it in memory through its handle, and closes it; closing writes
/// it in one transaction. Work that is never closed is lost: a process that dies leaves the state of the last
/// close. From opening to closing the VDM is locked against every other process.
///
/// Owns     the engine, the locks and the open VDMs; the destructor discards what is still open
/// Numbers  any: a number that no VDM can have does not exist, and `Create` and `Open` fail for it
/// Handles  any: a handle that is not open, or no longer open, has no records and closes without a fault
/// Errors   a fault, and nothing has changed (but see `Close`): `kMissing` for a VDM that does not exist,
///          `kBusy` for one that is open, here or in another process, `kDamaged` for a store that cannot be
///          trusted, `kSystem` for reasons of the system
/// Threads  one; it must not be used after a fork
/// Source   docs/formats/store.md
class VdmStore {
 public:
  /// The store of a project: `store.db` and `store.lock` in its folder.
  explicit VdmStore(const std::filesystem::path& folder);
  VdmStore(std::unique_ptr<StoreEngine> engine, std::filesystem::path lockFile);

  /// Checks up front that the store can be read and VDMs can be locked.
  Result<void> Check();

  /// Fails for a file that belongs to the store itself, so that no caller overwrites it.
  Result<void> CheckTarget(const std::filesystem::path& file) const;

  /// True when the VDM is stored, or open here or in another process.
  Result<bool> Exists(std::int64_t number) const;

  /// True when the VDM is open, here or in another process.
  Result<bool> IsOpen(std::int64_t number) const;

  /// Creates an empty VDM and opens it. Fails when a VDM of this number exists or is open.
  Result<Handle> Create(std::int64_t number);

  /// Fails when the VDM does not exist or is already open, here or in another process.
  Result<Handle> Open(std::int64_t number);

  /// Writes the changes. After a fault the store keeps the state of the last close, and the work since is
  /// lost: the handle and the lock are released all the same.
  Result<void> Close(Handle handle);

  /// Fails when the VDM is open, here or in another process; does nothing when it does not exist.
  Result<void> Delete(std::int64_t number);

  /// The number of records.
  std::size_t Size(Handle handle) const;

  /// The open VDM, valid until it is closed; null when the handle is not open.
  OpenVdm* Find(Handle handle);

  /// A copy of the current content: as in memory when the VDM is open here, else as at the last close.
  Result<Vdm> Snapshot(std::int64_t number) const;

  /// Replaces the content of the VDM, or creates it. Fails when it is open, here or in another process.
  /// Requires: `content` is independent of any store, as `Snapshot` and the readers of files return it.
  Result<void> Replace(std::int64_t number, const Vdm& content);

  /// The numbers of the stored VDMs, ascending. A VDM that was created and not yet closed is not among them.
  Result<std::vector<Number>> Numbers() const;

  /// The numbers of the VDMs that are open here, ascending: work that is lost unless they are closed.
  std::vector<Number> LeftOpen() const;

  /// The VDM that was closed last through a handle of this store.
  std::optional<Number> LastClosed() const { return lastClosed_; }

 private:
  static constexpr std::uint32_t kLastHandle = 0xFFFFFFFE;

  struct Opened {
    VdmLocks::Held lock;
    OpenVdm vdm;
  };

  /// Locks a VDM that is not open anywhere.
  Result<VdmLocks::Held> Lock(std::int64_t number);
  Result<Handle> AddOpen(VdmLocks::Held lock, Vdm content);

  std::unique_ptr<StoreEngine> engine_;
  std::vector<std::filesystem::path> ownFiles_;
  VdmLocks locks_;
  std::map<Handle, Opened> opened_;
  std::map<Number, Handle> handles_;
  std::uint32_t lastHandle_ = 0;
  std::optional<Number> lastClosed_;
};

}  // namespace vanzet::vdm
