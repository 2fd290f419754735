#include "vdm/postgres_locks.h"

namespace vanzet::vdm {
namespace {

constexpr std::string_view kLastGeneration = "SELECT last_generation FROM vanzet.project WHERE name=$1";
constexpr std::string_view kRemoveUnused = "DELETE FROM vanzet.project WHERE name=$1 AND last_generation=0";

// The two halves of a key are columns of pg_locks.
constexpr std::string_view kIsHeld = R"(
  SELECT count(*) FROM pg_locks l JOIN vanzet.project p ON p.name=$1 AND l.classid::bigint=p.id
  WHERE l.locktype='advisory' AND l.objsubid=1 AND l.objid::bigint=$2 AND l.granted
    AND l.database=(SELECT oid FROM pg_database WHERE datname=current_database())
    AND l.pid<>pg_backend_pid())";

constexpr std::int64_t kProjectHalf = 0xFFFFFFFF;

}  // namespace

Result<std::int64_t> PostgresLocks::KeyOf(std::int64_t place) {
  if (project_ == 0) {
    VANZET_TRY(project_, session_->MakeProject());
  }
  return (project_ << 32) | (place == kProjectPlace ? kProjectHalf : place);
}

Result<StoreLocks::Held> PostgresLocks::Acquire(Number number) {
  VANZET_TRY(const auto key, KeyOf(PlaceOf(number)));
  VANZET_TRY(const bool isLocked, session_->Lock(key, std::chrono::milliseconds(0)));
  if (isLocked) return Keep(PlaceOf(number));
  return Fault{.text = NameOf(number) + " is open elsewhere", .kind = FaultKind::kBusy};
}

Result<StoreLocks::Held> PostgresLocks::AcquireProject(std::chrono::milliseconds longestWait) {
  VANZET_TRY(const auto key, KeyOf(kProjectPlace));
  VANZET_TRY(const bool isLocked, session_->Lock(key, longestWait));
  if (!isLocked) {
    VANZET_TRY(const auto* const connection, session_->Connection());
    return connection->FaultOf("another process is changing the project '" + session_->project() + "'",
                               FaultKind::kBusy);
  }
  Held held = Keep(kProjectPlace);
  VANZET_DO(ExpectLastGeneration());
  return held;
}

/// What this session reads from now on is the state after this generation.
Result<void> PostgresLocks::ExpectLastGeneration() {
  VANZET_TRY(const auto rows, session_->Read({kLastGeneration, {PostgresValue::Text(session_->project())}}));
  if (rows && rows->Size() == 1) session_->Expect(rows->Integer(0, 0));
  return {};
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
  if (place == kProjectPlace) session_->Expect({});
  session_->Unlock((project_ << 32) | (place == kProjectPlace ? kProjectHalf : place));
}

}  // namespace vanzet::vdm
