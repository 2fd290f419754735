#include "vdm/store.h"

#include <algorithm>
#include <system_error>

#include "vdm/sqlite_engine.h"

namespace vanzet::vdm {
namespace {

Fault MissingFault(Number number) {
  return {.text = NameOf(number) + " does not exist", .kind = FaultKind::kMissing};
}

}  // namespace

VdmStore::VdmStore(const std::filesystem::path& folder)
    : VdmStore(std::make_unique<SqliteEngine>(folder / "store.db"), folder / "store.lock") {
  ownFiles_ = {folder / "store.db", folder / "store.db-journal", folder / "store.lock"};
}

VdmStore::VdmStore(std::unique_ptr<StoreEngine> engine, std::filesystem::path lockFile)
    : engine_(std::move(engine)), locks_(std::move(lockFile)) {}

Result<void> VdmStore::Check() {
  VANZET_DO(engine_->Numbers());
  return locks_.Check();
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
  return engine_->Exists(*known);
}

Result<bool> VdmStore::IsOpen(std::int64_t number) const {
  const auto known = NumberFrom(number);
  if (!known) return false;
  if (handles_.contains(*known)) return true;
  return locks_.IsHeldElsewhere(*known);
}

Result<Handle> VdmStore::Create(std::int64_t number) {
  VANZET_TRY(auto lock, Lock(number));
  VANZET_TRY(const auto exists, engine_->Exists(lock.number()));
  if (exists) return Fault{NameOf(lock.number()) + " already exists"};
  return AddOpen(std::move(lock), Vdm());
}

Result<Handle> VdmStore::Open(std::int64_t number) {
  VANZET_TRY(auto lock, Lock(number));
  // Read only now: before this process had the lock, another one could still have been writing.
  VANZET_TRY(auto content, engine_->Open(lock.number()));
  if (!content) return MissingFault(lock.number());
  return AddOpen(std::move(lock), std::move(*content));
}

Result<void> VdmStore::Close(Handle handle) {
  auto closing = opened_.extract(handle);
  if (closing.empty()) return {};
  const auto& [lock, vdm] = closing.mapped();
  handles_.erase(lock.number());
  lastClosed_ = lock.number();
  // `closing` owns the lock, which is thus held until the content is written.
  if (!vdm.content().IsChanged()) return {};
  return engine_->Write(lock.number(), vdm.content());
}

Result<void> VdmStore::Delete(std::int64_t number) {
  VANZET_TRY(const auto exists, Exists(number));
  if (!exists) return {};
  VANZET_TRY(const auto lock, Lock(number));
  return engine_->Remove(lock.number());
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
  VANZET_TRY(auto content, engine_->Read(known));
  if (!content) return MissingFault(known);
  return std::move(*content);
}

Result<void> VdmStore::Replace(std::int64_t number, const Vdm& content) {
  VANZET_TRY(const auto lock, Lock(number));
  return engine_->Write(lock.number(), content);
}

Result<std::vector<Number>> VdmStore::Numbers() const {
  return engine_->Numbers();
}

std::vector<Number> VdmStore::LeftOpen() const {
  std::vector<Number> numbers;
  for (const auto& [number, handle] : handles_) numbers.push_back(number);
  return numbers;
}

Result<VdmLocks::Held> VdmStore::Lock(std::int64_t number) {
  VANZET_TRY(const auto known, NumberFrom(number));
  if (handles_.contains(known)) {
    return Fault{.text = NameOf(known) + " is already open", .kind = FaultKind::kBusy};
  }
  return locks_.Acquire(known);
}

Result<Handle> VdmStore::AddOpen(VdmLocks::Held lock, Vdm content) {
  if (lastHandle_ == kLastHandle) return Fault{"all handles are used up"};
  const Handle handle{++lastHandle_};
  handles_.emplace(lock.number(), handle);
  opened_.emplace(handle, Opened{std::move(lock), OpenVdm(std::move(content))});
  return handle;
}

}  // namespace vanzet::vdm
