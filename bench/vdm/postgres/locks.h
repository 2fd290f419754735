#pragma once

#include <memory>
#include <string>
#include <vector>

#include "vdm/lock_holder.h"
#include "vdm/postgres/session.h"
#include "vdm/store_locks.h"

namespace vanzet::vdm {

/// The holders of locks now, this session too, by number; the project as a whole comes last.
Result<std::vector<LockHolder>> LockHolders(PostgresSession& session);

/// The same over a connection that is not that of a session; it is not made again when it breaks.
Result<std::vector<LockHolder>> LockHolders(PostgresConnection& connection, const std::string& project);

/// The locks of a project on a server: advisory locks of the session that the engine uses. The server
/// releases them with the connection; a session that lost its connection takes them again, and does not
/// commit when others have changed the project meanwhile.
///
/// Source   docs/formats/store.md
class PostgresLocks : public StoreLocks {
 public:
  explicit PostgresLocks(std::shared_ptr<PostgresSession> session) : session_(std::move(session)) {}

  Result<Held> Acquire(Number number) override;
  Result<Held> AcquireProject(std::chrono::milliseconds longestWait) override;
  Result<void> Check() override;
  void RemoveOwnFile() override;
  Result<bool> IsHeldElsewhere(Number number) const override;

 private:
  Result<std::int64_t> KeyOf(std::int64_t place);
  void Release(std::int64_t place) override;

  std::shared_ptr<PostgresSession> session_;
  std::int64_t project_ = 0;  ///< its number; 0: not known yet
};

}  // namespace vanzet::vdm
