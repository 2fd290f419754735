#include "vdm/postgres/transaction.h"

#include <chrono>
#include <random>
#include <thread>

#include "vdm/postgres/schema.h"

namespace vanzet::vdm {
namespace {

constexpr std::chrono::seconds kLongestUncertainty{60};
constexpr std::chrono::milliseconds kStep{100};

constexpr std::string_view kBegin = "BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE";
constexpr std::string_view kNextGeneration = R"(
  UPDATE vanzet.project SET last_generation=last_generation + 1, last_record=last_record + $2 WHERE name=$1
  RETURNING id, last_generation, last_record - $2, txid_current())";
constexpr std::string_view kFormer = R"(
  SELECT p.vdm, p.position, p.record, coalesce(r.items, -1), coalesce(r.checksum, 0),
         CASE WHEN r.checksum=ANY($3) THEN r.content END
  FROM vanzet.place p LEFT JOIN vanzet.record r ON r.project=p.project AND r.key=p.record
  WHERE p.project=(SELECT id FROM vanzet.project WHERE name=$1) AND p.vdm=ANY($2)
    AND p.last=9223372036854775807
  ORDER BY p.vdm, p.position)";
constexpr std::string_view kTokenOf = R"(
  SELECT g.token FROM vanzet.project p LEFT JOIN vanzet.generation g ON g.project=p.id AND g.number=$2
  WHERE p.name=$1 AND p.last_generation>=$2)";
constexpr std::string_view kStatusOf = "SELECT coalesce(txid_status($1), 'unknown')";

/// A server that has not come so far does not know the number: it took over without this transaction.
constexpr std::string_view kIsInTheFuture = "22023";

constexpr std::string_view kInProgress = "in progress", kInTheFuture = "in the future";

Fault UnknownFault(const PostgresConnection& connection, std::int64_t generation, std::string_view status) {
  return connection.FaultOf("the connection broke during the commit of generation " +
                                std::to_string(generation) +
                                ", and the server does not know any more whether it was kept ('" +
                                std::string(status) + "'): look at the history before it is made again",
                            FaultKind::kSystem);
}

std::string RandomToken() {
  std::random_device random;
  std::string token;
  for (int i = 0; i < 16; ++i) token.push_back(static_cast<char>(random() & 0xFFU));
  return token;
}

}  // namespace

PostgresTransaction::PostgresTransaction(std::shared_ptr<PostgresSession> session)
    : session_(std::move(session)), connection_(session_->Connections()), token_(RandomToken()) {}

PostgresTransaction::~PostgresTransaction() {
  if (session_ == nullptr || isEnded_) return;
  if (const auto connection = session_->ConnectionOf(connection_)) (*connection)->RollBack();
}

Result<std::optional<PostgresTransaction>> PostgresTransaction::Begin(
    std::shared_ptr<PostgresSession> session, const NewOrders& orders) {
  VANZET_DO(session->Connection());
  PostgresTransaction transaction(std::move(session));
  VANZET_TRY(const bool isStarted, transaction.Start(orders));
  if (!isStarted) return std::optional<PostgresTransaction>();
  return std::optional<PostgresTransaction>(std::move(transaction));
}

Result<bool> PostgresTransaction::Start(const NewOrders& orders) {
  std::vector<std::int64_t> numbers;
  for (const auto& [number, order] : orders) numbers.push_back(static_cast<std::int64_t>(number));
  const PostgresValue name = PostgresValue::Text(session_->project());
  VANZET_TRY(auto* const connection, session_->ConnectionOf(connection_));
  const auto answers = connection->Run(
      {{kBegin},
       {kReadServerSchema},
       {kNextGeneration, {name, CountNew(orders)}},
       {kFormer, {name, PostgresValue::Integers(numbers), PostgresValue::Integers(ChecksumsOf(orders))}}});
  if (!answers && HasNoTables(*connection)) return false;
  if (!answers) return answers.fault();
  VANZET_DO(CheckServerSchema(*connection, (*answers)[1]));
  const PostgresRows& next = (*answers)[2];
  if (next.Size() == 0) return false;
  project_ = next.Integer(0, 0);
  generation_ = next.Integer(0, 1);
  lastRecord_ = next.Integer(0, 2);
  number_ = next.Integer(0, 3);
  VANZET_DO(session_->CheckFence(generation_));
  VANZET_DO(TakeFormer((*answers)[3]));
  return true;
}

Result<void> PostgresTransaction::TakeFormer(const PostgresRows& rows) {
  for (int i = 0; i < rows.Size(); ++i) {
    VANZET_TRY(const auto number, NumberFrom(rows.Integer(i, 0)));
    auto& order = former_[number];
    if (rows.Integer(i, 1) != static_cast<std::int64_t>(order.size())) {
      VANZET_TRY(const auto* const connection, session_->ConnectionOf(connection_));
      return connection->DamageOf(NameOf(number) + " has no record " + std::to_string(order.size()));
    }
    FormerPlace place{RecordKey{rows.Integer(i, 2)}, rows.Integer(i, 3), rows.Integer(i, 4), {}};
    if (!rows.IsNull(i, 5)) place.content = rows.Bytes(i, 5);
    order.push_back(std::move(place));
  }
  return {};
}

Result<void> PostgresTransaction::Run(const std::vector<PostgresStatement>& statements) {
  VANZET_TRY(auto* const connection, session_->ConnectionOf(connection_));
  VANZET_DO(connection->Run(statements));
  return {};
}

Result<PostgresTransaction::Outcome> PostgresTransaction::Commit(std::int64_t generation) {
  const auto connection = session_->ConnectionOf(connection_);
  if (!connection) return Outcome::kLost;
  const auto committed = (*connection)->Run({{"COMMIT"}});
  isEnded_ = committed || (*connection)->IsBroken();
  if (!committed && isEnded_) return FindOutcome(generation);
  if (!committed) return committed.fault();
  if (committed->front().Tag() == "COMMIT") return Outcome::kCommitted;
  return (*connection)->FaultOf("the server did not commit: nothing is written", FaultKind::kSystem);
}

Result<PostgresTransaction::Outcome> PostgresTransaction::FindOutcome(std::int64_t generation) const {
  const auto end = std::chrono::steady_clock::now() + kLongestUncertainty;
  while (true) {
    VANZET_TRY(auto* const connection, session_->Connection());
    const auto outcome = AskForOutcome(*connection, generation);
    if (outcome && *outcome) return **outcome;
    if (!outcome && !connection->IsBroken()) return outcome.fault();
    if (std::chrono::steady_clock::now() >= end) return UnknownFault(*connection, generation, kInProgress);
    std::this_thread::sleep_for(kStep);
  }
}

/// Nothing as long as the transaction goes on.
Result<std::optional<PostgresTransaction::Outcome>> PostgresTransaction::AskForOutcome(
    PostgresConnection& connection, std::int64_t generation) const {
  VANZET_TRY(const auto status, AskForStatus(connection));
  if (status == kInProgress) return std::optional<Outcome>();
  VANZET_TRY(const auto isMine, AskForGeneration(connection, generation));
  if (isMine) return std::optional(*isMine ? Outcome::kCommitted : Outcome::kLost);
  if (status == "aborted" || status == kInTheFuture) return std::optional(Outcome::kLost);
  return UnknownFault(connection, generation, status);
}

/// Whether the generation is that of this transaction; nothing where it came and was removed since.
Result<std::optional<bool>> PostgresTransaction::AskForGeneration(PostgresConnection& connection,
                                                                  std::int64_t generation) const {
  VANZET_TRY(const auto answers,
             connection.Run({{kTokenOf, {PostgresValue::Text(session_->project()), generation}}}));
  const PostgresRows& rows = answers.front();
  if (rows.Size() == 0) return std::optional(false);
  if (rows.IsNull(0, 0)) return std::optional<bool>();
  return std::optional(rows.Bytes(0, 0) == token_);
}

Result<std::string> PostgresTransaction::AskForStatus(PostgresConnection& connection) const {
  const auto answers = connection.Run({{kStatusOf, {number_}}});
  if (answers) return std::string(answers->front().Bytes(0, 0));
  if (connection.lastState() == kIsInTheFuture) return std::string(kInTheFuture);
  return answers.fault();
}

}  // namespace vanzet::vdm
