#pragma once

#include <memory>

#include "vdm/postgres_session.h"
#include "vdm/store_locks.h"

namespace vanzet::vdm {

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
  Result<void> ExpectLastGeneration();
  void Release(std::int64_t place) override;

  std::shared_ptr<PostgresSession> session_;
  std::int64_t project_ = 0;  ///< its number; 0: not known yet
};

}  // namespace vanzet::vdm
