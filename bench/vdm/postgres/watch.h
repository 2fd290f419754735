#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "vdm/postgres/locks.h"

namespace vanzet::vdm {

/// Notices commits of a project, and locks that come and go, by any program, this one too.
///
/// Owns      a connection of its own
/// Errors    a fault when the connection broke; a new watch is to be made then, and the project read again,
///           since commits in between were not noticed
class PostgresWatch {
 public:
  static Result<std::unique_ptr<PostgresWatch>> Begin(const std::string& connectionText,
                                                      const std::string& project);

  /// Can be read when there may be a commit: for `poll` and the like. It belongs to the watch.
  int Descriptor() const { return connection_->Descriptor(); }

  /// The last generation that was committed since the last call; never waits.
  Result<std::optional<std::int64_t>> Peek();

  /// The same, and waits for a commit at most so long.
  Result<std::optional<std::int64_t>> Wait(std::chrono::milliseconds longestWait);

  /// True when a lock was taken or released since the last call, as far as `Peek` and `Wait` have read. The
  /// locks of a program that died go without a notification.
  bool TakeLocksNote() { return std::exchange(hasLocksNote_, false); }

  /// Who holds a lock of the project now. A commit that is noticed meanwhile is that of the next `Peek`: the
  /// descriptor need not say so.
  Result<std::vector<LockHolder>> Holders() { return LockHolders(*connection_, project_); }

 private:
  PostgresWatch(std::unique_ptr<PostgresConnection> connection, std::string project)
      : connection_(std::move(connection)), project_(std::move(project)) {}

  std::unique_ptr<PostgresConnection> connection_;
  std::string project_;
  bool hasLocksNote_ = false;
};

}  // namespace vanzet::vdm
