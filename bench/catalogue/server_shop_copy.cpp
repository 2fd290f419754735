// Copies of a catalogue with its generations, from server to server.
#include <span>

#include "catalogue/server_shop.h"
#include "vdm/postgres/schema.h"

namespace vanzet::catalogue {
namespace {

using vdm::PostgresRows;
using vdm::PostgresStatement;
using vdm::PostgresValue;

/// The rows of one statement at most.
constexpr std::size_t kRowsTogether = 10'000;

constexpr std::string_view kBegin = "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY";
constexpr std::string_view kGenerations = R"(
  SELECT number, time, "user", host, program, occasion, token FROM vanzet.generation
  WHERE project=(SELECT id FROM vanzet.project WHERE name=$1) ORDER BY number)";
constexpr std::string_view kStates = R"(
  SELECT first, last, former, position, name, lines, figures FROM vanzet.device
  WHERE project=(SELECT id FROM vanzet.project WHERE name=$1) ORDER BY first, position)";
constexpr std::string_view kAddGenerations = R"(
  INSERT INTO vanzet.generation(project, number, time, "user", host, program, occasion, token)
  SELECT $1, number, convert_from(time, 'UTF8'), convert_from(who, 'UTF8'), convert_from(host, 'UTF8'),
         convert_from(program, 'UTF8'), convert_from(occasion, 'UTF8'), token
  FROM unnest($2::bigint[], $3::bytea[], $4::bytea[], $5::bytea[], $6::bytea[], $7::bytea[], $8::bytea[])
    AS made(number, time, who, host, program, occasion, token))";
constexpr std::string_view kAddStates = R"(
  INSERT INTO vanzet.device(project, first, last, former, position, name, lines, figures)
  SELECT $1, * FROM unnest($2::bigint[], $3::bigint[], $4::bigint[], $5::bigint[], $6::bytea[], $7::bytea[],
                           $8::bytea[]))";
constexpr std::string_view kSetLast = "UPDATE vanzet.project SET last_generation=$2 WHERE id=$1";

ShopHistory HistoryOf(const PostgresRows& generations, const PostgresRows& states) {
  ShopHistory history;
  for (int i = 0; i < generations.Size(); ++i) {
    const auto text = [&](int column) { return std::string(generations.Bytes(i, column)); };
    history.generations.push_back(
        {{generations.Integer(i, 0), text(1), text(2), text(3), text(4), text(5)}, text(6)});
  }
  for (int i = 0; i < states.Size(); ++i) {
    const auto text = [&](int column) { return std::string(states.Bytes(i, column)); };
    history.states.push_back({{states.Integer(i, 3), text(4), text(5), text(6)},
                              states.Integer(i, 0),
                              states.Integer(i, 1),
                              states.Integer(i, 2) != 0});
  }
  return history;
}

/// A column of rows.
template <class Row, class Value>
PostgresValue IntegersOf(std::span<const Row> rows, const Value& value) {
  std::vector<std::int64_t> values;
  for (const Row& row : rows) values.push_back(value(row));
  return PostgresValue::Integers(values);
}
template <class Row, class Value>
PostgresValue BytesOf(std::span<const Row> rows, const Value& value) {
  std::vector<std::string_view> values;
  for (const Row& row : rows) values.emplace_back(value(row));
  return PostgresValue::ManyBytes(values);
}

/// The last generation gets the token by which this commit is recognised.
PostgresStatement StatementOf(std::int64_t project, std::span<const ShopHistory::Made> made,
                              std::int64_t last, const std::string& token) {
  using Made = ShopHistory::Made;
  const auto text = [&](const std::string vdm::Generation::*part) {
    return BytesOf(made, [=](const Made& each) -> std::string_view { return each.generation.*part; });
  };
  return {kAddGenerations,
          {project, IntegersOf(made, [](const Made& each) { return each.generation.number; }),
           text(&vdm::Generation::time), text(&vdm::Generation::user), text(&vdm::Generation::host),
           text(&vdm::Generation::program), text(&vdm::Generation::occasion),
           BytesOf(made, [&](const Made& each) -> std::string_view {
             return each.generation.number == last ? token : each.token;
           })}};
}

PostgresStatement StatementOf(std::int64_t project, std::span<const ShopHistory::State> states) {
  using State = ShopHistory::State;
  return {kAddStates,
          {project, IntegersOf(states, [](const State& each) { return each.first; }),
           IntegersOf(states, [](const State& each) { return each.last; }),
           IntegersOf(states, [](const State& each) { return std::int64_t{each.isChange}; }),
           IntegersOf(states, [](const State& each) { return each.row.position; }),
           BytesOf(states, [](const State& each) -> std::string_view { return each.row.name; }),
           BytesOf(states, [](const State& each) -> std::string_view { return each.row.lines; }),
           BytesOf(states, [](const State& each) -> std::string_view { return each.row.figures; })}};
}

}  // namespace

Result<std::optional<ShopHistory>> ServerShop::ReadHistory() {
  return session_->Repeat([&](vdm::PostgresConnection& connection) -> Result<std::optional<ShopHistory>> {
    const auto answers = connection.Run(
        {{kBegin}, {vdm::kReadServerSchema}, {kGenerations, {Name()}}, {kStates, {Name()}}, {"COMMIT"}});
    const bool hasTables = answers || !HasNoTables(connection);
    if (!answers) connection.RollBack();
    if (!hasTables) return std::optional<ShopHistory>();
    if (!answers) return answers.fault();
    VANZET_DO(CheckServerSchema(connection, (*answers)[1]));
    if ((*answers)[2].Size() == 0) return std::optional<ShopHistory>();
    return std::optional(HistoryOf((*answers)[2], (*answers)[3]));
  });
}

Result<bool> ServerShop::Fill(const ShopHistory& history) {
  VANZET_TRY(auto transaction, Begin());
  if (transaction->generation() != 1) return false;
  const std::int64_t project = transaction->project();
  const std::int64_t last = history.generations.back().generation.number;
  std::vector<PostgresStatement> statements = {{kSetLast, {project, last}}};
  for (std::span<const ShopHistory::Made> rest = history.generations; !rest.empty();) {
    const auto part = rest.first(std::min(rest.size(), kRowsTogether));
    statements.push_back(StatementOf(project, part, last, transaction->token()));
    rest = rest.subspan(part.size());
  }
  for (std::span<const ShopHistory::State> rest = history.states; !rest.empty();) {
    const auto part = rest.first(std::min(rest.size(), kRowsTogether));
    statements.push_back(StatementOf(project, part));
    rest = rest.subspan(part.size());
  }
  VANZET_DO(transaction->Run(statements));
  VANZET_TRY(const auto outcome, transaction->Commit(last));
  if (outcome == Outcome::kCommitted) return true;
  VANZET_TRY(const auto* const connection, session_->Connection());
  return connection->FaultOf("the connection broke: the catalogue was not copied", FaultKind::kSystem);
}

}  // namespace vanzet::catalogue
