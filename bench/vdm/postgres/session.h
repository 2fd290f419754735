#pragma once

#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "vdm/postgres/connection.h"
#include "vdm/postgres/patience.h"

namespace vanzet::vdm {

/// A project on a server as one engine uses it: a connection that is made again when it breaks, with the
/// locks that were held on it.
///
/// Errors   those of `PostgresConnection`. A connection that broke, and a first one to a server that is there
///          but not ready, is tried again for half a minute or longer, on all hosts of the connection text,
///          so that another server can take over. Where no server is, or refuses the person, a first
///          connection fails at once
class PostgresSession {
 public:
  PostgresSession(std::string connectionText, std::string project)
      : connectionText_(std::move(connectionText)), project_(std::move(project)) {}

  const std::string& connectionText() const { return connectionText_; }
  const std::string& project() const { return project_; }

  /// The connection's name; before the first one "the server".
  std::string Name() const { return connection_ == nullptr ? "the server" : connection_->name(); }

  /// Tries at least so long, from now on, where a connection breaks.
  void WaitAtLeast(std::chrono::milliseconds wait) { longestWait_ = std::max(longestWait_, wait); }

  /// The pauses of something that is begun again each time the connection breaks.
  PostgresPatience Patience() const { return PostgresPatience(longestWait_); }

  /// The connection, which is not broken; valid until the next call.
  Result<PostgresConnection*> Connection();

  /// The same connection as when `Connections` was `count`. Fails when it broke since.
  Result<PostgresConnection*> ConnectionOf(int count) const;

  /// True when it is connected and holds no lock: another store may use it. Does not ask the server, so that
  /// a machine that vanished is not noticed.
  bool IsIdle();

  /// The number of connections that were made.
  int Connections() const { return connections_; }

  /// Calls `attempt` with the connection; again, with a new one, when this one has broken and it failed.
  template <class Attempt>
  auto Repeat(const Attempt& attempt) -> decltype(attempt(std::declval<PostgresConnection&>())) {
    PostgresPatience patience = Patience();
    while (true) {
      VANZET_TRY(auto* const connection, Connection());
      const int count = Connections();
      auto done = attempt(*connection);
      if (done || ConnectionOf(count) || !patience.Pause()) return done;
    }
  }

  /// Runs statements that may run twice, in one transaction; again on a new connection when this one breaks.
  Result<PostgresAnswers> Run(const std::vector<PostgresStatement>& statements);

  /// The rows of a statement that only reads; nothing when the server has no tables yet.
  Result<std::optional<PostgresRows>> Read(PostgresStatement statement);

  /// The number of the project. Makes the project, and the tables, when they do not exist.
  Result<std::int64_t> MakeProject();

  /// The key of a lock: of a VDM by its number, or of the project as a whole.
  static std::int64_t KeyOf(std::int64_t project, std::int64_t number) { return (project << 32) | number; }
  static constexpr std::int64_t kWholeProject = 0xFFFFFFFF;

  /// True when the lock was taken, waiting for it at most so long. It is held until `Unlock`.
  Result<bool> Lock(std::int64_t key, std::chrono::milliseconds longestWait);
  void Unlock(std::int64_t key);

  /// Fails when what this session holds was lost with a connection and changed by another one, or when it
  /// holds the whole project and `next` does not follow the generation that it knows.
  Result<void> CheckFence(std::int64_t next) const;

  /// Notes the commit of a generation by this session.
  void NoteCommit(std::int64_t generation);

 private:
  Result<void> Connect();
  Result<void> TakeLocksAgain();
  Result<bool> TryLock(std::int64_t key, std::chrono::milliseconds longestWait);
  Result<bool> TakeAgain(std::int64_t key, std::int64_t generation);

  std::string connectionText_, project_;
  std::chrono::milliseconds longestWait_{30'000};
  std::unique_ptr<PostgresConnection> connection_;
  int connections_ = 0;
  bool hasWaited_ = false;  ///< in vain, for the last connection: the next attempt does not
  std::map<std::int64_t, std::int64_t> held_;  ///< locks, with the last generation that this session knows
  bool hasLostLocks_ = false;  ///< others had one, or have used it, when the connection was made again
};

}  // namespace vanzet::vdm
