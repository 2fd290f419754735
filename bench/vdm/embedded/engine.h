#pragma once

#include <filesystem>

#include "vdm/embedded/commit_writer.h"
#include "vdm/embedded/connection.h"
#include "vdm/store_engine.h"

namespace vanzet::vdm {

/// Keeps VDMs in one SQLite file. A missing or empty file is an empty store; the first commit creates it, and
/// brings an older form to the current one. A file or folder without any write permission bit is read-only,
/// even for the superuser.
///
/// Threads  one; not to be carried over a fork once it was used
/// Source   docs/formats/store.md
class SqliteEngine : public StoreEngine {
 public:
  using Options = SqliteConnection::Options;

  /// The name of the file in a project.
  static constexpr const char* kStoreFile = "store.db";

  explicit SqliteEngine(std::filesystem::path file) : SqliteEngine(std::move(file), Options()) {}
  SqliteEngine(std::filesystem::path file, const Options& options)
      : file_(std::move(file)), options_(options) {}

  std::string Name() const override { return file_.string(); }
  Result<std::vector<Number>> Numbers() override;
  Result<bool> Exists(Number number) override;
  Result<std::optional<Vdm>> Open(Number number) override;
  Result<std::map<Number, Vdm>> Read(const std::vector<Number>& numbers) override;
  Result<std::map<Number, RecordHeads>> ReadHeads(const std::vector<Number>& numbers) override;
  Result<void> Apply(const NewGeneration& next) override;
  Result<std::vector<VdmChange>> ListChanges(std::optional<Number> only) override;
  Result<std::map<Number, Vdm>> ReadAt(std::int64_t generation, std::optional<Number> only) override;
  Result<void> Visit(std::optional<Number> only, const GenerationVisitor& visitor) override;
  Result<void> Fill(const GenerationSource& source) override;
  Result<std::optional<TextFile>> UnfinishedFile() override;
  Result<void> FinishFile() override;

 private:
  /// A transaction for reading, and the schema that it sees.
  struct Reading {
    SqliteTransaction transaction;
    std::int64_t schema;
  };

  /// Returns false when the file does not exist and must not be created.
  Result<bool> Connect(SqliteConnection::IfMissing ifMissing);

  /// Returns nothing when the store is empty.
  Result<std::optional<Reading>> BeginReading();
  Result<SqliteTransaction> BeginWriting();

  // These require a transaction, `Change` one for writing.
  Result<void> Change(Number number, const std::optional<Vdm>& content, CommitWriter& writer);
  Result<void> FillEmpty(const GenerationSource& source);
  Result<void> Append(const PastGeneration& past);
  Result<void> VisitFirstSchema(std::optional<Number> only, const GenerationVisitor& visitor);
  Result<std::optional<Vdm>> Stored(Number number, std::int64_t schema);
  Result<RecordHeads> HeadsOf(Number number, std::int64_t schema);
  Result<std::vector<RecordKey>> KeysOf(Number number, std::int64_t schema);

  std::filesystem::path file_;
  Options options_;
  std::shared_ptr<SqliteConnection> connection_;  ///< shared with VDMs that fetch records through it
};

}  // namespace vanzet::vdm
