#include "vdm/stored_record.h"

namespace vanzet::vdm {
namespace {

RecordRow RowOf(const SqliteRow& row) {
  return {row.Integer(0), row.Bytes(1), row.IsNull(2) ? std::nullopt : std::optional(row.Integer(2))};
}

Result<Record> RecordOf(const SqliteRow& row) {
  return VerifiedRecord(RowOf(row));
}

Result<RecordHead> HeadOf(const SqliteRow& row) {
  return VerifiedHead(RowOf(row), row.Integer(3));
}

/// Reads the row of one record by a statement. What is wrong with it is
/// reported with its place.
template <class Content>
Result<Content> Load(SqliteConnection& connection, std::string_view sql,
                     std::initializer_list<SqliteConnection::Value> values, const std::string& place,
                     Result<Content> (*read)(const SqliteRow&)) {
  const auto damage = [&](const std::string& what) { return connection.DamageOf(place + ": " + what); };
  std::optional<Content> content;
  VANZET_DO(connection.Run(sql, values, [&](const SqliteRow& row) -> Result<void> {
    auto found = read(row);
    if (!found) return damage(found.fault().text);
    content = std::move(*found);
    return {};
  }));
  if (!content) return damage("it is missing");
  return std::move(*content);
}

}  // namespace

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

Result<Record> LoadRecord(SqliteConnection& connection, const StoreQueries& queries, Number number,
                          RecordKey key) {
  return Load<Record>(connection, queries.record, {static_cast<std::int64_t>(key)}, PlaceOf(key, number),
                      RecordOf);
}

Result<RecordHead> LoadHead(SqliteConnection& connection, const StoreQueries& queries, Number number,
                            RecordKey key) {
  return Load<RecordHead>(connection, queries.head,
                          {static_cast<std::int64_t>(key), static_cast<std::int64_t>(kHeadBytes)},
                          PlaceOf(key, number), HeadOf);
}

}  // namespace vanzet::vdm
