#include "vdm/postgres/session.h"

#include <poll.h>

#include <algorithm>

#include "vdm/postgres/channel.h"
#include "vdm/postgres/schema.h"

namespace vanzet::vdm {
namespace {

using std::chrono::milliseconds;

/// Between two attempts to connect.
constexpr milliseconds kLongestPause{100};

/// A server that lost sight of the former connection keeps its locks until its keep-alives notice.
constexpr milliseconds kLongestRelock{45'000};

constexpr std::string_view kSetLockTimeout = "SELECT set_config('lock_timeout', $1::bigint::text, true)";
constexpr std::string_view kLock = "SELECT pg_advisory_lock($1)";
constexpr std::string_view kTryLock = "SELECT pg_try_advisory_lock($1)::int::bigint";
constexpr std::string_view kUnlock = "SELECT pg_advisory_unlock($1)";
constexpr std::string_view kLockTimeout = "55P03";

constexpr std::string_view kLastGeneration = "SELECT last_generation FROM vanzet.project WHERE id=$1";
constexpr std::string_view kChangesOfVdm = R"(
  SELECT count(*) FROM vanzet.vdm
  WHERE project=$1 AND number=$2 AND (first>$3 OR (last<9223372036854775807 AND last + 1>$3)))";

constexpr std::string_view kProjectId = "SELECT id FROM vanzet.project WHERE name=$1";
constexpr std::string_view kAddProject =
    "INSERT INTO vanzet.project(name) SELECT $1 WHERE NOT EXISTS(SELECT 1 FROM vanzet.project WHERE name=$1) "
    "ON CONFLICT DO NOTHING";

std::int64_t ProjectOf(std::int64_t key) {
  return key >> 32;
}

std::int64_t NumberOf(std::int64_t key) {
  return key & PostgresSession::kWholeProject;
}

}  // namespace

Result<PostgresConnection*> PostgresSession::Connection() {
  if (connection_ == nullptr || connection_->IsBroken()) VANZET_DO(Connect());
  return connection_.get();
}

Result<PostgresConnection*> PostgresSession::ConnectionOf(int count) const {
  if (count == connections_ && !connection_->IsBroken()) return connection_.get();
  return connection_->FaultOf("the connection broke", FaultKind::kSystem);
}

bool PostgresSession::IsIdle() {
  if (connection_ == nullptr || !held_.empty() || connection_->IsBroken()) return false;
  // A server that is not asked says nothing but its farewell.
  pollfd said = {connection_->Descriptor(), POLLIN, 0};
  return poll(&said, 1, 0) == 0;
}

Result<void> PostgresSession::Connect() {
  PostgresPatience patience(hasWaited_ ? milliseconds(0) : longestWait_, kLongestPause);
  // A server that was there once will come back.
  bool isThere = connection_ != nullptr;
  while (true) {
    bool mayPass = false;
    auto opened = PostgresConnection::Open(connectionText_, &mayPass);
    isThere = isThere || opened || mayPass;
    if (!opened) {
      hasWaited_ = isThere;
      if (!isThere || !patience.Pause()) return opened.fault();
      continue;
    }
    connection_ = std::move(*opened);
    ++connections_;
    const auto taken = TakeLocksAgain();
    hasWaited_ = !taken;
    if (taken || !patience.Pause()) return taken;
  }
}

Result<void> PostgresSession::TakeLocksAgain() {
  for (const auto& [key, generation] : held_) {
    const auto taken = TakeAgain(key, generation);
    if (!taken && connection_->IsBroken()) return taken.fault();
    if (!taken || !*taken) hasLostLocks_ = true;
  }
  return {};
}

/// False when another one has used the lock meanwhile. What it did to the whole project is seen by the number
/// of the next commit.
Result<bool> PostgresSession::TakeAgain(std::int64_t key, std::int64_t generation) {
  VANZET_TRY(const auto answers,
             connection_->Run({{kSetLockTimeout, {std::int64_t{kLongestRelock.count()}}},
                               {kLock, {key}},
                               {kChangesOfVdm, {ProjectOf(key), NumberOf(key), generation}}}));
  return answers.back().Integer(0, 0) == 0;
}

Result<PostgresAnswers> PostgresSession::Run(const std::vector<PostgresStatement>& statements) {
  return Repeat([&](PostgresConnection& connection) { return connection.Run(statements); });
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
    VANZET_DO(Repeat(MakeServerTables));
    made = Run(statements);
  }
  if (!made) return made.fault();
  VANZET_DO(CheckServerSchema(*connection_, made->front()));
  if (made->back().Size() != 1) return connection_->DamageOf("the project has no number");
  return made->back().Integer(0, 0);
}

Result<bool> PostgresSession::Lock(std::int64_t key, milliseconds longestWait) {
  VANZET_DO(Connection());
  const int before = connections_;
  VANZET_TRY(const bool isLocked, TryLock(key, longestWait));
  if (isLocked || connections_ == before) return isLocked;
  // The former connection may have taken it before it broke.
  return TryLock(key, std::max(longestWait, kLongestRelock));
}

Result<bool> PostgresSession::TryLock(std::int64_t key, milliseconds longestWait) {
  const PostgresStatement last = {kLastGeneration, {ProjectOf(key)}};
  const bool waits = longestWait.count() > 0;
  const PostgresStatement note = NoteOfLocks(project_);
  const auto locked =
      waits ? Run({{kSetLockTimeout, {std::int64_t{longestWait.count()}}}, {kLock, {key}}, note, last})
            : Run({{kTryLock, {key}}, note, last});
  if (!locked && connection_ != nullptr && connection_->lastState() == kLockTimeout) return false;
  if (!locked) return locked.fault();
  if (!waits && locked->front().Integer(0, 0) == 0) return false;
  if (locked->back().Size() != 1) return connection_->DamageOf("the project is not there any more");
  held_[key] = locked->back().Integer(0, 0);
  return true;
}

void PostgresSession::Unlock(std::int64_t key) {
  held_.erase(key);
  if (held_.empty()) hasLostLocks_ = false;
  // A connection that broke has lost the lock already.
  if (connection_ != nullptr && !connection_->IsBroken()) {
    static_cast<void>(connection_->Run({{kUnlock, {key}}, NoteOfLocks(project_)}));
  }
}

Result<void> PostgresSession::CheckFence(std::int64_t next) const {
  const auto isPassed = [&](const auto& lock) {
    return NumberOf(lock.first) == kWholeProject && lock.second + 1 != next;
  };
  if (!hasLostLocks_ && std::ranges::none_of(held_, isPassed)) return {};
  return connection_->FaultOf(
      "the connection broke, and another process has taken over the project meanwhile: nothing is written",
      FaultKind::kBusy);
}

void PostgresSession::NoteCommit(std::int64_t generation) {
  for (auto& [key, known] : held_) known = generation;
}

}  // namespace vanzet::vdm
