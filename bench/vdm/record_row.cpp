#include "vdm/record_row.h"

#include <bit>

#include "vdm/checksum.h"

namespace vanzet::vdm {

Result<Record> VerifiedRecord(const RecordRow& row) {
  VANZET_TRY(auto record, RecordFrom(row.content, row.items));
  if (!row.checksum || *row.checksum == StoredChecksum(row.content)) return record;
  return Fault{.text = "its checksum is another one: its bytes were changed", .kind = FaultKind::kDamaged};
}

Result<RecordHead> VerifiedHead(const RecordRow& row, std::int64_t bytes) {
  const bool isWhole = bytes == static_cast<std::int64_t>(row.content.size());
  if (!isWhole) return RecordHeadFrom(row.content, row.items);
  VANZET_TRY(auto record, VerifiedRecord(row));
  const std::size_t items = record.Size();
  return RecordHead{std::move(record), items};
}

std::string PlaceOf(RecordKey key, Number number) {
  return "record " + std::to_string(static_cast<std::int64_t>(key)) + ", of " + NameOf(number);
}

std::int64_t StoredChecksum(std::string_view bytes) {
  return std::bit_cast<std::int64_t>(ChecksumOf(bytes));
}

}  // namespace vanzet::vdm
