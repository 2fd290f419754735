#pragma once

#include <memory>

#include "vdm/embedded/connection.h"
#include "vdm/history_rows.h"

namespace vanzet::vdm {

/// The rows of a file of the current schema. Requires: a transaction, as long as it lives.
class SqliteHistory : public HistoryRows {
 public:
  explicit SqliteHistory(std::shared_ptr<SqliteConnection> connection) : connection_(std::move(connection)) {}

  Result<std::vector<VersionRow>> Versions(std::optional<Number> only) override;
  Result<std::map<std::int64_t, Generation>> Generations() override;
  Result<std::int64_t> LastGeneration() override;
  Result<std::vector<PlaceRow>> Places(Number number) override;
  Result<std::vector<PlaceRow>> PlacesAt(Number number, std::int64_t generation) override;
  void Expect(Number, const std::vector<RecordKey>&) override {}
  Result<Record> Load(Number number, RecordKey key) override;
  Fault FaultOf(std::string text, FaultKind kind) const override;

 private:
  std::shared_ptr<SqliteConnection> connection_;
};

}  // namespace vanzet::vdm
