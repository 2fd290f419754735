#include "vdm/postgres/locks.h"

#include "base/one_line.h"
#include "vdm/postgres/dial.h"
#include "vdm/postgres/schema.h"

namespace vanzet::vdm {
namespace {

constexpr std::string_view kRemoveUnused = R"(
  WITH removed AS (DELETE FROM vanzet.project WHERE name=$1 AND last_generation=0 RETURNING id)
  DELETE FROM vanzet.file WHERE project IN (SELECT id FROM removed))";

// The two halves of a key are columns of pg_locks.
constexpr std::string_view kIsHeld = R"(
  SELECT count(*) FROM pg_locks l JOIN vanzet.project p ON p.name=$1 AND l.classid::bigint=p.id
  WHERE l.locktype='advisory' AND l.objsubid=1 AND l.objid::bigint=$2 AND l.granted
    AND l.database=(SELECT oid FROM pg_database WHERE datname=current_database())
    AND l.pid<>pg_backend_pid())";
constexpr std::string_view kHolders = R"(
  SELECT l.objid::bigint, coalesce(a.application_name, ''),
    coalesce(to_char(a.backend_start AT TIME ZONE 'UTC', 'YYYY-MM-DD"T"HH24:MI:SS"Z"'), '')
  FROM pg_locks l JOIN vanzet.project p ON p.name=$1 AND l.classid::bigint=p.id
  LEFT JOIN pg_stat_activity a ON a.pid=l.pid
  WHERE l.locktype='advisory' AND l.objsubid=1 AND l.granted
    AND l.database=(SELECT oid FROM pg_database WHERE datname=current_database())
  ORDER BY 1)";

std::vector<LockHolder> HoldersIn(const PostgresRows& rows) {
  std::vector<LockHolder> holders;
  for (int i = 0; i < rows.Size(); ++i) {
    std::string_view who = rows.Bytes(i, 1);
    if (who.starts_with(kConnectionName)) who.remove_prefix(kConnectionName.size());
    LockHolder& holder = holders.emplace_back(LockHolder{{}, OneLine(who), std::string(rows.Bytes(i, 2))});
    if (const auto number = NumberFrom(rows.Integer(i, 0))) holder.vdm = *number;
  }
  return holders;
}

}  // namespace

Result<std::vector<LockHolder>> LockHolders(PostgresSession& session) {
  VANZET_TRY(const auto rows, session.Read({kHolders, {PostgresValue::Text(session.project())}}));
  return rows ? HoldersIn(*rows) : std::vector<LockHolder>();
}

Result<std::vector<LockHolder>> LockHolders(PostgresConnection& connection, const std::string& project) {
  const auto answers = connection.Run({{kHolders, {PostgresValue::Text(project)}}});
  if (answers) return HoldersIn(answers->front());
  if (HasNoTables(connection)) return std::vector<LockHolder>();
  return answers.fault();
}

Result<std::int64_t> PostgresLocks::KeyOf(std::int64_t place) {
  if (project_ == 0) {
    VANZET_TRY(project_, session_->MakeProject());
  }
  return PostgresSession::KeyOf(project_, place == kProjectPlace ? PostgresSession::kWholeProject : place);
}

Result<StoreLocks::Held> PostgresLocks::Acquire(Number number) {
  VANZET_TRY(const auto key, KeyOf(PlaceOf(number)));
  VANZET_TRY(const bool isLocked, session_->Lock(key, std::chrono::milliseconds(0)));
  if (isLocked) return Keep(PlaceOf(number));
  return Fault{.text = NameOf(number) + " is open elsewhere", .kind = FaultKind::kBusy};
}

Result<StoreLocks::Held> PostgresLocks::AcquireProject(std::chrono::milliseconds longestWait) {
  session_->WaitAtLeast(longestWait);
  VANZET_TRY(const auto key, KeyOf(kProjectPlace));
  VANZET_TRY(const bool isLocked, session_->Lock(key, longestWait));
  if (!isLocked) {
    VANZET_TRY(const auto* const connection, session_->Connection());
    return connection->FaultOf("another process is changing the project '" + session_->project() + "'",
                               FaultKind::kBusy);
  }
  return Keep(kProjectPlace);
}

Result<void> PostgresLocks::Check() {
  VANZET_DO(session_->MakeProject());
  return {};
}

void PostgresLocks::RemoveOwnFile() {
  static_cast<void>(session_->Run({{kRemoveUnused, {PostgresValue::Text(session_->project())}}}));
}

Result<bool> PostgresLocks::IsHeldElsewhere(Number number) const {
  VANZET_TRY(const auto rows,
             session_->Read({kIsHeld, {PostgresValue::Text(session_->project()), PlaceOf(number)}}));
  return rows && rows->Integer(0, 0) > 0;
}

void PostgresLocks::Release(std::int64_t place) {
  // The number of the project is known as long as something is locked.
  if (const auto key = KeyOf(place)) session_->Unlock(*key);
}

}  // namespace vanzet::vdm
