#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "vdm/sqlite_connection.h"
#include "vdm/store_schema.h"
#include "vdm/vdm.h"

namespace vanzet::vdm {

/// A record as a row keeps it.
struct RecordRow {
  std::int64_t items;
  std::string_view content;              ///< or its first bytes
  std::optional<std::int64_t> checksum;  ///< nothing: stores of the first schema have none
};

/// Verifies the count and the checksum, and reads the content. Its fault does not say which record it is.
Result<Record> VerifiedRecord(const RecordRow& row);

/// The same for the head of a record that has so many bytes. A longer one is not verified, but for its count.
Result<RecordHead> VerifiedHead(const RecordRow& row, std::int64_t bytes);

/// "record 4, of VDM 1000", as faults name it.
std::string PlaceOf(RecordKey key, Number number);

/// Reads one record of the VDM `number` and verifies its count and its checksum. Fails with `kDamaged` for
/// one that is missing or was changed. Requires: `queries` are those of the file's schema.
Result<Record> LoadRecord(SqliteConnection& connection, const StoreQueries& queries, Number number,
                          RecordKey key);

/// Reads the head of a record. One that is longer than its head is not verified, but for its count.
Result<RecordHead> LoadHead(SqliteConnection& connection, const StoreQueries& queries, Number number,
                            RecordKey key);

}  // namespace vanzet::vdm
