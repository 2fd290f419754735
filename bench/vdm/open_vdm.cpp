#include "vdm/open_vdm.h"

#include <algorithm>

namespace vanzet::vdm {
namespace {

/// The number of steps that `count` steps take within `room`.
std::size_t Within(std::int64_t count, std::size_t room) {
  if (count <= 0) return 0;
  return static_cast<std::size_t>(std::min<std::uint64_t>(static_cast<std::uint64_t>(count), room));
}

}  // namespace

bool OpenVdm::HasRecord() const {
  return record_ >= 0 && static_cast<std::uint64_t>(record_) < Size();
}

void OpenVdm::Seek(std::int64_t record) {
  record_ = record;
  item_ = 0;
}

Result<void> OpenVdm::Insert(std::string_view text) {
  VANZET_DO(CheckItem(text));
  if (record_ < 0) return {};
  Seek(static_cast<std::int64_t>(Within(record_, Size())));
  content_.Insert(Current(), Record({std::string(text)}));
  return {};
}

void OpenVdm::Remove(std::int64_t count) {
  if (!HasRecord() || count <= 0) return;
  content_.Remove(Current(), Within(count, Size() - Current()));
  item_ = 0;
}

Result<void> OpenVdm::SingleSeek(std::int64_t count) {
  if (!HasRecord()) return {};
  VANZET_TRY(const auto record, content_.Read(Current()));
  item_ += Within(count, record->Size() - item_);
  return {};
}

Result<std::string_view> OpenVdm::SingleGet() {
  if (!HasRecord()) return std::string_view();
  VANZET_TRY(const auto record, content_.Read(Current()));
  if (item_ == record->Size()) return std::string_view();
  return std::string_view((*record)[item_++]);
}

Result<void> OpenVdm::SingleAdd(std::string_view text) {
  VANZET_DO(CheckItem(text));
  if (!HasRecord()) return {};
  VANZET_TRY(const auto record, content_.Edit(Current()));
  record->Insert(item_, std::string(text));
  ++item_;
  return {};
}

Result<void> OpenVdm::SingleReplace(std::string_view text) {
  VANZET_DO(CheckItem(text));
  if (!HasRecord()) return {};
  VANZET_TRY(const auto before, content_.Read(Current()));
  // Callers often write the text that the item already has; the record then needs no writing.
  if (item_ == before->Size() || (*before)[item_] == text) return {};
  VANZET_TRY(const auto record, content_.Edit(Current()));
  (*record)[item_] = text;
  return {};
}

Result<void> OpenVdm::SingleDelete(std::int64_t count) {
  if (!HasRecord()) return {};
  VANZET_TRY(const auto before, content_.Read(Current()));
  const std::size_t removed = Within(count, before->Size() - item_);
  if (removed == 0) return {};
  VANZET_TRY(const auto record, content_.Edit(Current()));
  record->Remove(item_, removed);
  return {};
}

}  // namespace vanzet::vdm
