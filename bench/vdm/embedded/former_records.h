#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "vdm/embedded/connection.h"
#include "vdm/vdm.h"

namespace vanzet::vdm {

/// A record as the columns of the store hold it.
struct StoredBytes {
  std::string_view content;
  std::int64_t items;
  std::int64_t checksum;
};

/// The records of a VDM before a commit, so that a record whose content is not new is not written again.
/// Requires: a transaction, as long as it lives.
class FormerRecords {
 public:
  /// `keys` are the records before; those that `content` still refers to are not found by content.
  FormerRecords(SqliteConnection& connection, const Vdm& content, const std::vector<RecordKey>& keys);

  /// True when the store keeps this under the key.
  Result<bool> Holds(RecordKey key, const StoredBytes& record);

  /// Returns a record with this content, each one once.
  Result<std::optional<RecordKey>> Take(const StoredBytes& record);

 private:
  Result<void> ReadChecksums();

  SqliteConnection& connection_;
  std::vector<RecordKey> left_;  ///< records whose checksums were not read yet
  std::multimap<std::int64_t, RecordKey> byChecksum_;
};

}  // namespace vanzet::vdm
