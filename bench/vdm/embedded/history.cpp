#include "vdm/embedded/history.h"

#include "vdm/embedded/schema.h"
#include "vdm/embedded/stored_record.h"

namespace vanzet::vdm {
namespace {

constexpr std::string_view kGenerations =
    "SELECT number, time, user, host, program, occasion FROM generation";
constexpr std::string_view kLastGeneration = "SELECT coalesce(max(number), 0) FROM generation";
constexpr std::string_view kVersions =
    "SELECT number, first, last FROM vdm WHERE ?1 IS NULL OR number=?1 ORDER BY number, last";
constexpr std::string_view kPlaces =
    "SELECT first, last, position, record FROM place WHERE vdm=?1 ORDER BY first, last";
constexpr std::string_view kPlacesAt =
    "SELECT first, last, position, record FROM place WHERE vdm=?1 AND last>=?2 AND first<=?2 "
    "ORDER BY position";

std::int64_t Bound(Number number) {
  return static_cast<std::int64_t>(number);
}

Generation GenerationOf(const SqliteRow& row) {
  const auto text = [&](int column) { return std::string(row.Bytes(column)); };
  return {row.Integer(0), text(1), text(2), text(3), text(4), text(5)};
}

Result<std::vector<PlaceRow>> PlacesOf(SqliteConnection& connection, std::string_view sql,
                                       std::initializer_list<SqliteConnection::Value> values) {
  std::vector<PlaceRow> places;
  VANZET_DO(connection.Run(sql, values, [&](const SqliteRow& row) -> Result<void> {
    places.push_back({row.Integer(0), row.Integer(1), row.Integer(2), RecordKey{row.Integer(3)}});
    return {};
  }));
  return places;
}

}  // namespace

Result<std::vector<VersionRow>> SqliteHistory::Versions(std::optional<Number> only) {
  std::vector<VersionRow> versions;
  const auto wanted =
      only ? SqliteConnection::Value(Bound(*only)) : SqliteConnection::Value(std::monostate());
  VANZET_DO(connection_->Run(kVersions, {wanted}, [&](const SqliteRow& row) -> Result<void> {
    const auto number = NumberFrom(row.Integer(0));
    if (!number) return connection_->DamageOf(number.fault().text);
    versions.push_back({*number, row.Integer(1), row.Integer(2)});
    return {};
  }));
  return versions;
}

Result<std::map<std::int64_t, Generation>> SqliteHistory::Generations() {
  std::map<std::int64_t, Generation> generations;
  VANZET_DO(connection_->Run(kGenerations, {}, [&](const SqliteRow& row) -> Result<void> {
    generations.emplace(row.Integer(0), GenerationOf(row));
    return {};
  }));
  return generations;
}

Result<std::int64_t> SqliteHistory::LastGeneration() {
  return connection_->Integer(kLastGeneration);
}

Result<std::vector<PlaceRow>> SqliteHistory::Places(Number number) {
  return PlacesOf(*connection_, kPlaces, {Bound(number)});
}

Result<std::vector<PlaceRow>> SqliteHistory::PlacesAt(Number number, std::int64_t generation) {
  return PlacesOf(*connection_, kPlacesAt, {Bound(number), generation});
}

Result<Record> SqliteHistory::Load(Number number, RecordKey key) {
  return LoadRecord(*connection_, QueriesOf(kStoreSchema), number, key);
}

Fault SqliteHistory::FaultOf(std::string text, FaultKind kind) const {
  if (kind == FaultKind::kDamaged) return connection_->DamageOf(text);
  return connection_->FaultOf(text, kind);
}

}  // namespace vanzet::vdm
