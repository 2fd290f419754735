#include "vdm/embedded/connection.h"

#include <sqlite3.h>

#include <cerrno>
#include <utility>

#include "base/files/regular_file.h"
#include "base/files/system_fault.h"

namespace vanzet::vdm {
namespace {

struct Failure {
  int code;
  FaultKind kind;
  std::string_view text;
};

// The failures that a person can do something about; for the rest SQLite's own words serve.
constexpr Failure kFailures[] = {
    {SQLITE_BUSY, FaultKind::kBusy, "another process is writing it"},
    {SQLITE_CANTOPEN, FaultKind::kSystem, "cannot be opened"},
    {SQLITE_CORRUPT, FaultKind::kDamaged, "is damaged"},
    {SQLITE_FULL, FaultKind::kSystem, "the disk is full"},
    {SQLITE_NOTADB, FaultKind::kDamaged, "is not a database"},
    {SQLITE_READONLY, FaultKind::kSystem, "is read-only"},
};

/// SQLite opens the files beside the database by itself, and would wait for ever for a pipe.
Result<void> CheckFilesOf(const std::filesystem::path& database) {
  for (const char* const end : {"", "-journal", "-wal", "-shm"}) {
    std::filesystem::path file = database;
    VANZET_DO(files::CheckRegularFile(file += end));
  }
  return {};
}

/// Resets a prepared statement after use, so that it neither holds a lock nor points to bytes that are gone.
struct Reset {
  void operator()(sqlite3_stmt* statement) const {
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
  }
};

int Bind(sqlite3_stmt* statement, int index, const SqliteConnection::Value& value) {
  if (std::holds_alternative<std::monostate>(value)) return sqlite3_bind_null(statement, index);
  if (const auto* number = std::get_if<std::int64_t>(&value)) {
    return sqlite3_bind_int64(statement, index, *number);
  }
  if (const auto* text = std::get_if<SqliteConnection::Text>(&value)) {
    return sqlite3_bind_text64(statement, index, text->bytes.empty() ? "" : text->bytes.data(),
                               text->bytes.size(), SQLITE_STATIC, SQLITE_UTF8);
  }
  const std::string_view bytes = std::get<std::string_view>(value);
  // Without an address SQLite would bind a null instead of no bytes.
  return sqlite3_bind_blob64(statement, index, bytes.empty() ? "" : bytes.data(), bytes.size(),
                             SQLITE_STATIC);
}

}  // namespace

std::int64_t SqliteRow::Integer(int column) const {
  return sqlite3_column_int64(statement_, column);
}

std::string_view SqliteRow::Bytes(int column) const {
  const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
  if (bytes == nullptr) return {};
  return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

bool SqliteRow::IsNull(int column) const {
  return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

Result<std::shared_ptr<SqliteConnection>> SqliteConnection::Open(const std::filesystem::path& file,
                                                                 IfMissing ifMissing,
                                                                 const Options& options) {
  VANZET_DO(CheckFilesOf(file));
  sqlite3* database = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | (ifMissing == IfMissing::kMake ? SQLITE_OPEN_CREATE : 0);
  const int code = sqlite3_open_v2(file.c_str(), &database, flags, nullptr);
  std::shared_ptr<SqliteConnection> connection(new SqliteConnection(database, file));
  if (code != SQLITE_OK) return connection->FaultOfCode(code);
  sqlite3_busy_timeout(database, options.busyTimeout);
  // Removed content is not secret, and overwriting it would write every page twice.
  const std::string settings =
      "PRAGMA synchronous=FULL; PRAGMA secure_delete=OFF;" +
      (options.maxPages > 0 ? "PRAGMA max_page_count=" + std::to_string(options.maxPages) : std::string());
  const int set = sqlite3_exec(database, settings.c_str(), nullptr, nullptr, nullptr);
  if (set != SQLITE_OK) return connection->FaultOfCode(set);
  return connection;
}

SqliteConnection::~SqliteConnection() {
  for (const auto& [sql, statement] : statements_) sqlite3_finalize(statement);
  sqlite3_close(database_);
}

Result<void> SqliteConnection::Run(std::string_view sql, std::initializer_list<Value> values,
                                   const RowReader& read) {
  VANZET_TRY(const auto prepared, Prepared(sql));
  const std::unique_ptr<sqlite3_stmt, Reset> statement(prepared);
  int index = 0;
  for (const Value& value : values) {
    if (const int code = Bind(statement.get(), ++index, value); code != SQLITE_OK) return FaultOfCode(code);
  }
  int code = sqlite3_step(statement.get());
  for (; code == SQLITE_ROW; code = sqlite3_step(statement.get())) {
    if (!read) continue;
    VANZET_DO(read(SqliteRow(statement.get())));
  }
  if (code != SQLITE_DONE) return FaultOfCode(code);
  return {};
}

Result<std::int64_t> SqliteConnection::Integer(std::string_view sql, std::initializer_list<Value> values) {
  std::int64_t found = 0;
  const auto done = Run(sql, values, [&](const SqliteRow& row) {
    found = row.Integer(0);
    return Result<void>();
  });
  if (!done) return done.fault();
  return found;
}

Result<void> SqliteConnection::AddFunction(const char* name, RowFunction function) {
  const auto call = [](sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    const auto* bytes = static_cast<const char*>(sqlite3_value_blob(values[0]));
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(values[0]));
    const auto own = reinterpret_cast<RowFunction>(sqlite3_user_data(context));
    sqlite3_result_int64(context, own(bytes == nullptr ? std::string_view() : std::string_view(bytes, size)));
  };
  const int code =
      sqlite3_create_function_v2(database_, name, 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                 reinterpret_cast<void*>(function), call, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) return FaultOfCode(code);
  return {};
}

std::int64_t SqliteConnection::LastKey() const {
  return sqlite3_last_insert_rowid(database_);
}

bool SqliteConnection::HasMoved() const {
  int moved = 0;
  return sqlite3_file_control(database_, "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved != 0;
}

Result<sqlite3_stmt*> SqliteConnection::Prepared(std::string_view sql) {
  if (const auto known = statements_.find(sql); known != statements_.end()) return known->second;
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v3(database_, sql.data(), static_cast<int>(sql.size()),
                                      SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  if (code != SQLITE_OK) return FaultOfCode(code);
  statements_.emplace(sql, statement);
  return statement;
}

std::optional<Fault> SqliteConnection::ReadFault() const {
  int error = 0;
  sqlite3_file_control(database_, "main", SQLITE_FCNTL_LAST_ERRNO, &error);
  if (error != EIO && error != ENXIO) return {};
  return files::SystemFault("cannot be read", error, file_);
}

Fault SqliteConnection::FaultOfCode(int code) const {
  const int primary = code & 0xFF;
  // SQLite calls a file damaged whose bytes the system could not read.
  if (primary == SQLITE_CORRUPT || primary == SQLITE_IOERR) {
    if (auto fault = ReadFault()) return *std::move(fault);
  }
  for (const Failure& failure : kFailures) {
    if (failure.code == primary) return FaultOf(std::string(failure.text), failure.kind);
  }
  return FaultOf(sqlite3_errmsg(database_), FaultKind::kSystem);
}

Result<SqliteTransaction> SqliteTransaction::Begin(SqliteConnection& connection, Kind kind) {
  // A write takes its lock at once: a read that grew into one could meet another doing the same.
  VANZET_DO(connection.Run(kind == Kind::kWrite ? "BEGIN IMMEDIATE" : "BEGIN"));
  return SqliteTransaction(connection);
}

SqliteTransaction::SqliteTransaction(SqliteTransaction&& other) noexcept
    : connection_(std::exchange(other.connection_, nullptr)) {}

SqliteTransaction::~SqliteTransaction() {
  if (connection_ == nullptr || sqlite3_get_autocommit(connection_->database_) != 0) return;
  // A rollback that fails leaves the journal, from which the next one to open the file undoes the rest.
  static_cast<void>(connection_->Run("ROLLBACK"));
}

Result<void> SqliteTransaction::Commit() {
  return connection_->Run("COMMIT");
}

}  // namespace vanzet::vdm
