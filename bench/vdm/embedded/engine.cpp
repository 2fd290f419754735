#include "vdm/embedded/engine.h"

#include <algorithm>
#include <unordered_set>

#include "base/files/whole_file.h"
#include "vdm/embedded/generation_trimmer.h"
#include "vdm/embedded/history.h"
#include "vdm/embedded/schema.h"
#include "vdm/embedded/stored_record.h"
#include "vdm/generation_reader.h"

namespace vanzet::vdm {
namespace {

using IfMissing = SqliteConnection::IfMissing;
using Kind = SqliteTransaction::Kind;

constexpr std::string_view kFile = "SELECT name, former, content FROM file";
constexpr std::string_view kIsUsed = "SELECT EXISTS(SELECT 1 FROM generation)";
constexpr std::string_view kForgetFile = "DELETE FROM file";

std::int64_t Bound(Number number) {
  return static_cast<std::int64_t>(number);
}

/// True when all records that `content` left in the store are among `keys`.
bool IsOpenedFrom(const std::vector<RecordKey>& keys, const Vdm& content) {
  const std::unordered_set<RecordKey> known(keys.begin(), keys.end());
  for (std::size_t i = 0; i < content.Size(); ++i) {
    const auto key = content.EntryOf(i).key;
    if (key && !known.contains(*key)) return false;
  }
  return true;
}

/// False when it only removes.
bool HasContent(const NewGeneration& next) {
  return next.file != nullptr ||
         std::ranges::any_of(next.vdms, [](const auto& change) { return change.second.has_value(); });
}

}  // namespace

Result<std::vector<Number>> SqliteEngine::Numbers() {
  VANZET_TRY(const auto reading, BeginReading());
  std::vector<Number> numbers;
  if (!reading) return numbers;
  const auto& sql = QueriesOf(reading->schema).numbers;
  VANZET_DO(connection_->Run(sql, {}, [&](const SqliteRow& row) -> Result<void> {
    const auto number = NumberFrom(row.Integer(0));
    if (!number) return connection_->DamageOf(number.fault().text);
    numbers.push_back(*number);
    return {};
  }));
  return numbers;
}

Result<bool> SqliteEngine::Exists(Number number) {
  VANZET_TRY(const auto reading, BeginReading());
  if (!reading) return false;
  VANZET_TRY(const auto found, connection_->Integer(QueriesOf(reading->schema).exists, {Bound(number)}));
  return found != 0;
}

Result<std::optional<Vdm>> SqliteEngine::Open(Number number) {
  VANZET_TRY(const auto reading, BeginReading());
  if (!reading) return std::optional<Vdm>();
  return Stored(number, reading->schema);
}

Result<std::map<Number, Vdm>> SqliteEngine::Read(const std::vector<Number>& numbers) {
  // One transaction around the orders and all records, so that nobody writes between them.
  VANZET_TRY(const auto reading, BeginReading());
  std::map<Number, Vdm> contents;
  if (!reading) return contents;
  for (const Number number : numbers) {
    VANZET_TRY(const auto stored, Stored(number, reading->schema));
    if (!stored) continue;
    VANZET_TRY(auto copy, stored->Copy());
    contents.emplace(number, std::move(copy));
  }
  return contents;
}

Result<std::map<Number, RecordHeads>> SqliteEngine::ReadHeads(const std::vector<Number>& numbers) {
  VANZET_TRY(const auto reading, BeginReading());
  std::map<Number, RecordHeads> heads;
  if (!reading) return heads;
  for (const Number number : numbers) {
    VANZET_TRY(const auto found, connection_->Integer(QueriesOf(reading->schema).exists, {Bound(number)}));
    if (found == 0) continue;
    VANZET_TRY(auto read, HeadsOf(number, reading->schema));
    heads.emplace(number, std::move(read));
  }
  return heads;
}

Result<void> SqliteEngine::Apply(const NewGeneration& next) {
  if (!HasContent(next)) {
    VANZET_TRY(const auto connected, Connect(IfMissing::kFail));
    if (!connected) return next.lastStep ? next.lastStep() : Result<void>();
  }
  VANZET_TRY(auto writing, BeginWriting());
  VANZET_TRY(auto writer, CommitWriter::Begin(*connection_, next.occasion));
  for (const auto& [number, content] : next.vdms) VANZET_DO(Change(number, content, writer));
  if (next.file != nullptr) VANZET_DO(writer.Write(*next.file));
  VANZET_DO(TrimGenerations(*connection_, writer.generation(), next.keep));
  if (next.lastStep) VANZET_DO(next.lastStep());
  return writing.Commit();
}

Result<void> SqliteEngine::Change(Number number, const std::optional<Vdm>& content, CommitWriter& writer) {
  VANZET_TRY(const auto before, KeysOf(number, kStoreSchema));
  if (!content) return writer.Remove(number, before);
  if (IsOpenedFrom(before, *content)) return writer.Write(number, *content, before);
  return connection_->FaultOf(NameOf(number) + " was changed by others while it was open");
}

Result<std::vector<VdmChange>> SqliteEngine::ListChanges(std::optional<Number> only) {
  VANZET_TRY(const auto reading, BeginReading());
  if (!reading || reading->schema < kStoreSchema) return std::vector<VdmChange>();
  return GenerationReader(std::make_shared<SqliteHistory>(connection_)).ListChanges(only);
}

Result<std::map<Number, Vdm>> SqliteEngine::ReadAt(std::int64_t generation, std::optional<Number> only) {
  VANZET_TRY(const auto reading, BeginReading());
  if (reading && reading->schema == kStoreSchema) {
    return GenerationReader(std::make_shared<SqliteHistory>(connection_)).ReadAt(generation, only);
  }
  return Fault{.text = "has no generations yet", .file = file_.string(), .kind = FaultKind::kMissing};
}

Result<void> SqliteEngine::Visit(std::optional<Number> only, const GenerationVisitor& visitor) {
  VANZET_TRY(const auto reading, BeginReading());
  if (!reading) return {};
  if (reading->schema < kStoreSchema) return VisitFirstSchema(only, visitor);
  return GenerationReader(std::make_shared<SqliteHistory>(connection_)).Visit(only, visitor);
}

/// The content of such a store is the first generation, as it will be when a commit brings it to the current
/// schema.
Result<void> SqliteEngine::VisitFirstSchema(std::optional<Number> only, const GenerationVisitor& visitor) {
  PastGeneration past{{1, "?", "?", "?", "?", "migration"}, {}, {}};
  VANZET_DO(connection_->Run(QueriesOf(1).numbers, {}, [&](const SqliteRow& row) -> Result<void> {
    VANZET_TRY(const auto number, NumberFrom(row.Integer(0)));
    if (!only || *only == number) past.vdms.emplace(number, std::nullopt);
    return {};
  }));
  for (auto& [number, content] : past.vdms) {
    VANZET_TRY(content, Stored(number, 1));
  }
  return past.vdms.empty() ? Result<void>() : visitor(past);
}

Result<void> SqliteEngine::Fill(const GenerationSource& source) {
  std::error_code unknown;
  const bool isNew = !std::filesystem::exists(file_, unknown) && !unknown;
  const auto filled = FillEmpty(source);
  if (filled || !isNew) return filled;
  // The rest of a file that this call made has no byte, unless another one is to undo what was written.
  connection_.reset();
  if (std::filesystem::file_size(file_, unknown) == 0) std::filesystem::remove(file_, unknown);
  return filled;
}

Result<void> SqliteEngine::FillEmpty(const GenerationSource& source) {
  VANZET_TRY(auto writing, BeginWriting());
  VANZET_TRY(const auto used, connection_->Integer(kIsUsed));
  if (used != 0) return connection_->FaultOf("has generations already; a copy needs an empty store");
  VANZET_DO(source([&](const PastGeneration& past) { return Append(past); }));
  return writing.Commit();
}

Result<void> SqliteEngine::Append(const PastGeneration& past) {
  VANZET_TRY(auto writer, CommitWriter::Begin(*connection_, past.generation));
  for (const Number number : past.cut) VANZET_DO(writer.Cut(number));
  for (const auto& [number, content] : past.vdms) {
    std::optional<Vdm> copy;
    if (content) {
      VANZET_TRY(copy, content->Copy());
    }
    VANZET_DO(Change(number, copy, writer));
  }
  return {};
}

Result<std::optional<TextFile>> SqliteEngine::UnfinishedFile() {
  VANZET_TRY(const auto reading, BeginReading());
  std::optional<TextFile> file;
  if (!reading || reading->schema < kStoreSchema) return file;
  VANZET_DO(connection_->Run(kFile, {}, [&](const SqliteRow& row) -> Result<void> {
    file = TextFile{std::string(row.Bytes(0)), std::string(row.Bytes(2))};
    if (!row.IsNull(1)) file->former = static_cast<std::uint64_t>(row.Integer(1));
    return {};
  }));
  return file;
}

Result<void> SqliteEngine::FinishFile() {
  VANZET_TRY(auto writing, BeginWriting());
  VANZET_DO(connection_->Run(kForgetFile));
  return writing.Commit();
}

Result<bool> SqliteEngine::Connect(IfMissing ifMissing) {
  if (connection_ != nullptr && connection_->HasMoved()) connection_.reset();
  if (connection_ != nullptr) return true;
  std::error_code unknown;
  if (ifMissing == IfMissing::kFail && !std::filesystem::exists(file_, unknown)) return false;
  VANZET_TRY(const auto opened, SqliteConnection::Open(file_, ifMissing, options_));
  connection_ = opened;
  return true;
}

Result<std::optional<SqliteEngine::Reading>> SqliteEngine::BeginReading() {
  VANZET_TRY(const auto connected, Connect(IfMissing::kFail));
  if (!connected) return std::optional<Reading>();
  VANZET_TRY(auto transaction, SqliteTransaction::Begin(*connection_, Kind::kRead));
  VANZET_TRY(const auto schema, SchemaOf(*connection_));
  if (schema == 0) return std::optional<Reading>();
  return std::optional<Reading>(Reading{std::move(transaction), schema});
}

Result<SqliteTransaction> SqliteEngine::BeginWriting() {
  if (files::IsReadOnly(file_))
    return Fault{.text = "is read-only", .file = file_.string(), .kind = FaultKind::kSystem};
  VANZET_DO(Connect(IfMissing::kMake));
  VANZET_TRY(auto transaction, SqliteTransaction::Begin(*connection_, Kind::kWrite));
  VANZET_DO(BringToCurrentSchema(*connection_));
  return transaction;
}

Result<std::optional<Vdm>> SqliteEngine::Stored(Number number, std::int64_t schema) {
  const StoreQueries& queries = QueriesOf(schema);
  VANZET_TRY(const auto found, connection_->Integer(queries.exists, {Bound(number)}));
  if (found == 0) return std::optional<Vdm>();
  VANZET_TRY(const auto keys, KeysOf(number, schema));
  return std::optional<Vdm>(Vdm(keys, [connection = connection_, &queries, number](RecordKey key) {
    return LoadRecord(*connection, queries, number, key);
  }));
}

Result<RecordHeads> SqliteEngine::HeadsOf(Number number, std::int64_t schema) {
  VANZET_TRY(const auto keys, KeysOf(number, schema));
  RecordHeads heads;
  for (const RecordKey key : keys) {
    VANZET_TRY(auto head, LoadHead(*connection_, QueriesOf(schema), number, key));
    heads.push_back(std::move(head));
  }
  return heads;
}

Result<std::vector<RecordKey>> SqliteEngine::KeysOf(Number number, std::int64_t schema) {
  std::vector<RecordKey> keys;
  const auto& sql = QueriesOf(schema).places;
  VANZET_DO(connection_->Run(sql, {Bound(number)}, [&](const SqliteRow& row) -> Result<void> {
    if (row.Integer(0) != static_cast<std::int64_t>(keys.size())) {
      return connection_->DamageOf(NameOf(number) + " has no record " + std::to_string(keys.size()));
    }
    keys.push_back(RecordKey{row.Integer(1)});
    return {};
  }));
  return keys;
}

}  // namespace vanzet::vdm
