#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "vdm/open_vdm.h"
#include "vdm/store_engine.h"
#include "vdm/store_locks.h"

namespace vanzet::vdm {

/// The number by which callers refer to an open VDM: never 0, never 0xFFFFFFFF, never used twice.
enum class Handle : std::uint32_t {};

/// The time that a run waits for another one that is changing the project.
inline constexpr std::chrono::milliseconds kUsualWait{10'000};

/// The VDMs of a project, as one run sees them.
///
/// A caller creates or opens a VDM, works on it in memory through its handle, and closes it; what was closed
/// is what this store shows from then on. `Commit` writes it for everybody, all VDMs in one transaction;
/// the rest is lost, so that a run that fails or dies leaves the project as it was. While it
/// has a VDM open, and from its first change to the commit, a run keeps every other one from changing the
/// project; from opening to closing, the VDM is locked as well, which others can see.
///
/// Owns     the engine, the locks, the open VDMs and the changes; the destructor discards what is not
///          committed
/// Numbers  any: a number that no VDM can have does not exist, and `Create` and `Open` fail for it
/// Handles  any: a handle that is not open, or no longer open, has no records and closes without an effect
/// Errors   a fault, and nothing has changed: `kMissing` for a VDM that does not exist, `kBusy` for one that
///          is open, here or in another process, and while another run changes the project, `kDamaged` for a
///          store that cannot be trusted, `kSystem` for reasons of the system
/// Threads  one; it must not be used after a fork
/// Source   docs/formats/store.md
class VdmStore {
 public:
  /// The store of a project: `store.db` and `store.lock` in its folder. Its commits keep so many generations
  /// of each VDM: `KeepGenerations`.
  explicit VdmStore(const std::filesystem::path& folder, std::int64_t keep = kUsualKeep);
  VdmStore(std::unique_ptr<StoreEngine> engine, std::filesystem::path lockFile);

  /// A store that is not in the project's folder, but for its text file.
  VdmStore(std::unique_ptr<StoreEngine> engine, std::unique_ptr<StoreLocks> locks,
           std::filesystem::path folder, std::int64_t keep = kUsualKeep);

  /// How long this store waits for another run, from now on.
  void WaitAtMost(std::chrono::milliseconds wait) { longestWait_ = wait; }

  /// How many generations of each VDM commits of this store keep, from now on; 0: none but the last.
  void KeepGenerations(std::int64_t keep) { keep_ = keep; }

  /// Keeps every other run from changing the project until `Commit` or `Discard`. A first change does the
  /// same: this function is for runs that read before, and base their changes on what they read.
  Result<void> Hold();

  /// Writes all that was closed, created, replaced and deleted since the last commit, and lets other runs go
  /// on. A text file of the project changes with it or not at all. Nothing is done without a change.
  /// VDMs that are open stay open and are not written. After a fault all stays as before the call.
  Result<void> Commit(const std::string& occasion, std::optional<TextFile> file = {},
                      const LastStep& lastStep = {});

  /// Gives up all changes since the last commit, and lets other runs go on.
  void Discard();

  /// True when `Commit` would write VDMs.
  bool HasChanges() const { return !changes_.empty(); }

  /// Puts the text file of a commit in its place, where a process died before it could.
  Result<void> FinishFormerCommit();

  /// Checks up front that the store can be read and VDMs can be locked.
  Result<void> Check();

  /// Fails for a file that belongs to the store itself, so that no caller overwrites it.
  Result<void> CheckTarget(const std::filesystem::path& file) const;

  /// True when the VDM exists, or is open here or in another process.
  Result<bool> Exists(std::int64_t number) const;

  /// True when the VDM is open, here or in another process.
  Result<bool> IsOpen(std::int64_t number) const;

  /// Creates an empty VDM and opens it. Fails when a VDM of this number exists or is open.
  Result<Handle> Create(std::int64_t number);

  /// Fails when the VDM does not exist or is already open, here or in another process.
  Result<Handle> Open(std::int64_t number);

  /// Keeps the changes for the next commit; the store shows them from now on.
  void Close(Handle handle);

  /// Fails when the VDM is open, here or in another process; does nothing when it does not exist.
  Result<void> Delete(std::int64_t number);

  /// Takes back the last deletion of the VDM since `ForgetDeleted`; false when there is none. Requires: it
  /// was not created again.
  bool PutBackDeleted(std::int64_t number);

  /// Makes former deletions final.
  void ForgetDeleted() { deleted_.clear(); }

  /// The number of records.
  std::size_t Size(Handle handle) const;

  /// The open VDM, valid until it is closed; null when the handle is not open.
  OpenVdm* Find(Handle handle);

  /// A copy of the current content: as in memory when the VDM is open here, else as at the last close.
  Result<Vdm> Snapshot(std::int64_t number) const;

  /// Copies of those of the VDMs that exist, as at the last close, all of one state of the store.
  Result<std::map<Number, Vdm>> Snapshots(const std::vector<Number>& numbers) const;

  /// The heads of their records, as at the last close, all of one state of the store. Long records are not
  /// verified.
  Result<std::map<Number, RecordHeads>> Heads(const std::vector<Number>& numbers) const;

  /// The committed changes of all VDMs or one, as far as `KeepGenerations` keeps them: by rising generation,
  /// and in one by rising number.
  Result<std::vector<VdmChange>> ListChanges(std::optional<Number> only) const;

  /// The VDMs, or the one, as they were after a generation. Fails with `kMissing` for a generation that never
  /// was, and for a state that is not kept any more.
  Result<std::map<Number, Vdm>> ReadAt(std::int64_t generation, std::optional<Number> only) const {
    return engine_->ReadAt(generation, only);
  }

  /// Visits the committed generations that are kept: `StoreEngine::Visit`.
  Result<void> Visit(std::optional<Number> only, const GenerationVisitor& visitor) const {
    return engine_->Visit(only, visitor);
  }

  /// Copies the content of another store with its generations; the last step fails before anything is kept.
  /// Fails when this store is not empty. Requires: it has no changes; the other one is of another project.
  Result<void> Fill(const VdmStore& from, const LastStep& lastStep = {});

  /// Replaces the content of the VDM, or creates it. Fails when it is open, here or in another process.
  /// Requires: `content` is independent of any store, as `Snapshot` and the readers of files return it.
  Result<void> Replace(std::int64_t number, const Vdm& content);

  /// The numbers of the VDMs, ascending. A VDM that was created and not yet closed is not among them.
  Result<std::vector<Number>> Numbers() const;

  /// The numbers of the VDMs that are open here, ascending: work that is lost unless they are closed.
  std::vector<Number> LeftOpen() const;

  /// The VDM that was closed last through a handle of this store.
  std::optional<Number> LastClosed() const { return lastClosed_; }

 private:
  static constexpr std::uint32_t kLastHandle = 0xFFFFFFFE;

  struct Opened {
    StoreLocks::Held lock;
    OpenVdm vdm;
  };

  Result<void> LockProject();
  /// Lets other runs go on when this one has neither changed nor opened anything, nor wants them to wait.
  void UnlockUnchangedProject();
  /// Locks a VDM that is not open anywhere, after the project.
  Result<StoreLocks::Held> Lock(std::int64_t number);
  Result<void> Write(const std::string& occasion, TextFile* file, const LastStep& lastStep);
  /// Those of the numbers whose VDMs this run has not changed.
  std::vector<Number> Unchanged(const std::vector<Number>& numbers) const;
  /// Whether a VDM exists that is not open.
  Result<bool> IsKept(Number number) const;
  /// A VDM that is not open, to be worked on.
  Result<std::optional<Vdm>> Kept(Number number);
  Result<Handle> AddOpen(StoreLocks::Held lock, Vdm content);

  std::unique_ptr<StoreEngine> engine_;
  std::filesystem::path folder_;
  std::vector<std::filesystem::path> ownFiles_;
  std::unique_ptr<StoreLocks> locks_;
  std::chrono::milliseconds longestWait_ = kUsualWait;
  std::int64_t keep_ = kUsualKeep;
  bool isHeld_ = false;                      ///< from `Hold` to `Commit`
  std::optional<StoreLocks::Held> project_;  ///< while no other run may change the project
  Changes changes_;                          ///< since the last commit
  std::map<Number, std::optional<Changes::mapped_type>> deleted_;  ///< what `changes_` held before
  std::map<Handle, Opened> opened_;
  std::map<Number, Handle> handles_;
  std::uint32_t lastHandle_ = 0;
  std::optional<Number> lastClosed_;
};

}  // namespace vanzet::vdm
