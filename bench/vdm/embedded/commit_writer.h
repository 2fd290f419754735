#pragma once

#include <cstdint>
#include <vector>

#include "vdm/embedded/connection.h"
#include "vdm/embedded/former_records.h"
#include "vdm/store_engine.h"

namespace vanzet::vdm {

/// Writes the parts of one commit to the tables of the current schema. The rows of the state before stay, for
/// the generations before.
/// Requires: a transaction for writing, as long as it lives.
class CommitWriter {
 public:
  /// Begins the next generation, which this process makes now.
  static Result<CommitWriter> Begin(SqliteConnection& connection, const std::string& occasion);

  /// Begins a generation that was made elsewhere. Requires: its number is larger than all others.
  static Result<CommitWriter> Begin(SqliteConnection& connection, const Generation& generation);

  /// Replaces the content of a VDM, whose records were `before`.
  Result<void> Write(Number number, const Vdm& content, const std::vector<RecordKey>& before);
  Result<void> Remove(Number number, const std::vector<RecordKey>& before);
  Result<void> Write(const TextFile& file);

  /// Notes that the states of a VDM before this generation are not kept.
  Result<void> Cut(Number number);

  std::int64_t generation() const { return generation_; }

 private:
  CommitWriter(SqliteConnection& connection, std::int64_t generation)
      : connection_(connection), generation_(generation) {}

  Result<std::vector<RecordKey>> WriteRecords(const Vdm& content, const std::vector<RecordKey>& before);
  Result<RecordKey> WriteRecord(const Vdm::Entry& entry, FormerRecords& former);
  Result<void> ChangeOrder(Number number, const std::vector<RecordKey>& before,
                           const std::vector<RecordKey>& after);

  SqliteConnection& connection_;
  std::int64_t generation_;
};

}  // namespace vanzet::vdm
