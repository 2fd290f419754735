#pragma once

#include <filesystem>

#include "vdm/sqlite_connection.h"
#include "vdm/store_engine.h"

namespace vanzet::vdm {

/// Keeps VDMs in one SQLite file. A missing or empty file is an empty store; the first write creates it.
/// A file or folder without any write permission bit is read-only, even for the superuser.
///
/// Threads  one; not to be carried over a fork once it was used
/// Source   docs/formats/store.md
class SqliteEngine : public StoreEngine {
 public:
  using Options = SqliteConnection::Options;

  explicit SqliteEngine(std::filesystem::path file) : SqliteEngine(std::move(file), Options()) {}
  SqliteEngine(std::filesystem::path file, const Options& options)
      : file_(std::move(file)), options_(options) {}

  Result<std::vector<Number>> Numbers() override;
  Result<bool> Exists(Number number) override;
  Result<std::optional<Vdm>> Open(Number number) override;
  Result<std::optional<Vdm>> Read(Number number) override;
  Result<void> Write(Number number, const Vdm& content) override;
  Result<void> Remove(Number number) override;

 private:
  /// Returns false when the file does not exist and must not be created.
  Result<bool> Connect(SqliteConnection::IfMissing ifMissing);

  /// Returns nothing when the store is empty.
  Result<std::optional<SqliteTransaction>> BeginReading();
  Result<SqliteTransaction> BeginWriting();

  // These require a transaction.
  Result<std::optional<Vdm>> Stored(Number number);
  Result<std::vector<RecordKey>> KeysOf(Number number);
  Result<std::vector<RecordKey>> WriteRecords(const Vdm& content);
  Result<void> ChangeOrder(Number number, const std::vector<RecordKey>& before,
                           const std::vector<RecordKey>& after);

  std::filesystem::path file_;
  Options options_;
  std::shared_ptr<SqliteConnection> connection_;  ///< shared with VDMs that fetch records through it
};

}  // namespace vanzet::vdm
