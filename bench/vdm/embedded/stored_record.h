#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "vdm/embedded/connection.h"
#include "vdm/embedded/schema.h"
#include "vdm/record_row.h"

namespace vanzet::vdm {

/// Reads one record of the VDM `number` and verifies its count and its checksum. Fails with `kDamaged` for
/// one that is missing or was changed. Requires: `queries` are those of the file's schema.
Result<Record> LoadRecord(SqliteConnection& connection, const StoreQueries& queries, Number number,
                          RecordKey key);

/// Reads the head of a record. One that is longer than its head is not verified, but for its count.
Result<RecordHead> LoadHead(SqliteConnection& connection, const StoreQueries& queries, Number number,
                            RecordKey key);

}  // namespace vanzet::vdm
