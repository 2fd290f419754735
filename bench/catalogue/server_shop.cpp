#include "catalogue/server_shop.h"

#include <algorithm>
#include <map>
#include <span>

#include "vdm/commit_origin.h"
#include "vdm/postgres/channel.h"
#include "vdm/postgres/schema.h"

namespace vanzet::catalogue {
namespace {

using vdm::PostgresRows;
using vdm::PostgresStatement;
using vdm::PostgresValue;

/// The rows of one statement at most.
constexpr std::size_t kRowsTogether = 10'000;

/// The column of a device behind number and token of its generation.
constexpr int kFirstOfDevice = 2;

constexpr std::string_view kIsMissing = R"(
  SELECT (to_regclass('vanzet.schema') IS NOT NULL AND to_regclass('vanzet.device') IS NULL)::int::bigint)";
constexpr std::string_view kGeneration = R"(
  SELECT g.number, g.token FROM vanzet.project p
  JOIN vanzet.generation g ON g.project=p.id AND g.number=p.last_generation WHERE p.name=$1)";
// One statement sees one state: a catalogue without devices has a row of its generation alone.
constexpr std::string_view kRead = R"(
  SELECT g.number, g.token, d.position, d.name, d.lines, d.figures FROM vanzet.project p
  JOIN vanzet.generation g ON g.project=p.id AND g.number=p.last_generation
  LEFT JOIN vanzet.device d ON d.project=p.id AND d.last=9223372036854775807
  WHERE p.name=$1 ORDER BY d.position)";
constexpr std::string_view kReadAt = R"(
  SELECT g.number, g.token, d.position, d.name, d.lines, d.figures FROM vanzet.project p
  JOIN vanzet.generation g ON g.project=p.id AND g.number=$2 AND g.token=$3
  LEFT JOIN vanzet.device d ON d.project=p.id AND d.last>=$2 AND d.first<=$2
  WHERE p.name=$1 ORDER BY d.position)";
constexpr std::string_view kStates = R"(
  SELECT d.first, d.last, d.former, d.position, d.name, d.lines, d.figures FROM vanzet.device d
  WHERE d.project=(SELECT id FROM vanzet.project WHERE name=$1) AND d.name=$2 ORDER BY d.first, d.position)";
constexpr std::string_view kGenerations = R"(
  SELECT number, time, "user", host, program, occasion FROM vanzet.generation
  WHERE project=(SELECT id FROM vanzet.project WHERE name=$1) AND number=ANY($2))";

constexpr std::string_view kReadNow = R"(
  SELECT position, name, lines, figures FROM vanzet.device
  WHERE project=$1 AND last=9223372036854775807 ORDER BY position)";
constexpr std::string_view kEnd = R"(
  UPDATE vanzet.device SET last=$3 - 1 WHERE project=$1 AND last=9223372036854775807 AND position=ANY($2))";
constexpr std::string_view kAdd = R"(
  INSERT INTO vanzet.device(project, position, last, first, former, name, lines, figures)
  SELECT $1, position, 9223372036854775807, $2, former, name, lines, figures
  FROM unnest($3::bigint[], $4::bigint[], $5::bytea[], $6::bytea[], $7::bytea[])
    AS added(position, former, name, lines, figures))";
constexpr std::string_view kTrim = R"(
  DELETE FROM vanzet.device d USING (
    SELECT position, last, row_number() OVER (PARTITION BY name ORDER BY last DESC) AS rank
    FROM vanzet.device WHERE project=$1 AND name=ANY($2)) AS ranked
  WHERE d.project=$1 AND d.position=ranked.position AND d.last=ranked.last AND ranked.rank>$3
    AND d.last<9223372036854775807)";
// A state of the catalogue that lacks a device is none: the generation goes with the states that it made.
constexpr std::string_view kForgetGenerations = R"(
  DELETE FROM vanzet.generation WHERE project=$1 AND number<$2 AND number NOT IN (
    SELECT first FROM vanzet.device WHERE project=$1
    UNION SELECT last + 1 FROM vanzet.device WHERE project=$1 AND last<9223372036854775807))";

/// Makes the table of devices in a schema that was made before there was one. A new schema has it.
Result<void> MakeTable(vdm::PostgresSession& session) {
  VANZET_TRY(const auto answers, session.Run({{kIsMissing}}));
  if (answers.front().Integer(0, 0) == 0) return {};
  VANZET_DO(session.Run({{vdm::kLockMaking}, {vdm::kMakeDevices}, {vdm::kMakeDeviceIndex}}));
  return {};
}

/// The devices of rows that have position, name, lines and figures from a column on.
DeviceRows DevicesOf(const PostgresRows& rows, int column) {
  DeviceRows devices;
  devices.reserve(static_cast<std::size_t>(rows.Size()));
  for (int i = 0; i < rows.Size(); ++i) {
    if (rows.IsNull(i, column)) continue;
    const auto text = [&](int which) { return std::string(rows.Bytes(i, column + which)); };
    devices.push_back({rows.Integer(i, column), text(1), text(2), text(3)});
  }
  return devices;
}

/// The generation at the beginning of rows; nothing without rows.
std::optional<ServerState> StateOf(const std::optional<PostgresRows>& rows) {
  if (!rows || rows->Size() == 0) return std::nullopt;
  return ServerState{rows->Integer(0, 0), std::string(rows->Bytes(0, 1))};
}

/// The statements that add rows; `ended` are those that they may take the place of.
std::vector<PostgresStatement> StatementsThatAdd(std::int64_t project, std::int64_t generation,
                                                 std::span<const DeviceRow> added, const DeviceRows& ended) {
  std::vector<PostgresStatement> statements;
  while (!added.empty()) {
    std::vector<std::int64_t> positions, formers;
    std::vector<std::string_view> names, lines, figures;
    const auto part = added.first(std::min(added.size(), kRowsTogether));
    for (const DeviceRow& row : part) {
      positions.push_back(row.position);
      formers.push_back(std::ranges::binary_search(ended, row.position, {}, &DeviceRow::position) ? 1 : 0);
      names.emplace_back(row.name);
      lines.emplace_back(row.lines);
      figures.emplace_back(row.figures);
    }
    statements.push_back({kAdd,
                          {project, generation, PostgresValue::Integers(positions),
                           PostgresValue::Integers(formers), PostgresValue::ManyBytes(names),
                           PostgresValue::ManyBytes(lines), PostgresValue::ManyBytes(figures)}});
    added = added.subspan(part.size());
  }
  return statements;
}

PostgresStatement StatementThatEnds(std::int64_t project, std::int64_t generation, const DeviceRows& ended) {
  std::vector<std::int64_t> positions;
  for (const DeviceRow& row : ended) positions.push_back(row.position);
  return {kEnd, {project, PostgresValue::Integers(positions), generation}};
}

/// Only devices that change can get too many states. Looking for generations that made none of those that
/// stay reads all devices, so that not each change does it.
std::vector<PostgresStatement> StatementsThatTrim(std::int64_t project, std::int64_t generation,
                                                  const DeviceRows& ended, std::int64_t keep) {
  constexpr std::int64_t kParts = 8;
  std::vector<std::string_view> names;
  for (const DeviceRow& row : ended) names.emplace_back(row.name);
  std::vector<PostgresStatement> statements = {
      {kTrim, {project, PostgresValue::ManyBytes(names), std::max<std::int64_t>(keep, 1)}}};
  if (generation % (keep / kParts + 1) == 0)
    statements.push_back({kForgetGenerations, {project, generation}});
  return statements;
}

vdm::Generation GenerationOf(std::int64_t number, const std::string& occasion) {
  const vdm::CommitOrigin origin = vdm::OriginOfProcess();
  return {number, vdm::TimeText(), origin.user, origin.host, origin.program, occasion};
}

/// A generation of which the rest is not known.
vdm::Generation GenerationNumbered(std::int64_t number) {
  vdm::Generation generation;
  generation.number = number;
  return generation;
}

/// The states of rows of `kStates`, the oldest first; the generations have their numbers alone.
std::vector<PastDevice> PastDevicesOf(const PostgresRows& rows) {
  constexpr std::int64_t kNow = INT64_MAX;
  std::vector<PastDevice> states;
  for (int i = 0; i < rows.Size(); ++i) {
    const auto text = [&](int column) { return std::string(rows.Bytes(i, column)); };
    const std::int64_t first = rows.Integer(i, 0), last = rows.Integer(i, 1);
    const DeviceRow row{rows.Integer(i, 3), text(4), text(5), text(6)};
    states.push_back({GenerationNumbered(first), row, rows.Integer(i, 2) != 0});
    const bool isFollowed = i + 1 < rows.Size() && rows.Integer(i + 1, 0) == last + 1;
    if (last != kNow && !isFollowed) states.push_back({GenerationNumbered(last + 1), {}, true});
  }
  return states;
}

std::map<std::int64_t, vdm::Generation> GenerationsOf(const PostgresRows& rows) {
  std::map<std::int64_t, vdm::Generation> generations;
  for (int i = 0; i < rows.Size(); ++i) {
    const auto text = [&](int column) { return std::string(rows.Bytes(i, column)); };
    generations.emplace(rows.Integer(i, 0),
                        vdm::Generation{rows.Integer(i, 0), text(1), text(2), text(3), text(4), text(5)});
  }
  return generations;
}

}  // namespace

ServerShop::ServerShop(std::string connectionText, const std::string& name, std::int64_t keep)
    : session_(std::make_shared<vdm::PostgresSession>(std::move(connectionText), ProjectOf(name))),
      keep_(keep) {}

Result<std::optional<ServerState>> ServerShop::Read() {
  VANZET_TRY(const auto rows, session_->Read({kRead, {Name()}}));
  auto state = StateOf(rows);
  if (state) state->rows = DevicesOf(*rows, kFirstOfDevice);
  return state;
}

Result<std::optional<ServerState>> ServerShop::ReadGeneration() {
  VANZET_TRY(const auto rows, session_->Read({kGeneration, {Name()}}));
  return StateOf(rows);
}

Result<std::optional<DeviceRows>> ServerShop::ReadAt(const ServerState& state) {
  VANZET_TRY(const auto rows,
             session_->Read({kReadAt, {Name(), state.generation, PostgresValue::Bytes(state.token)}}));
  if (!StateOf(rows)) return std::optional<DeviceRows>();
  return std::optional(DevicesOf(*rows, kFirstOfDevice));
}

Result<std::vector<PastDevice>> ServerShop::History(const std::string& name) {
  VANZET_TRY(const auto rows, session_->Read({kStates, {Name(), PostgresValue::Bytes(name)}}));
  if (!rows) return std::vector<PastDevice>();
  auto states = PastDevicesOf(*rows);
  std::vector<std::int64_t> numbers;
  numbers.reserve(states.size());
  for (const PastDevice& state : states) numbers.push_back(state.generation.number);
  VANZET_TRY(const auto found, session_->Read({kGenerations, {Name(), PostgresValue::Integers(numbers)}}));
  if (!found) return std::vector<PastDevice>();
  const auto generations = GenerationsOf(*found);
  for (PastDevice& state : states) {
    const auto known = generations.find(state.generation.number);
    if (known != generations.end()) state.generation = known->second;
  }
  std::ranges::reverse(states);
  return states;
}

Result<void> ServerShop::ChangeRows(const std::string& occasion, const Change& change) {
  vdm::PostgresPatience patience = session_->Patience();
  do {
    VANZET_TRY(const auto outcome, TryChange(occasion, change));
    if (outcome == Outcome::kCommitted) return {};
  } while (patience.Pause());
  VANZET_TRY(const auto* const connection, session_->Connection());
  return connection->FaultOf("the connection broke in each attempt: nothing is written", FaultKind::kSystem);
}

Result<ServerShop::Outcome> ServerShop::TryChange(const std::string& occasion, const Change& change) {
  VANZET_DO(session_->Connection());
  const int connection = session_->Connections();
  const auto isLost = [&] { return !session_->ConnectionOf(connection); };
  auto transaction = Begin();
  if (!transaction && isLost()) return Outcome::kLost;
  if (!transaction) return transaction.fault();
  const auto isWritten = ChangeIn(**transaction, occasion, change);
  if (!isWritten && isLost()) return Outcome::kLost;
  if (!isWritten) return isWritten.fault();
  if (!*isWritten) return Outcome::kCommitted;
  return (*transaction)->Commit((*transaction)->generation());
}

/// Begins a change; nobody else changes the catalogue until its end. Makes the catalogue and its table.
Result<std::optional<vdm::PostgresTransaction>> ServerShop::Begin() {
  VANZET_TRY(auto transaction, vdm::PostgresTransaction::Begin(session_, {}));
  if (transaction) return transaction;
  VANZET_DO(MakeTable(*session_));
  VANZET_DO(session_->MakeProject());
  VANZET_TRY(auto made, vdm::PostgresTransaction::Begin(session_, {}));
  if (made) return made;
  VANZET_TRY(const auto* const connection, session_->Connection());
  return connection->DamageOf("the catalogue is not there");
}

Result<bool> ServerShop::ChangeIn(vdm::PostgresTransaction& transaction, const std::string& occasion,
                                  const Change& change) {
  VANZET_TRY(auto* const connection, session_->ConnectionOf(session_->Connections()));
  VANZET_TRY(const auto answers, connection->Run({{kReadNow, {transaction.project()}}}));
  const bool isNew = transaction.generation() == 1;
  const DeviceRows before = DevicesOf(answers.front(), 0);
  VANZET_TRY(const auto now, change(isNew ? std::nullopt : std::optional(before)));
  if (!now) return false;
  const RowChanges changes = ChangesBetween(before, *now);
  if (changes.AreEmpty() && !isNew) return false;
  VANZET_DO(transaction.Run(StatementsOf(transaction, changes, occasion)));
  return true;
}

std::vector<PostgresStatement> ServerShop::StatementsOf(const vdm::PostgresTransaction& transaction,
                                                        const RowChanges& changes,
                                                        const std::string& occasion) const {
  const std::int64_t project = transaction.project(), generation = transaction.generation();
  std::vector<PostgresStatement> statements = {StatementThatEnds(project, generation, changes.ended)};
  for (auto& statement : StatementsThatAdd(project, generation, changes.added, changes.ended))
    statements.push_back(std::move(statement));
  statements.push_back(
      vdm::StatementThatAdds(project, GenerationOf(generation, occasion), transaction.token()));
  for (auto& statement : StatementsThatTrim(project, generation, changes.ended, keep_))
    statements.push_back(std::move(statement));
  statements.push_back(vdm::NoteOfCommit(session_->project(), generation));
  return statements;
}

}  // namespace vanzet::catalogue
