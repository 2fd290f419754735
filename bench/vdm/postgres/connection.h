#pragma once

#include <memory>
#include <string>
#include <vector>

#include "vdm/postgres/statement.h"

namespace vanzet::vdm {

/// One connection to a PostgreSQL server.
///
/// Errors   a fault that names host and database, never the password, with the server's text as it came:
///          `Fault::Message` escapes what is not to be printed
/// Threads  one; not to be carried over a fork
class PostgresConnection {
 public:
  /// Connects to the first host of the connection text that answers, and prepares the connection; tries it
  /// once. Returns through `mayPass`, where it is not null, whether a failure may be gone a little later.
  static Result<std::unique_ptr<PostgresConnection>> Open(const std::string& connectionText,
                                                          bool* mayPass = nullptr);

  /// Runs the statements in one round trip. Without a BEGIN among them they are one transaction. The first
  /// fault ends them; a transaction that was begun is still to be rolled back then.
  Result<PostgresAnswers> Run(const std::vector<PostgresStatement>& statements);

  /// Gives up the transaction, if there is one.
  void RollBack();

  /// True when the server has gone, or this connection to it.
  bool IsBroken() const;

  /// The SQLSTATE of the last fault of `Run`; empty when the server did not say one.
  const std::string& lastState() const { return lastState_; }

  /// "postgresql://host:5432/shop"
  const std::string& name() const { return name_; }

  Fault FaultOf(std::string text, FaultKind kind = FaultKind::kRefused) const;
  Fault DamageOf(const std::string& what) const;

  /// The file descriptor that can be read when the server has sent something.
  int Descriptor() const { return pq_.socket(connection_.get()); }

  /// The payloads of the notifications that came since the last call. Fails when the connection broke.
  Result<std::vector<std::string>> Notifications();

 private:
  PostgresConnection(const Libpq& pq, std::unique_ptr<PGconn, decltype(&PQfinish)> connection);

  Result<void> Prepare();
  bool Send(const PostgresStatement& statement);
  Result<PostgresRows> Receive();
  Fault BrokenFault() const;
  Fault BrokenFault(std::string_view reason) const;

  const Libpq& pq_;
  std::unique_ptr<PGconn, decltype(&PQfinish)> connection_;
  std::string name_;
  std::string lastState_;
  bool isOutOfStep_ = false;  ///< a statement was not sent: what comes next belongs to nothing
};

}  // namespace vanzet::vdm
