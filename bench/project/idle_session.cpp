#include "project/idle_session.h"

#include "vdm/postgres/session.h"

namespace vanzet::project {

std::shared_ptr<vdm::PostgresSession> IdleSession::Lend() {
  if (place_.connection.empty()) return nullptr;
  auto session = Take();
  if (session == nullptr) session = std::make_shared<vdm::PostgresSession>(place_.connection, place_.project);
  auto* const lent = session.get();
  return {lent, [idle = weak_from_this(), session = std::move(session)](auto*) mutable {
            if (const auto there = idle.lock()) there->Return(std::move(session));
          }};
}

std::shared_ptr<vdm::PostgresSession> IdleSession::Take() {
  const std::lock_guard lock(mutex_);
  auto session = std::exchange(session_, nullptr);
  // The first store waits for a server that was there when the project was opened; a later one begins as if
  // nothing had been before.
  const bool mustBeAlive = std::exchange(wasLent_, true);
  if (mustBeAlive && session != nullptr && !session->IsIdle()) session.reset();
  return session;
}

void IdleSession::Return(std::shared_ptr<vdm::PostgresSession> session) {
  if (!session->IsIdle()) return;
  const std::lock_guard lock(mutex_);
  if (session_ == nullptr) session_ = std::move(session);
}

}  // namespace vanzet::project
