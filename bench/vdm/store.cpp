#include "vdm/store.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <system_error>

#include "base/files/regular_file.h"
#include "base/files/whole_file.h"
#include "vdm/checksum.h"
#include "vdm/embedded/engine.h"
#include "vdm/embedded/vdm_locks.h"

namespace vanzet::vdm {
namespace {

Fault MissingFault(Number number) {
  return {.text = NameOf(number) + " does not exist", .kind = FaultKind::kMissing};
}

/// The checksum of a text file's content; nothing without a file that can be read.
std::optional<std::uint64_t> ChecksumOfFile(const std::filesystem::path& file) {
  const auto content = files::ReadWholeFile(file);
  return content ? std::optional(ChecksumOf(*content)) : std::nullopt;
}

/// The records of a VDM in memory are heads as they are.
Result<RecordHeads> HeadsOf(const Vdm& content) {
  RecordHeads heads;
  for (std::size_t i = 0; i < content.Size(); ++i) {
    VANZET_TRY(const auto record, content.Read(i));
    heads.push_back({*record, record->Size()});
  }
  return heads;
}

}  // namespace

VdmStore::VdmStore(const std::filesystem::path& folder, std::int64_t keep)
    : VdmStore(std::make_unique<SqliteEngine>(folder / SqliteEngine::kStoreFile), folder / "store.lock") {
  const std::string journal = SqliteEngine::kStoreFile + std::string("-journal");
  ownFiles_ = {folder / SqliteEngine::kStoreFile, folder / journal, folder / "store.lock"};
  keep_ = keep;
}

VdmStore::VdmStore(std::unique_ptr<StoreEngine> engine, std::filesystem::path lockFile)
    : engine_(std::move(engine)),
      folder_(lockFile.parent_path()),
      locks_(std::make_unique<VdmLocks>(std::move(lockFile))) {}

VdmStore::VdmStore(std::unique_ptr<StoreEngine> engine, std::unique_ptr<StoreLocks> locks,
                   std::filesystem::path folder, std::int64_t keep)
    : engine_(std::move(engine)), folder_(std::move(folder)), locks_(std::move(locks)), keep_(keep) {}

Result<void> VdmStore::Hold() {
  VANZET_DO(LockProject());
  isHeld_ = true;
  return {};
}

Result<void> VdmStore::LockProject() {
  if (project_) return {};
  VANZET_TRY(auto locked, locks_->AcquireProject(longestWait_));
  project_.emplace(std::move(locked));
  return {};
}

void VdmStore::UnlockUnchangedProject() {
  if (!isHeld_ && !HasChanges() && opened_.empty()) project_.reset();
}

Result<void> VdmStore::Commit(const std::string& occasion, std::optional<TextFile> file,
                              const LastStep& lastStep) {
  if (HasChanges() || file) {
    VANZET_DO(LockProject());
    VANZET_DO(Write(occasion, file ? &*file : nullptr, lastStep));
  } else if (lastStep) {
    VANZET_DO(lastStep());
  }
  Discard();
  return {};
}

Result<void> VdmStore::Write(const std::string& occasion, TextFile* file, const LastStep& lastStep) {
  if (file == nullptr) return engine_->Apply({changes_, nullptr, occasion, lastStep, keep_});
  const auto target = folder_ / file->name;
  file->former = ChecksumOfFile(target);
  // Its bytes are on the disk before the transaction: after that, nothing can run out of room.
  VANZET_TRY(auto replacement, files::FileReplacement::Begin(target));
  VANZET_DO(replacement.Write(file->content));
  VANZET_DO(replacement.Prepare());
  if (!HasChanges()) {
    if (lastStep) VANZET_DO(lastStep());
    return replacement.Commit();
  }
  VANZET_DO(engine_->Apply({changes_, file, occasion, lastStep, keep_}));
  // All is kept. Where the system fails now, the next run puts the file in its place.
  if (replacement.Commit()) static_cast<void>(engine_->FinishFile());
  return {};
}

void VdmStore::Discard() {
  changes_.clear();
  deleted_.clear();
  isHeld_ = false;
  project_.reset();
}

Result<void> VdmStore::FinishFormerCommit() {
  VANZET_TRY(const auto unfinished, engine_->UnfinishedFile());
  if (!unfinished) return {};
  const auto lock = locks_->AcquireProject(std::chrono::milliseconds(0));
  if (!lock && lock.fault().kind == FaultKind::kBusy) return {};  // the process that works there does it
  if (!lock) return lock.fault();
  // The file may have been put in its place before the lock was free.
  VANZET_TRY(const auto file, engine_->UnfinishedFile());
  if (!file) return {};
  // The store may come from elsewhere, and must not name a file outside of its project.
  if (std::filesystem::path(file->name).filename() != file->name || file->name == "..") {
    return Fault{.text = "is damaged: it holds a file of another folder",
                 .file = engine_->Name(),
                 .kind = FaultKind::kDamaged};
  }
  const auto target = folder_ / file->name;
  // A content that is neither the former nor the new one is a person's, and stays.
  if (ChecksumOfFile(target) == file->former) VANZET_DO(files::ReplaceFile(target, file->content));
  return engine_->FinishFile();
}

Result<void> VdmStore::Check() {
  VANZET_DO(engine_->Numbers());
  return locks_->Check();
}

Result<void> VdmStore::CheckTarget(const std::filesystem::path& file) const {
  std::error_code unknown;
  const auto isSame = [&](const std::filesystem::path& own) {
    return std::filesystem::weakly_canonical(own, unknown) ==
           std::filesystem::weakly_canonical(file, unknown);
  };
  if (std::ranges::none_of(ownFiles_, isSame)) return {};
  return Fault{"is a file of the store itself", file.string()};
}

Result<bool> VdmStore::Exists(std::int64_t number) const {
  const auto known = NumberFrom(number);
  if (!known) return false;
  VANZET_TRY(const auto open, IsOpen(number));
  if (open) return true;
  return IsKept(*known);
}

Result<bool> VdmStore::IsKept(Number number) const {
  const auto changed = changes_.find(number);
  if (changed != changes_.end()) return changed->second.has_value();
  return engine_->Exists(number);
}

Result<std::optional<Vdm>> VdmStore::Kept(Number number) {
  const auto changed = changes_.find(number);
  if (changed != changes_.end()) return changed->second;
  return engine_->Open(number);
}

Result<bool> VdmStore::IsOpen(std::int64_t number) const {
  const auto known = NumberFrom(number);
  if (!known) return false;
  if (handles_.contains(*known)) return true;
  return locks_->IsHeldElsewhere(*known);
}

Result<Handle> VdmStore::Create(std::int64_t number) {
  VANZET_TRY(auto lock, Lock(number));
  VANZET_TRY(const auto exists, IsKept(lock.number()));
  if (exists) return Fault{NameOf(lock.number()) + " already exists"};
  return AddOpen(std::move(lock), Vdm());
}

Result<Handle> VdmStore::Open(std::int64_t number) {
  VANZET_TRY(auto lock, Lock(number));
  // Read only now: before this process had the lock, another one could still have been writing.
  VANZET_TRY(auto content, Kept(lock.number()));
  if (!content) return MissingFault(lock.number());
  return AddOpen(std::move(lock), std::move(*content));
}

void VdmStore::Close(Handle handle) {
  auto closing = opened_.extract(handle);
  if (closing.empty()) return;
  auto& [lock, vdm] = closing.mapped();
  handles_.erase(lock.number());
  lastClosed_ = lock.number();
  if (vdm.content().IsChanged()) changes_.insert_or_assign(lock.number(), vdm.content());
  UnlockUnchangedProject();
}

Result<void> VdmStore::Delete(std::int64_t number) {
  VANZET_TRY(const auto exists, Exists(number));
  if (!exists) return {};
  VANZET_TRY(const auto lock, Lock(number));
  auto& former = deleted_[lock.number()];
  former.reset();
  if (const auto changed = changes_.find(lock.number()); changed != changes_.end()) {
    former.emplace(std::move(changed->second));
  }
  changes_.insert_or_assign(lock.number(), std::nullopt);
  return {};
}

bool VdmStore::PutBackDeleted(std::int64_t number) {
  const auto known = NumberFrom(number);
  auto former = known ? deleted_.extract(*known) : decltype(deleted_)::node_type();
  if (former.empty()) return false;
  changes_.erase(former.key());
  if (former.mapped()) changes_.emplace(former.key(), std::move(*former.mapped()));
  return true;
}

std::size_t VdmStore::Size(Handle handle) const {
  const auto found = opened_.find(handle);
  return found == opened_.end() ? 0 : found->second.vdm.Size();
}

OpenVdm* VdmStore::Find(Handle handle) {
  const auto found = opened_.find(handle);
  return found == opened_.end() ? nullptr : &found->second.vdm;
}

Result<Vdm> VdmStore::Snapshot(std::int64_t number) const {
  VANZET_TRY(const auto known, NumberFrom(number));
  if (const auto handle = handles_.find(known); handle != handles_.end()) {
    return opened_.at(handle->second).vdm.content().Copy();
  }
  VANZET_TRY(auto contents, Snapshots({known}));
  if (contents.empty()) return MissingFault(known);
  return std::move(contents.begin()->second);
}

Result<std::map<Number, Vdm>> VdmStore::Snapshots(const std::vector<Number>& numbers) const {
  VANZET_TRY(auto contents, engine_->Read(Unchanged(numbers)));
  for (const Number number : numbers) {
    const auto changed = changes_.find(number);
    if (changed == changes_.end() || !changed->second) continue;
    VANZET_TRY(auto copy, changed->second->Copy());
    contents.emplace(number, std::move(copy));
  }
  return contents;
}

Result<std::map<Number, RecordHeads>> VdmStore::Heads(const std::vector<Number>& numbers) const {
  VANZET_TRY(auto heads, engine_->ReadHeads(Unchanged(numbers)));
  for (const Number number : numbers) {
    const auto changed = changes_.find(number);
    if (changed == changes_.end() || !changed->second) continue;
    VANZET_TRY(auto read, HeadsOf(*changed->second));
    heads.emplace(number, std::move(read));
  }
  return heads;
}

Result<std::vector<VdmChange>> VdmStore::ListChanges(std::optional<Number> only) const {
  VANZET_TRY(auto changes, engine_->ListChanges(only));
  std::map<Number, std::int64_t> left;
  for (const VdmChange& change : changes) left.try_emplace(change.vdm, std::max<std::int64_t>(keep_, 1));
  // The engine may have kept more, so the newest of each VDM are chosen.
  std::ranges::reverse(changes);
  std::vector<VdmChange> kept;
  for (VdmChange& change : changes) {
    if (left[change.vdm]-- > 0) kept.push_back(std::move(change));
  }
  std::ranges::reverse(kept);
  return kept;
}

Result<void> VdmStore::Fill(const VdmStore& from, const LastStep& lastStep) {
  VANZET_DO(LockProject());
  const auto filled = engine_->Fill([&](const GenerationVisitor& visitor) -> Result<void> {
    VANZET_DO(from.Visit({}, visitor));
    return lastStep ? lastStep() : Result<void>();
  });
  if (!filled) locks_->RemoveOwnFile();
  UnlockUnchangedProject();
  return filled;
}

std::vector<Number> VdmStore::Unchanged(const std::vector<Number>& numbers) const {
  std::vector<Number> unchanged;
  std::ranges::copy_if(numbers, std::back_inserter(unchanged),
                       [&](Number number) { return !changes_.contains(number); });
  return unchanged;
}

Result<void> VdmStore::Replace(std::int64_t number, const Vdm& content) {
  VANZET_TRY(const auto lock, Lock(number));
  changes_.insert_or_assign(lock.number(), content);
  return {};
}

Result<std::vector<Number>> VdmStore::Numbers() const {
  VANZET_TRY(const auto stored, engine_->Numbers());
  std::set<Number> numbers(stored.begin(), stored.end());
  for (const auto& [number, content] : changes_) {
    if (content) {
      numbers.insert(number);
    } else {
      numbers.erase(number);
    }
  }
  return std::vector<Number>(numbers.begin(), numbers.end());
}

std::vector<Number> VdmStore::LeftOpen() const {
  std::vector<Number> numbers;
  for (const auto& [number, handle] : handles_) numbers.push_back(number);
  return numbers;
}

Result<StoreLocks::Held> VdmStore::Lock(std::int64_t number) {
  VANZET_TRY(const auto known, NumberFrom(number));
  if (handles_.contains(known)) {
    return Fault{.text = NameOf(known) + " is already open", .kind = FaultKind::kBusy};
  }
  VANZET_DO(LockProject());
  auto lock = locks_->Acquire(known);
  if (!lock) UnlockUnchangedProject();
  return lock;
}

Result<Handle> VdmStore::AddOpen(StoreLocks::Held lock, Vdm content) {
  if (lastHandle_ == kLastHandle) return Fault{"all handles are used up"};
  const Handle handle{++lastHandle_};
  handles_.emplace(lock.number(), handle);
  opened_.emplace(handle, Opened{std::move(lock), OpenVdm(std::move(content))});
  return handle;
}

}  // namespace vanzet::vdm
