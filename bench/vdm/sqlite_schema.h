#pragma once

#include "vdm/sqlite_connection.h"

namespace vanzet::vdm {

/// The form of `store.db` that this version writes. Source: docs/formats/store.md
constexpr std::int64_t kStoreSchema = 1;

/// True when the file holds our tables, false when it is empty; a fault when it is of another program or of a
/// newer version of this one. Requires: a transaction, so that the answer stays true.
Result<bool> HasTables(SqliteConnection& connection);

/// Makes our tables in an empty file. Requires: a transaction for writing.
Result<void> MakeTables(SqliteConnection& connection);

}  // namespace vanzet::vdm
