#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/result.h"

struct sqlite3;
struct sqlite3_stmt;

namespace vanzet::vdm {

/// One row of a statement's result. Columns count from 0; views are valid until the next row.
class SqliteRow {
 public:
  explicit SqliteRow(sqlite3_stmt* statement) : statement_(statement) {}
  std::int64_t Integer(int column) const;
  std::string_view Bytes(int column) const;
  bool IsNull(int column) const;

 private:
  sqlite3_stmt* statement_;
};

/// A connection to one SQLite file. Each statement is prepared once.
///
/// Errors   a fault with the file's name
/// Threads  one; a connection must not be carried over a fork
class SqliteConnection {
 public:
  enum class IfMissing { kFail, kMake };
  struct Options {
    int busyTimeout = 5000;  ///< milliseconds to wait for another process that is writing
    int maxPages = 0;        ///< the largest size of the file; 0: unlimited
  };

  static Result<std::shared_ptr<SqliteConnection>> Open(const std::filesystem::path& file,
                                                        IfMissing ifMissing, const Options& options);
  ~SqliteConnection();
  SqliteConnection(const SqliteConnection&) = delete;
  SqliteConnection& operator=(const SqliteConnection&) = delete;

  /// A text, as people can compare it in a query; other bytes are no text.
  struct Text {
    std::string_view bytes;
  };
  using Value = std::variant<std::monostate, std::int64_t, std::string_view, Text>;  ///< null, number, bytes
  using RowReader = std::function<Result<void>(const SqliteRow&)>;

  /// Runs a statement to its end and passes each row to `read`; a fault of `read` ends it.
  /// Requires: `sql` does not change while the connection lives; it identifies the prepared statement.
  Result<void> Run(std::string_view sql, std::initializer_list<Value> values = {},
                   const RowReader& read = {});

  /// Returns the first column of the one row of the result; 0 without a row.
  Result<std::int64_t> Integer(std::string_view sql, std::initializer_list<Value> values = {});

  /// Makes a function of bytes known to statements.
  using RowFunction = std::int64_t (*)(std::string_view bytes);
  Result<void> AddFunction(const char* name, RowFunction function);

  /// The key of the row that was inserted last.
  std::int64_t LastKey() const;

  /// A fault with the caller's text and the file's name.
  Fault FaultOf(std::string text, FaultKind kind = FaultKind::kRefused) const {
    return {.text = std::move(text), .file = file_.string(), .kind = kind};
  }

  /// A fault of the kind `kDamaged`: "is damaged: " and the text.
  Fault DamageOf(const std::string& text) const {
    return FaultOf("is damaged: " + text, FaultKind::kDamaged);
  }

  /// Why the system could not read a part of the file, if that has happened on this connection.
  std::optional<Fault> ReadFault() const;

  /// True when the path of this file now names another file, or none.
  bool HasMoved() const;

 private:
  friend class SqliteTransaction;
  SqliteConnection(sqlite3* database, std::filesystem::path file)
      : database_(database), file_(std::move(file)) {}

  Result<sqlite3_stmt*> Prepared(std::string_view sql);
  Fault FaultOfCode(int code) const;

  sqlite3* database_;
  std::filesystem::path file_;
  std::map<std::string_view, sqlite3_stmt*> statements_;
};

/// A transaction on a connection. Its destructor rolls back what was not committed.
class SqliteTransaction {
 public:
  enum class Kind { kRead, kWrite };

  static Result<SqliteTransaction> Begin(SqliteConnection& connection, Kind kind);
  ~SqliteTransaction();
  SqliteTransaction(SqliteTransaction&& other) noexcept;
  SqliteTransaction& operator=(SqliteTransaction&&) = delete;

  Result<void> Commit();

 private:
  explicit SqliteTransaction(SqliteConnection& connection) : connection_(&connection) {}
  SqliteConnection* connection_;  ///< null: moved away
};

}  // namespace vanzet::vdm
