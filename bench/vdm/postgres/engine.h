#pragma once

#include <memory>
#include <string>

#include "vdm/generation_reader.h"
#include "vdm/postgres/locks.h"
#include "vdm/postgres/session.h"
#include "vdm/postgres/transaction.h"
#include "vdm/postgres/watch.h"
#include "vdm/store_engine.h"
#include "vdm/store_locks.h"

namespace vanzet::vdm {

/// Keeps the VDMs of a project in a PostgreSQL server that many projects share. A database without tables, or
/// without the project, is an empty store; the first commit makes them. A connection that breaks is made
/// again, and what was under way is done on the new one; a commit is never made twice.
///
/// Threads  one; not to be carried over a fork
/// Source   docs/formats/store.md
class PostgresEngine : public StoreEngine {
 public:
  /// Nothing is connected before the first call. `folder` tells text files of commits in different folders
  /// of the same project apart.
  PostgresEngine(std::string connectionText, std::string project, std::string folder = {})
      : PostgresEngine(std::make_shared<PostgresSession>(std::move(connectionText), std::move(project)),
                       std::move(folder)) {}

  /// The same with a session that may be connected already. Requires: no other engine uses it.
  PostgresEngine(std::shared_ptr<PostgresSession> session, std::string folder)
      : session_(std::move(session)), folder_(std::move(folder)) {}

  /// The locks of this engine's connection; they can outlive the engine.
  std::unique_ptr<StoreLocks> Locks() const;

  /// Who holds a lock now.
  Result<std::vector<LockHolder>> Holders() const { return LockHolders(*session_); }

  /// Notices the commits of others, on a connection of its own.
  Result<std::unique_ptr<PostgresWatch>> Watch() const;

  std::string Name() const override { return session_->Name(); }
  Result<std::vector<Number>> Numbers() override;
  Result<bool> Exists(Number number) override;
  Result<std::optional<Vdm>> Open(Number number) override;
  Result<std::map<Number, Vdm>> Read(const std::vector<Number>& numbers) override;
  Result<std::map<Number, RecordHeads>> ReadHeads(const std::vector<Number>& numbers) override;
  Result<void> Apply(const NewGeneration& next) override;
  Result<std::vector<VdmChange>> ListChanges(std::optional<Number> only) override;
  Result<std::map<Number, Vdm>> ReadAt(std::int64_t generation, std::optional<Number> only) override;
  Result<void> Visit(std::optional<Number> only, const GenerationVisitor& visitor) override;
  Result<void> Fill(const GenerationSource& source) override;
  Result<std::optional<TextFile>> UnfinishedFile() override;
  Result<void> FinishFile() override;

 private:
  using Outcome = PostgresTransaction::Outcome;
  struct Filling;
  struct Step;

  PostgresValue Project() const { return PostgresValue::Text(session_->project()); }
  Result<Outcome> TryApply(const NewGeneration& next, const NewOrders& orders, Step& step);
  Result<void> Write(PostgresTransaction& transaction, const NewGeneration& next,
                     const NewOrders& orders) const;
  void AddOthers(const PostgresTransaction& transaction, const NewGeneration& next,
                 std::vector<PostgresStatement>& statements) const;
  Result<std::optional<PostgresTransaction>> BeginOnProject(const NewOrders& orders, bool makesProject);
  static Result<void> Append(const PastGeneration& past, Filling& filling);

  using HistoryReading = std::function<Result<void>(GenerationReader&)>;
  struct Visits;

  /// Reads the history in a transaction; from its beginning again when the connection breaks. False when the
  /// store has no tables.
  Result<bool> ReadHistory(const HistoryReading& read);
  Result<bool> ReadHistoryOn(PostgresConnection& connection, const HistoryReading& read) const;

  std::shared_ptr<PostgresSession> session_;
  std::string folder_;
};

}  // namespace vanzet::vdm
