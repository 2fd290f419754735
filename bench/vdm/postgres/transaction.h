#pragma once

#include <memory>
#include <optional>
#include <string>

#include "vdm/postgres/commit.h"
#include "vdm/postgres/session.h"

namespace vanzet::vdm {

/// A transaction that makes the next generation of a project. Until its end no other one does; the destructor
/// gives it up.
class PostgresTransaction {
 public:
  enum class Outcome {
    kCommitted,
    kLost  ///< the connection broke, and the server has not committed: it may be tried again
  };

  /// Begins it in one round trip, with the former orders of the VDMs in `orders`. Nothing when the project
  /// does not exist.
  static Result<std::optional<PostgresTransaction>> Begin(std::shared_ptr<PostgresSession> session,
                                                          const NewOrders& orders);

  PostgresTransaction(PostgresTransaction&&) noexcept = default;
  PostgresTransaction& operator=(PostgresTransaction&&) = delete;
  ~PostgresTransaction();

  std::int64_t project() const { return project_; }
  std::int64_t generation() const { return generation_; }
  std::int64_t lastRecord() const { return lastRecord_; }  ///< the largest key used before
  const std::string& token() const { return token_; }
  const FormerOrders& former() const { return former_; }

  Result<void> Run(const std::vector<PostgresStatement>& statements);

  /// Commits `generation`, which was added with the token. When the connection breaks, the server is asked
  /// for the outcome on a new connection; a fault when it does not know it.
  Result<Outcome> Commit(std::int64_t generation);

 private:
  explicit PostgresTransaction(std::shared_ptr<PostgresSession> session);

  Result<bool> Start(const NewOrders& orders);
  Result<void> TakeFormer(const PostgresRows& rows);
  Result<Outcome> FindOutcome(std::int64_t generation) const;
  Result<std::optional<Outcome>> AskForOutcome(PostgresConnection& connection, std::int64_t generation) const;
  Result<std::optional<bool>> AskForGeneration(PostgresConnection& connection, std::int64_t generation) const;
  Result<std::string> AskForStatus(PostgresConnection& connection) const;

  std::shared_ptr<PostgresSession> session_;  ///< null: moved away
  int connection_;
  bool isEnded_ = false;
  std::int64_t project_ = 0, generation_ = 0, lastRecord_ = 0;
  std::int64_t number_ = 0;  ///< the server's number of this transaction
  std::string token_;
  FormerOrders former_;
};

}  // namespace vanzet::vdm
