#pragma once

#include <memory>
#include <mutex>
#include <utility>

#include "project/store_place.h"

namespace vanzet::vdm {
class PostgresSession;
}

namespace vanzet::project {

/// The connection of a project to its server, kept from one store to the next, so that a command connects
/// once, and a window as well. Stores that are used at the same time have connections of their own.
///
/// Threads  any
class IdleSession : public std::enable_shared_from_this<IdleSession> {
 public:
  /// `session` is the one with which the project was opened; null for the embedded store.
  IdleSession(StorePlace place, std::shared_ptr<vdm::PostgresSession> session)
      : place_(std::move(place)), session_(std::move(session)) {}

  /// The session for a store; it comes back when the last pointer goes. Null for the embedded store.
  std::shared_ptr<vdm::PostgresSession> Lend();

 private:
  std::shared_ptr<vdm::PostgresSession> Take();
  void Return(std::shared_ptr<vdm::PostgresSession> session);

  const StorePlace place_;
  std::mutex mutex_;
  std::shared_ptr<vdm::PostgresSession> session_;  ///< null while it is lent
  bool wasLent_ = false;
};

}  // namespace vanzet::project
