#include "vdm/stored_record.h"

#include <optional>
#include <string>

namespace vanzet::vdm {
namespace {

Result<Record> RecordOf(const SqliteRow& row) {
  VANZET_TRY(auto record, RecordFrom(row.Bytes(1), row.Integer(0)));
  if (row.IsNull(2) || row.Integer(2) == StoredChecksum(row.Bytes(1))) return record;
  return Fault{.text = "its checksum is another one: its bytes were changed", .kind = FaultKind::kDamaged};
}

}  // namespace

Result<Record> LoadRecord(SqliteConnection& connection, const StoreQueries& queries, Number number,
                          RecordKey key) {
  const auto damage = [&](const std::string& what) {
    return connection.DamageOf("record " + std::to_string(static_cast<std::int64_t>(key)) + ", of " +
                               NameOf(number) + ": " + what);
  };
  std::optional<Record> record;
  VANZET_DO(connection.Run(queries.record, {static_cast<std::int64_t>(key)},
                           [&](const SqliteRow& row) -> Result<void> {
                             auto read = RecordOf(row);
                             if (!read) return damage(read.fault().text);
                             record = std::move(*read);
                             return {};
                           }));
  if (!record) return damage("it is missing");
  return std::move(*record);
}

}  // namespace vanzet::vdm
