#pragma once

#include <cstdint>
#include <vector>

#include "vdm/sqlite_connection.h"
#include "vdm/store_engine.h"

namespace vanzet::vdm {

/// Writes the parts of one commit to the tables of the current schema.
/// Requires: a transaction for writing, as long as it lives.
class CommitWriter {
 public:
  /// Begins the next generation, and names its origin.
  static Result<CommitWriter> Begin(SqliteConnection& connection, const std::string& occasion);

  /// Replaces the content of a VDM, whose records were `before`.
  Result<void> Write(Number number, const Vdm& content, const std::vector<RecordKey>& before);
  Result<void> Remove(Number number, const std::vector<RecordKey>& before);
  Result<void> Write(const TextFile& file);

 private:
  CommitWriter(SqliteConnection& connection, std::int64_t generation)
      : connection_(connection), generation_(generation) {}

  Result<std::vector<RecordKey>> WriteRecords(const Vdm& content);
  Result<void> ChangeOrder(Number number, const std::vector<RecordKey>& before,
                           const std::vector<RecordKey>& after);

  SqliteConnection& connection_;
  std::int64_t generation_;
};

}  // namespace vanzet::vdm
