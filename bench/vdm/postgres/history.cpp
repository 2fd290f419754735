#include "vdm/postgres/history.h"

#include <algorithm>

namespace vanzet::vdm {
namespace {

constexpr std::string_view kGenerations = R"(
  SELECT number, time, "user", host, program, occasion FROM vanzet.generation
  WHERE project=(SELECT id FROM vanzet.project WHERE name=$1))";
constexpr std::string_view kLastGeneration =
    "SELECT coalesce(max(last_generation), 0) FROM vanzet.project WHERE name=$1";
constexpr std::string_view kVersions = R"(
  SELECT number, first, last FROM vanzet.vdm
  WHERE project=(SELECT id FROM vanzet.project WHERE name=$1) AND ($2::bigint IS NULL OR number=$2)
  ORDER BY number, last)";
constexpr std::string_view kPlaces = R"(
  SELECT first, last, position, record FROM vanzet.place
  WHERE project=(SELECT id FROM vanzet.project WHERE name=$1) AND vdm=$2 ORDER BY first, last)";
constexpr std::string_view kPlacesAt = R"(
  SELECT first, last, position, record FROM vanzet.place
  WHERE project=(SELECT id FROM vanzet.project WHERE name=$1) AND vdm=$2 AND last>=$3 AND first<=$3
  ORDER BY position)";

// The generations that changed a VDM are those that a state begins with, and those after the end of one: the
// next state begins there, or it was removed. The oldest one that stays is the one of the number `keep` from
// the newest. All parts see the rows as they were before the statement.
constexpr std::string_view kCut = R"(
  WITH change AS (
    SELECT number, first AS generation FROM vanzet.vdm WHERE project=$1 AND first>0
    UNION
    SELECT number, last + 1 FROM vanzet.vdm WHERE project=$1 AND last<9223372036854775807),
  ranked AS (
    SELECT number, generation, row_number() OVER newest AS rank, count(*) OVER (PARTITION BY number) AS changes
    FROM change WINDOW newest AS (PARTITION BY number ORDER BY generation DESC)),
  cut AS (SELECT number, generation FROM ranked WHERE rank=$2 AND changes>$2),
  records AS (
    DELETE FROM vanzet.record r USING (
      SELECT p.record FROM vanzet.place p JOIN cut c ON p.vdm=c.number
      WHERE p.project=$1 AND p.last<c.generation
      EXCEPT
      SELECT p.record FROM vanzet.place p JOIN cut c ON p.vdm=c.number
      WHERE p.project=$1 AND p.last>=c.generation) AS gone
    WHERE r.project=$1 AND r.key=gone.record),
  places AS (
    DELETE FROM vanzet.place p USING cut c WHERE p.project=$1 AND p.vdm=c.number AND p.last<c.generation),
  versions AS (
    DELETE FROM vanzet.vdm v USING cut c
    WHERE v.project=$1 AND v.number=c.number AND v.last<c.generation - 1)
  INSERT INTO vanzet.vdm(project, number, last, first) SELECT $1, number, generation - 1, 0 FROM cut
  ON CONFLICT(project, number, last) DO UPDATE SET first=0)";
constexpr std::string_view kForgetGenerations = R"(
  DELETE FROM vanzet.generation WHERE project=$1 AND number<$2 AND number NOT IN (
    SELECT first FROM vanzet.vdm WHERE project=$1
    UNION SELECT last + 1 FROM vanzet.vdm WHERE project=$1 AND last<9223372036854775807))";

}  // namespace

Result<PostgresRows> PostgresHistory::Read(PostgresStatement statement) {
  statement.values.insert(statement.values.begin(), PostgresValue::Text(session_->project()));
  VANZET_TRY(auto* const connection, session_->ConnectionOf(connection_));
  VANZET_TRY(auto answers, connection->Run({std::move(statement)}));
  return std::move(answers.front());
}

Result<std::vector<VersionRow>> PostgresHistory::Versions(std::optional<Number> only) {
  const auto wanted = only ? PostgresValue(static_cast<std::int64_t>(*only)) : PostgresValue::NullInteger();
  VANZET_TRY(const auto rows, Read({kVersions, {wanted}}));
  std::vector<VersionRow> versions;
  for (int i = 0; i < rows.Size(); ++i) {
    const auto number = NumberFrom(rows.Integer(i, 0));
    if (!number) return FaultOf(number.fault().text, FaultKind::kDamaged);
    versions.push_back({*number, rows.Integer(i, 1), rows.Integer(i, 2)});
  }
  return versions;
}

Result<std::map<std::int64_t, Generation>> PostgresHistory::Generations() {
  VANZET_TRY(const auto rows, Read({kGenerations}));
  std::map<std::int64_t, Generation> generations;
  for (int i = 0; i < rows.Size(); ++i) {
    const auto text = [&](int column) { return std::string(rows.Bytes(i, column)); };
    generations.emplace(rows.Integer(i, 0),
                        Generation{rows.Integer(i, 0), text(1), text(2), text(3), text(4), text(5)});
  }
  return generations;
}

Result<std::int64_t> PostgresHistory::LastGeneration() {
  VANZET_TRY(const auto rows, Read({kLastGeneration}));
  return rows.Integer(0, 0);
}

Result<std::vector<PlaceRow>> PostgresHistory::Places(Number number) {
  return PlacesOf({kPlaces, {static_cast<std::int64_t>(number)}});
}

Result<std::vector<PlaceRow>> PostgresHistory::PlacesAt(Number number, std::int64_t generation) {
  return PlacesOf({kPlacesAt, {static_cast<std::int64_t>(number), generation}});
}

Result<std::vector<PlaceRow>> PostgresHistory::PlacesOf(PostgresStatement statement) {
  VANZET_TRY(const auto rows, Read(std::move(statement)));
  std::vector<PlaceRow> places;
  places.reserve(static_cast<std::size_t>(rows.Size()));
  for (int i = 0; i < rows.Size(); ++i) {
    places.push_back(
        {rows.Integer(i, 0), rows.Integer(i, 1), rows.Integer(i, 2), RecordKey{rows.Integer(i, 3)}});
  }
  return places;
}

void PostgresHistory::Expect(Number number, const std::vector<RecordKey>& keys) {
  expected_.insert_or_assign(number, PostgresRecords(session_, number, keys));
}

Result<Record> PostgresHistory::Load(Number number, RecordKey key) {
  const auto expected = expected_.find(number);
  auto record = expected != expected_.end() ? expected->second.Load(key)
                                            : PostgresRecords(session_, number, {key}).Load(key);
  // A record that is missing on another connection may have been there in this transaction.
  VANZET_DO(session_->ConnectionOf(connection_));
  return record;
}

Fault PostgresHistory::FaultOf(std::string text, FaultKind kind) const {
  const auto connection = session_->Connection();
  if (!connection) return connection.fault();
  if (kind == FaultKind::kDamaged) return (*connection)->DamageOf(text);
  return (*connection)->FaultOf(std::move(text), kind);
}

std::vector<PostgresStatement> StatementsThatTrim(std::int64_t project, std::int64_t generation,
                                                  std::int64_t keep) {
  constexpr std::int64_t kParts = 8;
  if (generation % (keep / kParts + 1) != 0) return {};
  return {{kCut, {project, std::max<std::int64_t>(keep, 1)}}, {kForgetGenerations, {project, generation}}};
}

}  // namespace vanzet::vdm
