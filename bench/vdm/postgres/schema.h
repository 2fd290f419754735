#pragma once

#include <cstdint>
#include <string_view>

#include "vdm/postgres/connection.h"

/// The tables of the stores on a server: docs/formats/store.md.
namespace vanzet::vdm {

/// The form that this version writes.
inline constexpr std::int64_t kServerSchema = 1;

/// Make the table of the devices of catalogues, which bench/catalogue keeps, where it does not exist. Servers
/// whose first project is older than this table get it with the first catalogue.
inline constexpr std::string_view kMakeDevices = R"(
  CREATE TABLE IF NOT EXISTS vanzet.device(project bigint NOT NULL, position bigint NOT NULL, last bigint NOT NULL,
                                           first bigint NOT NULL, former bigint NOT NULL, name bytea NOT NULL,
                                           lines bytea NOT NULL, figures bytea NOT NULL,
                                           PRIMARY KEY(project, last, position)))";
inline constexpr std::string_view kMakeDeviceIndex =
    "CREATE INDEX IF NOT EXISTS device_name ON vanzet.device(project, name)";

/// Waits for others who make tables, until the end of the transaction: a lock by the bytes of "vnzt".
inline constexpr std::string_view kLockMaking = "SELECT pg_advisory_xact_lock(1986951796)";

/// Returns the schema of the tables, in one row.
inline constexpr std::string_view kReadServerSchema = "SELECT version FROM vanzet.schema";

/// True when the last fault of the connection says that the tables do not exist: the store is empty.
bool HasNoTables(const PostgresConnection& connection);

/// Fails for the rows of `kReadServerSchema` that are not those of this version.
Result<void> CheckServerSchema(const PostgresConnection& connection, const PostgresRows& rows);

/// Makes the tables where they do not exist. Requires: no transaction.
Result<void> MakeServerTables(PostgresConnection& connection);

}  // namespace vanzet::vdm
