#pragma once

#include <cstdint>
#include <string_view>

#include "vdm/embedded/connection.h"
#include "vdm/history_rows.h"

/// The forms of `store.db`: docs/formats/store.md. All functions require a transaction.
namespace vanzet::vdm {

/// The form that this version writes. Older ones are read, and brought to it by the first commit.
inline constexpr std::int64_t kStoreSchema = 2;

/// The statements that read one form. Columns of `record`: items, content, checksum (null: it has none).
/// Those of `head` are the same with the first bytes of the content, and its size.
struct StoreQueries {
  std::string_view numbers;  ///< of all VDMs, rising
  std::string_view exists;   ///< (VDM): 1 or no row
  std::string_view places;   ///< (VDM): position and record key, by position
  std::string_view record;   ///< (record key)
  std::string_view head;     ///< (record key, number of bytes)
};

/// Returns the schema of the file; 0 for an empty file. Fails when another program or a newer version of this
/// one made it.
Result<std::int64_t> SchemaOf(SqliteConnection& connection);

/// Requires: `schema` is one that `SchemaOf` returns, and not 0.
const StoreQueries& QueriesOf(std::int64_t schema);

/// Makes the tables in an empty file, or brings those of an older schema to the current one.
/// Requires: a transaction for writing.
Result<void> BringToCurrentSchema(SqliteConnection& connection);

}  // namespace vanzet::vdm
