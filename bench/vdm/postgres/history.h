#pragma once

#include <map>
#include <memory>

#include "vdm/history_rows.h"
#include "vdm/postgres/records.h"
#include "vdm/postgres/session.h"

namespace vanzet::vdm {

/// The rows of a project on a server. Requires: a transaction that reads one state, as long as it lives.
class PostgresHistory : public HistoryRows {
 public:
  explicit PostgresHistory(std::shared_ptr<PostgresSession> session)
      : session_(std::move(session)), connection_(session_->Connections()) {}

  Result<std::vector<VersionRow>> Versions(std::optional<Number> only) override;
  Result<std::map<std::int64_t, Generation>> Generations() override;
  Result<std::int64_t> LastGeneration() override;
  Result<std::vector<PlaceRow>> Places(Number number) override;
  Result<std::vector<PlaceRow>> PlacesAt(Number number, std::int64_t generation) override;
  void Expect(Number number, const std::vector<RecordKey>& keys) override;
  Result<Record> Load(Number number, RecordKey key) override;
  Fault FaultOf(std::string text, FaultKind kind) const override;

 private:
  Result<PostgresRows> Read(PostgresStatement statement);
  Result<std::vector<PlaceRow>> PlacesOf(PostgresStatement statement);

  std::shared_ptr<PostgresSession> session_;
  int connection_;  ///< of the transaction
  std::map<Number, PostgresRecords> expected_;
};

/// The statements that forget what need not be kept after the commit of a generation, in its transaction;
/// none where there is nothing to do yet: docs/formats/store.md.
std::vector<PostgresStatement> StatementsThatTrim(std::int64_t project, std::int64_t generation,
                                                  std::int64_t keep);

}  // namespace vanzet::vdm
