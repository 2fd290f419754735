// The writing half of the engine: commits, and copies of whole stores.
#include <algorithm>

#include "vdm/commit_origin.h"
#include "vdm/postgres/channel.h"
#include "vdm/postgres/engine.h"
#include "vdm/postgres/history.h"

namespace vanzet::vdm {
namespace {

constexpr std::string_view kSetFile = R"(
  INSERT INTO vanzet.file(project, folder, name, former, content) VALUES($1, $2, $3, $4, $5)
  ON CONFLICT(project, folder) DO UPDATE SET name=$3, former=$4, content=$5)";
constexpr std::string_view kSetLast =
    "UPDATE vanzet.project SET last_generation=$2, last_record=$3 WHERE id=$1";

/// False when it only removes.
bool HasContent(const NewGeneration& next) {
  return next.file != nullptr ||
         std::ranges::any_of(next.vdms, [](const auto& change) { return change.second.has_value(); });
}

Generation GenerationOf(std::int64_t number, const std::string& occasion) {
  const CommitOrigin origin = OriginOfProcess();
  return {number, TimeText(), origin.user, origin.host, origin.program, occasion};
}

}  // namespace

/// The last step of a commit, which is taken once however often the commit is tried.
struct PostgresEngine::Step {
  const LastStep& step;
  bool isTaken = false, hasFailed = false;

  Result<void> Take() {
    if (isTaken || !step) return {};
    isTaken = true;
    const auto done = step();
    hasFailed = !done;
    return done;
  }
};

Result<void> PostgresEngine::Apply(const NewGeneration& next) {
  const NewOrders orders = OrdersOf(next.vdms);
  Step step{next.lastStep};
  PostgresPatience patience = session_->Patience();
  do {
    VANZET_TRY(const auto outcome, TryApply(next, orders, step));
    if (outcome == Outcome::kCommitted) return {};
  } while (patience.Pause());
  VANZET_TRY(const auto* const connection, session_->Connection());
  return connection->FaultOf("the connection broke in each attempt: nothing is written", FaultKind::kSystem);
}

Result<PostgresEngine::Outcome> PostgresEngine::TryApply(const NewGeneration& next, const NewOrders& orders,
                                                         Step& step) {
  VANZET_DO(session_->Connection());
  const int connection = session_->Connections();
  const auto isLost = [&] { return !session_->ConnectionOf(connection); };
  auto transaction = BeginOnProject(orders, HasContent(next));
  if (!transaction && isLost()) return Outcome::kLost;
  if (!transaction) return transaction.fault();
  if (!*transaction) {
    VANZET_DO(step.Take());
    return Outcome::kCommitted;
  }
  auto written = Write(**transaction, next, orders);
  if (written) written = step.Take();
  if (!written && !step.hasFailed && isLost()) return Outcome::kLost;
  if (!written) return written.fault();
  VANZET_TRY(const auto outcome, (*transaction)->Commit((*transaction)->generation()));
  if (outcome == Outcome::kCommitted) session_->NoteCommit((*transaction)->generation());
  return outcome;
}

Result<std::optional<PostgresTransaction>> PostgresEngine::BeginOnProject(const NewOrders& orders,
                                                                          bool makesProject) {
  VANZET_TRY(auto transaction, PostgresTransaction::Begin(session_, orders));
  if (transaction || !makesProject) return transaction;
  VANZET_DO(session_->MakeProject());
  return PostgresTransaction::Begin(session_, orders);
}

Result<void> PostgresEngine::Write(PostgresTransaction& transaction, const NewGeneration& next,
                                   const NewOrders& orders) const {
  PostgresCommit commit(transaction.project(), transaction.generation(), transaction.lastRecord());
  for (const auto& [number, order] : orders) {
    const auto former = transaction.former().find(number);
    const auto before = former == transaction.former().end() ? std::vector<FormerPlace>() : former->second;
    if (!order) {
      commit.Remove(number, before);
    } else if (!commit.Write(number, *order, before)) {
      return Fault{NameOf(number) + " was changed by others while it was open"};
    }
  }
  std::vector<PostgresStatement> statements = commit.Statements();
  AddOthers(transaction, next, statements);
  return transaction.Run(statements);
}

void PostgresEngine::AddOthers(const PostgresTransaction& transaction, const NewGeneration& next,
                               std::vector<PostgresStatement>& statements) const {
  const std::int64_t project = transaction.project(), generation = transaction.generation();
  statements.push_back(
      StatementThatAdds(project, GenerationOf(generation, next.occasion), transaction.token()));
  if (next.file != nullptr) {
    const auto& former = next.file->former;
    statements.push_back(
        {kSetFile,
         {project, PostgresValue::Text(folder_), PostgresValue::Text(next.file->name),
          former ? PostgresValue(static_cast<std::int64_t>(*former)) : PostgresValue::NullInteger(),
          PostgresValue::Bytes(next.file->content)}});
  }
  for (auto& statement : StatementsThatTrim(project, generation, next.keep)) {
    statements.push_back(std::move(statement));
  }
  statements.push_back(NoteOfCommit(session_->project(), generation));
}

/// The state of a copy that is under way.
struct PostgresEngine::Filling {
  PostgresTransaction& transaction;
  std::int64_t lastGeneration = 0, lastRecord = 0;
  FormerOrders current = {};  ///< with all contents
};

Result<void> PostgresEngine::Fill(const GenerationSource& source) {
  VANZET_TRY(auto transaction, BeginOnProject({}, true));
  VANZET_TRY(const auto* const connection, session_->Connection());
  if (!transaction) return connection->DamageOf("the project is not there");
  if (transaction->generation() != 1) {
    return connection->FaultOf("has generations already; a copy needs an empty store");
  }
  Filling filling{*transaction};
  VANZET_DO(source([&](const PastGeneration& past) { return Append(past, filling); }));
  VANZET_DO(
      transaction->Run({{kSetLast, {transaction->project(), filling.lastGeneration, filling.lastRecord}},
                        NoteOfCommit(session_->project(), filling.lastGeneration)}));
  VANZET_TRY(const auto outcome, transaction->Commit(filling.lastGeneration));
  if (outcome == Outcome::kCommitted) {
    session_->NoteCommit(filling.lastGeneration);
    return {};
  }
  VANZET_TRY(const auto* const newConnection, session_->Connection());
  return newConnection->FaultOf("the connection broke: nothing was copied", FaultKind::kSystem);
}

Result<void> PostgresEngine::Append(const PastGeneration& past, Filling& filling) {
  const auto& transaction = filling.transaction;
  Changes copies;
  for (const auto& [number, content] : past.vdms) {
    auto& copy = copies[number];
    if (!content) continue;
    VANZET_TRY(copy, content->Copy());
  }
  const NewOrders orders = OrdersOf(copies);
  PostgresCommit commit(transaction.project(), past.generation.number, filling.lastRecord);
  for (const Number number : past.cut) commit.Cut(number);
  for (const auto& [number, order] : orders) {
    auto& current = filling.current[number];
    if (!order) {
      commit.Remove(number, std::exchange(current, {}));
      continue;
    }
    std::vector<RecordKey> keys;
    commit.Write(number, *order, current, &keys);
    current.clear();
    for (std::size_t i = 0; i < keys.size(); ++i) {
      const NewRecord& record = *(*order)[i].record;
      current.push_back({keys[i], record.items, record.checksum, record.content});
    }
  }
  std::vector<PostgresStatement> statements = commit.Statements();
  statements.push_back(StatementThatAdds(transaction.project(), past.generation, transaction.token()));
  VANZET_DO(filling.transaction.Run(statements));
  filling.lastGeneration = past.generation.number;
  filling.lastRecord = commit.lastRecord();
  return {};
}

}  // namespace vanzet::vdm
