#pragma once

#include <cstdint>
#include <string_view>

#include "vdm/postgres_connection.h"

/// The tables of the stores on a server: docs/formats/store.md.
namespace vanzet::vdm {

/// The form that this version writes.
inline constexpr std::int64_t kServerSchema = 1;

/// Returns the schema of the tables, in one row.
inline constexpr std::string_view kReadServerSchema = "SELECT version FROM vanzet.schema";

/// True when the last fault of the connection says that the tables do not exist: the store is empty.
bool HasNoTables(const PostgresConnection& connection);

/// Fails for the rows of `kReadServerSchema` that are not those of this version.
Result<void> CheckServerSchema(const PostgresConnection& connection, const PostgresRows& rows);

/// Makes the tables where they do not exist. Requires: no transaction.
Result<void> MakeServerTables(PostgresConnection& connection);

}  // namespace vanzet::vdm
