#pragma once

#include <memory>
#include <mutex>
#include <utility>

namespace vanzet::vdm {
class PostgresSession;
}

namespace vanzet::project {

/// The connection with which a project on a server was opened, kept for the first store that is made then: a
/// command connects once.
///
/// Threads  any
class IdleSession {
 public:
  explicit IdleSession(std::shared_ptr<vdm::PostgresSession> session) : session_(std::move(session)) {}

  /// The session; null when it was taken before.
  std::shared_ptr<vdm::PostgresSession> Take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(session_, nullptr);
  }

 private:
  std::mutex mutex_;
  std::shared_ptr<vdm::PostgresSession> session_;
};

}  // namespace vanzet::project
