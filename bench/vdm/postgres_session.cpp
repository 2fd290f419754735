#include "vdm/postgres_session.h"

#include <thread>

#include "vdm/postgres_schema.h"

namespace vanzet::vdm {
namespace {

using std::chrono::milliseconds;

constexpr std::chrono::seconds kLongestReconnect{30};
constexpr milliseconds kStep{100};
constexpr int kAttempts = 3;

/// A server that lost sight of the former connection keeps its locks until it notices.
constexpr milliseconds kLongestRelock{10'000};

constexpr std::string_view kSetLockTimeout = "SELECT set_config('lock_timeout', $1::bigint::text, true)";
constexpr std::string_view kLock = "SELECT pg_advisory_lock($1)";
constexpr std::string_view kTryLock = "SELECT pg_try_advisory_lock($1)::int::bigint";
constexpr std::string_view kUnlock = "SELECT pg_advisory_unlock($1)";
constexpr std::string_view kLockTimeout = "55P03";

constexpr std::string_view kProjectId = "SELECT id FROM vanzet.project WHERE name=$1";
constexpr std::string_view kAddProject =
    "INSERT INTO vanzet.project(name) SELECT $1 WHERE NOT EXISTS(SELECT 1 FROM vanzet.project WHERE name=$1) "
    "ON CONFLICT DO NOTHING";

}  // namespace

Result<PostgresConnection*> PostgresSession::Connection() {
  if (connection_ == nullptr) {
    VANZET_TRY(connection_, PostgresConnection::Open(connectionText_));
    ++connections_;
  } else if (connection_->IsBroken()) {
    VANZET_DO(Reconnect());
  }
  return connection_.get();
}

Result<PostgresConnection*> PostgresSession::ConnectionOf(int count) const {
  if (count == connections_ && !connection_->IsBroken()) return connection_.get();
  return connection_->FaultOf("the connection broke", FaultKind::kSystem);
}

Result<void> PostgresSession::Reconnect() {
  const auto end = std::chrono::steady_clock::now() + kLongestReconnect;
  while (true) {
    auto opened = PostgresConnection::Open(connectionText_);
    if (opened) {
      connection_ = std::move(*opened);
      ++connections_;
      return TakeLocksAgain();
    }
    if (std::chrono::steady_clock::now() >= end) return opened.fault();
    std::this_thread::sleep_for(kStep);
  }
}

Result<void> PostgresSession::TakeLocksAgain() {
  for (const std::int64_t key : held_) {
    const auto locked =
        connection_->Run({{kSetLockTimeout, {std::int64_t{kLongestRelock.count()}}}, {kLock, {key}}});
    if (locked) continue;
    if (connection_->IsBroken()) return locked.fault();
    hasLostLocks_ = true;
  }
  return {};
}

Result<PostgresAnswers> PostgresSession::Run(const std::vector<PostgresStatement>& statements) {
  for (int attempt = 1;; ++attempt) {
    VANZET_TRY(auto* const connection, Connection());
    auto answers = connection->Run(statements);
    if (answers || !connection->IsBroken() || attempt == kAttempts) return answers;
  }
}

Result<std::optional<PostgresRows>> PostgresSession::Read(PostgresStatement statement) {
  auto answers = Run({{kReadServerSchema}, std::move(statement)});
  if (!answers && connection_ != nullptr && HasNoTables(*connection_)) return std::optional<PostgresRows>();
  if (!answers) return answers.fault();
  VANZET_DO(CheckServerSchema(*connection_, answers->front()));
  return std::optional(std::move(answers->back()));
}

Result<std::int64_t> PostgresSession::MakeProject() {
  const std::vector<PostgresStatement> statements = {{kReadServerSchema},
                                                     {kAddProject, {PostgresValue::Text(project_)}},
                                                     {kProjectId, {PostgresValue::Text(project_)}}};
  auto made = Run(statements);
  if (!made && connection_ != nullptr && HasNoTables(*connection_)) {
    VANZET_DO(MakeServerTables(*connection_));
    made = Run(statements);
  }
  if (!made) return made.fault();
  VANZET_DO(CheckServerSchema(*connection_, made->front()));
  if (made->back().Size() != 1) return connection_->DamageOf("the project has no number");
  return made->back().Integer(0, 0);
}

Result<bool> PostgresSession::Lock(std::int64_t key, milliseconds longestWait) {
  if (longestWait.count() <= 0) {
    VANZET_TRY(const auto answers, Run({{kTryLock, {key}}}));
    if (answers.front().Integer(0, 0) == 0) return false;
  } else {
    const auto locked = Run({{kSetLockTimeout, {std::int64_t{longestWait.count()}}}, {kLock, {key}}});
    if (!locked && connection_ != nullptr && connection_->lastState() == kLockTimeout) return false;
    if (!locked) return locked.fault();
  }
  held_.insert(key);
  return true;
}

void PostgresSession::Unlock(std::int64_t key) {
  held_.erase(key);
  if (held_.empty()) hasLostLocks_ = false;
  // A connection that broke has lost the lock already.
  if (connection_ != nullptr && !connection_->IsBroken()) {
    static_cast<void>(connection_->Run({{kUnlock, {key}}}));
  }
}

Result<void> PostgresSession::CheckFence(std::int64_t next) const {
  const bool isFollowed = expected_ && *expected_ + 1 != next;
  if (!hasLostLocks_ && !isFollowed) return {};
  return connection_->FaultOf(
      "the connection broke, and another process has taken over the project meanwhile: nothing is written",
      FaultKind::kBusy);
}

}  // namespace vanzet::vdm
