#include "vdm/embedded/stored_record.h"

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
