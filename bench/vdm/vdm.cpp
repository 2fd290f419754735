#include "vdm/vdm.h"

namespace vanzet::vdm {

Result<Number> NumberFrom(std::int64_t value) {
  if (value < 0 || value > std::int64_t{INT32_MAX}) {
    return Fault{.text = "no such VDM number: " + std::to_string(value), .kind = FaultKind::kMissing};
  }
  return Number{static_cast<std::uint32_t>(value)};
}

std::string NameOf(Number number) {
  return "VDM " + std::to_string(static_cast<std::uint32_t>(number));
}

Vdm::Vdm(const std::vector<RecordKey>& keys, RecordLoader load) : load_(std::move(load)), isChanged_(false) {
  std::vector<Entry> entries(keys.size());
  for (std::size_t i = 0; i < keys.size(); ++i) entries[i].key = keys[i];
  entries_ = GapBuffer<Entry>(std::move(entries));
}

Result<const Record*> Vdm::Read(std::size_t record) const {
  const Entry& entry = entries_[record];
  if (entry.content == nullptr) {
    VANZET_TRY(auto content, load_(*entry.key));
    entry.content = std::make_shared<Record>(std::move(content));
  }
  return entry.content.get();
}

Result<Record*> Vdm::Edit(std::size_t record) {
  VANZET_DO(Read(record));
  Entry& entry = entries_[record];
  if (entry.content.use_count() > 1) entry.content = std::make_shared<Record>(*entry.content);
  entry.isChanged = isChanged_ = true;
  return entry.content.get();
}

void Vdm::Insert(std::size_t at, Record content) {
  Entry entry;
  entry.content = std::make_shared<Record>(std::move(content));
  entries_.Insert(at, std::move(entry));
  isChanged_ = true;
}

void Vdm::Remove(std::size_t at, std::size_t count) {
  entries_.Remove(at, count);
  isChanged_ = true;
}

Result<Vdm> Vdm::Copy() const {
  Vdm copy;
  for (std::size_t i = 0; i < Size(); ++i) {
    VANZET_DO(Read(i));
    copy.entries_.Insert(i, {.content = entries_[i].content});
  }
  return copy;
}

}  // namespace vanzet::vdm
