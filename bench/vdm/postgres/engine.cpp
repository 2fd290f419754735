#include "vdm/postgres/engine.h"

#include <algorithm>

#include "vdm/commit_origin.h"
#include "vdm/postgres/file.h"
#include "vdm/postgres/history.h"
#include "vdm/postgres/records.h"
#include "vdm/postgres/schema.h"
#include "vdm/record_row.h"

namespace vanzet::vdm {
namespace {

constexpr std::string_view kNumbers = R"(
  SELECT number FROM vanzet.vdm
  WHERE project=(SELECT id FROM vanzet.project WHERE name=$1) AND last=9223372036854775807 ORDER BY number)";
constexpr std::string_view kExists = R"(
  SELECT count(*) FROM vanzet.vdm
  WHERE project=(SELECT id FROM vanzet.project WHERE name=$1) AND number=$2 AND last=9223372036854775807)";
constexpr std::string_view kOrder = R"(
  SELECT v.number, p.position, p.record
  FROM vanzet.vdm v LEFT JOIN vanzet.place p
    ON p.project=v.project AND p.vdm=v.number AND p.last=9223372036854775807
  WHERE v.project=(SELECT id FROM vanzet.project WHERE name=$1) AND v.number=$2
    AND v.last=9223372036854775807
  ORDER BY p.position)";
// One statement sees one state, with any number of VDMs. $3 is the number of bytes of each record at most.
constexpr std::string_view kRecords = R"(
  SELECT v.number, p.position, p.record, r.items, r.checksum, substr(r.content, 1, $3::int),
         length(r.content)::bigint
  FROM vanzet.vdm v LEFT JOIN vanzet.place p
    ON p.project=v.project AND p.vdm=v.number AND p.last=9223372036854775807
  LEFT JOIN vanzet.record r ON r.project=v.project AND r.key=p.record
  WHERE v.project=(SELECT id FROM vanzet.project WHERE name=$1) AND v.number=ANY($2)
    AND v.last=9223372036854775807
  ORDER BY v.number, p.position)";
constexpr std::int64_t kWhole = INT32_MAX;
constexpr std::string_view kFile = R"(
  SELECT name, former, content FROM vanzet.file
  WHERE project=(SELECT id FROM vanzet.project WHERE name=$1) AND folder=$2)";

PostgresValue ManyNumbers(const std::vector<Number>& numbers) {
  std::vector<std::int64_t> values;
  values.reserve(numbers.size());
  for (const Number number : numbers) values.push_back(static_cast<std::int64_t>(number));
  return PostgresValue::Integers(values);
}

RecordRow RecordRowOf(const PostgresRows& rows, int row) {
  return {rows.Integer(row, 3), rows.Bytes(row, 5), rows.Integer(row, 4)};
}

/// Visits the rows of `kOrder` and `kRecords`: `vdm` for each VDM, `record` for each of its
/// records, whose faults get their place.
template <class OnVdm, class OnRecord>
Result<void> ForEachRecord(const PostgresConnection& connection, const PostgresRows& rows, const OnVdm& vdm,
                           const OnRecord& record) {
  std::int64_t expected = 0;
  for (int row = 0; row < rows.Size(); ++row) {
    const auto number = NumberFrom(rows.Integer(row, 0));
    if (!number) return connection.DamageOf(number.fault().text);
    if (row == 0 || rows.Integer(row, 0) != rows.Integer(row - 1, 0)) {
      vdm(*number);
      expected = 0;
    }
    if (rows.IsNull(row, 1)) continue;  // a VDM without records
    if (rows.Integer(row, 1) != expected) {
      return connection.DamageOf(NameOf(*number) + " has no record " + std::to_string(expected));
    }
    ++expected;
    if (const Result<void> done = record(*number, row); !done) {
      return connection.DamageOf(PlaceOf(RecordKey{rows.Integer(row, 2)}, *number) + ": " +
                                 done.fault().text);
    }
  }
  return {};
}

Fault MissingRecord() {
  return {.text = "it is missing", .kind = FaultKind::kDamaged};
}

}  // namespace

std::unique_ptr<StoreLocks> PostgresEngine::Locks() const {
  return std::make_unique<PostgresLocks>(session_);
}

Result<std::unique_ptr<PostgresWatch>> PostgresEngine::Watch() const {
  return PostgresWatch::Begin(session_->connectionText(), session_->project());
}

Result<std::vector<Number>> PostgresEngine::Numbers() {
  VANZET_TRY(const auto rows, session_->Read({kNumbers, {Project()}}));
  VANZET_TRY(const auto* const connection, session_->Connection());
  std::vector<Number> numbers;
  for (int i = 0; rows && i < rows->Size(); ++i) {
    const auto number = NumberFrom(rows->Integer(i, 0));
    if (!number) return connection->DamageOf(number.fault().text);
    numbers.push_back(*number);
  }
  return numbers;
}

Result<bool> PostgresEngine::Exists(Number number) {
  VANZET_TRY(const auto rows, session_->Read({kExists, {Project(), static_cast<std::int64_t>(number)}}));
  return rows && rows->Integer(0, 0) > 0;
}

Result<std::optional<Vdm>> PostgresEngine::Open(Number number) {
  VANZET_TRY(const auto rows, session_->Read({kOrder, {Project(), static_cast<std::int64_t>(number)}}));
  if (!rows || rows->Size() == 0) return std::optional<Vdm>();
  VANZET_TRY(const auto* const connection, session_->Connection());
  std::vector<RecordKey> keys;
  VANZET_DO(ForEachRecord(
      *connection, *rows, [](Number) {},
      [&](Number, int row) -> Result<void> {
        keys.push_back(RecordKey{rows->Integer(row, 2)});
        return {};
      }));
  const auto records = std::make_shared<PostgresRecords>(session_, number, keys);
  return std::optional<Vdm>(Vdm(keys, [records](RecordKey key) { return records->Load(key); }));
}

Result<std::map<Number, Vdm>> PostgresEngine::Read(const std::vector<Number>& numbers) {
  VANZET_TRY(const auto rows, session_->Read({kRecords, {Project(), ManyNumbers(numbers), kWhole}}));
  VANZET_TRY(const auto* const connection, session_->Connection());
  std::map<Number, Vdm> contents;
  if (!rows) return contents;
  const auto addVdm = [&](Number number) { contents.try_emplace(number); };
  const auto addRecord = [&](Number number, int row) -> Result<void> {
    if (rows->IsNull(row, 3)) return MissingRecord();
    VANZET_TRY(auto record, VerifiedRecord(RecordRowOf(*rows, row)));
    Vdm& content = contents.at(number);
    content.Insert(content.Size(), std::move(record));
    return {};
  };
  VANZET_DO(ForEachRecord(*connection, *rows, addVdm, addRecord));
  return contents;
}

Result<std::map<Number, RecordHeads>> PostgresEngine::ReadHeads(const std::vector<Number>& numbers) {
  constexpr auto kBytes = static_cast<std::int64_t>(kHeadBytes);
  VANZET_TRY(const auto rows, session_->Read({kRecords, {Project(), ManyNumbers(numbers), kBytes}}));
  VANZET_TRY(const auto* const connection, session_->Connection());
  std::map<Number, RecordHeads> heads;
  if (!rows) return heads;
  const auto addVdm = [&](Number number) { heads.try_emplace(number); };
  const auto addRecord = [&](Number number, int row) -> Result<void> {
    if (rows->IsNull(row, 3)) return MissingRecord();
    VANZET_TRY(auto head, VerifiedHead(RecordRowOf(*rows, row), rows->Integer(row, 6)));
    heads.at(number).push_back(std::move(head));
    return {};
  };
  VANZET_DO(ForEachRecord(*connection, *rows, addVdm, addRecord));
  return heads;
}

/// The generations that a visitor has seen: it sees none again when the reading begins again, and all that it
/// sees is of one state.
struct PostgresEngine::Visits {
  const GenerationVisitor& visitor;
  std::string place;
  std::vector<std::int64_t> seen = {};
  std::size_t next = 0;  ///< in `seen`, of the reading that goes on

  Result<void> Add(const PastGeneration& past) {
    if (next < seen.size()) return seen[next++] == past.generation.number ? Result<void>() : OtherState();
    VANZET_DO(visitor(past));
    seen.push_back(past.generation.number);
    ++next;
    return {};
  }

  Result<void> CheckAll() const { return next == seen.size() ? Result<void>() : OtherState(); }

  Fault OtherState() const {
    return {.text = "the connection broke, and old generations were removed before they could be read again",
            .file = place,
            .kind = FaultKind::kBusy};
  }
};

Result<bool> PostgresEngine::ReadHistory(const HistoryReading& read) {
  return session_->Repeat([&](PostgresConnection& connection) {
    const int count = session_->Connections();
    auto hasTables = ReadHistoryOn(connection, read);
    if (const auto same = session_->ConnectionOf(count)) (*same)->RollBack();
    return hasTables;
  });
}

Result<bool> PostgresEngine::ReadHistoryOn(PostgresConnection& connection, const HistoryReading& read) const {
  const auto begun =
      connection.Run({{"BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"}, {kReadServerSchema}});
  if (!begun && HasNoTables(connection)) return false;
  if (!begun) return begun.fault();
  VANZET_DO(CheckServerSchema(connection, begun->back()));
  GenerationReader reader(std::make_shared<PostgresHistory>(session_));
  VANZET_DO(read(reader));
  return true;
}

Result<std::vector<VdmChange>> PostgresEngine::ListChanges(std::optional<Number> only) {
  std::vector<VdmChange> changes;
  VANZET_DO(ReadHistory([&](GenerationReader& reader) -> Result<void> {
    VANZET_TRY(changes, reader.ListChanges(only));
    return {};
  }));
  return changes;
}

Result<std::map<Number, Vdm>> PostgresEngine::ReadAt(std::int64_t generation, std::optional<Number> only) {
  std::map<Number, Vdm> contents;
  VANZET_TRY(const bool hasTables, ReadHistory([&](GenerationReader& reader) -> Result<void> {
               VANZET_TRY(contents, reader.ReadAt(generation, only));
               return {};
             }));
  if (hasTables) return contents;
  VANZET_TRY(const auto* const connection, session_->Connection());
  return connection->FaultOf("has no generations yet", FaultKind::kMissing);
}

Result<void> PostgresEngine::Visit(std::optional<Number> only, const GenerationVisitor& visitor) {
  Visits visits{visitor, session_->Name()};
  const GenerationVisitor visit = [&](const PastGeneration& past) { return visits.Add(past); };
  const auto read = [&](GenerationReader& reader) -> Result<void> {
    visits.next = 0;
    VANZET_DO(reader.Visit(only, visit));
    return visits.CheckAll();
  };
  VANZET_DO(ReadHistory(read));
  return {};
}

Result<std::optional<TextFile>> PostgresEngine::UnfinishedFile() {
  VANZET_TRY(const auto rows, session_->Read({kFile, {Project(), PostgresValue::Text(folder_)}}));
  if (!rows || rows->Size() == 0) return std::optional<TextFile>();
  TextFile file{std::string(rows->Bytes(0, 0)), std::string(rows->Bytes(0, 2))};
  if (!rows->IsNull(0, 1)) file.former = static_cast<std::uint64_t>(rows->Integer(0, 1));
  return std::optional(std::move(file));
}

Result<void> PostgresEngine::FinishFile() {
  VANZET_DO(session_->Run({{kMakeFileLast, {Project(), PostgresValue::Text(folder_)}}}));
  return {};
}

}  // namespace vanzet::vdm
