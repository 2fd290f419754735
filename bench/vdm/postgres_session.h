#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "vdm/postgres_connection.h"

namespace vanzet::vdm {

/// A project on a server as one engine uses it: a connection that is made again when it breaks, with the
/// locks that were held on it.
///
/// Errors   those of `PostgresConnection`. A first connection fails at once; one that broke is tried again
///          for half a minute, on all hosts of the connection text, so that another server can take over
class PostgresSession {
 public:
  PostgresSession(std::string connectionText, std::string project)
      : connectionText_(std::move(connectionText)), project_(std::move(project)) {}

  const std::string& connectionText() const { return connectionText_; }
  const std::string& project() const { return project_; }

  /// The connection, which is not broken; valid until the next call.
  Result<PostgresConnection*> Connection();

  /// The same connection as when `Connections` was `count`. Fails when it broke since.
  Result<PostgresConnection*> ConnectionOf(int count) const;

  /// The number of connections that were made.
  int Connections() const { return connections_; }

  /// Runs statements that may run twice, in one transaction; again on a new connection when this one breaks.
  Result<PostgresAnswers> Run(const std::vector<PostgresStatement>& statements);

  /// The rows of a statement that only reads; nothing when the server has no tables yet.
  Result<std::optional<PostgresRows>> Read(PostgresStatement statement);

  /// The number of the project. Makes the project, and the tables, when they do not exist.
  Result<std::int64_t> MakeProject();

  /// True when a lock of this key was taken, waiting for it at most so long, until `Unlock`.
  Result<bool> Lock(std::int64_t key, std::chrono::milliseconds longestWait);
  void Unlock(std::int64_t key);

  /// From now on commits are refused that do not follow this generation; nothing: all follow.
  void Expect(std::optional<std::int64_t> generation) { expected_ = generation; }

  /// Fails when a lock was lost with a connection, or the generation before `next` is not the expected one.
  Result<void> CheckFence(std::int64_t next) const;

  /// Notes the commit of a generation by this session.
  void NoteCommit(std::int64_t generation) {
    if (expected_) expected_ = generation;
  }

 private:
  Result<void> Reconnect();
  Result<void> TakeLocksAgain();

  std::string connectionText_, project_;
  std::unique_ptr<PostgresConnection> connection_;
  int connections_ = 0;
  std::set<std::int64_t> held_;
  bool hasLostLocks_ = false;  ///< others had taken one when the connection was made again
  std::optional<std::int64_t> expected_;
};

}  // namespace vanzet::vdm
