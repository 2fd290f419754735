#include "vdm/embedded/store_care.h"

#include <map>
#include <optional>
#include <set>
#include <system_error>
#include <utility>

#include "base/files/system_fault.h"
#include "vdm/embedded/engine.h"
#include "vdm/embedded/history.h"
#include "vdm/embedded/schema.h"
#include "vdm/embedded/stored_record.h"
#include "vdm/generation_reader.h"

namespace vanzet::vdm {
namespace {

namespace fs = std::filesystem;

/// The parts of a store that belong to nothing.
struct Orphans {
  std::int64_t schema;     ///< the first one that has them
  std::string_view count;  ///< the statement that counts them
  std::string_view text;   ///< after the count
};

constexpr Orphans kOrphans[] = {
    {1, "SELECT count(*) FROM record WHERE key NOT IN (SELECT record FROM place)",
     " records belong to no VDM"},
    {1, "SELECT count(*) FROM place WHERE vdm NOT IN (SELECT number FROM vdm)", " places belong to no VDM"},
    {2, "SELECT count(*) - count(DISTINCT record) FROM place WHERE last=9223372036854775807",
     " records are at two places"},
    {2, "SELECT count(*) FROM place WHERE first>last", " places end before they begin"},
    {2, "SELECT count(*) FROM vdm WHERE first>last", " states of VDMs end before they begin"},
};

/// The content of a store as far as it can be read, and the faults of the rest.
class Reader {
 public:
  /// The faults of opening: those of a file that is not a database are findings, too. What the system kept
  /// from being read is a fault, so that nobody takes it for damaged.
  Result<void> Read(const fs::path& file) {
    std::error_code unknown;
    if (!fs::exists(file, unknown)) return {};
    const auto done = OpenAndReadAll(file);
    if (!done && done.fault().kind != FaultKind::kDamaged) return done;
    Note(done);
    if (unreadable_) return *unreadable_;
    return {};
  }

  /// Passes on the generations, with the records that can be read. Requires: `Read` found a connection.
  Result<void> Visit(const GenerationVisitor& visitor) {
    GenerationReader reader(std::make_shared<SqliteHistory>(connection_));
    reader.NoteTo([this](const Fault& gap) { Note(gap); });
    return reader.Visit({}, [&](const PastGeneration& past) {
      PastGeneration readable = past;
      for (auto& [number, vdm] : readable.vdms) {
        if (vdm) vdm = Readable(*vdm);
      }
      return visitor(readable);
    });
  }

  bool HasHistory() const { return schema_ == kStoreSchema; }

  Changes content;
  std::size_t records = 0;
  StoreFindings findings;

 private:
  Result<void> OpenAndReadAll(const fs::path& file) {
    VANZET_TRY(connection_, SqliteConnection::Open(file, SqliteConnection::IfMissing::kFail, {}));
    VANZET_TRY(auto reading, SqliteTransaction::Begin(*connection_, SqliteTransaction::Kind::kRead));
    reading_.emplace(std::move(reading));
    VANZET_TRY(schema_, SchemaOf(*connection_));
    if (schema_ == 0) return {};
    CheckStructure();
    const StoreQueries& queries = QueriesOf(schema_);
    for (const std::int64_t number : NumbersIn(queries)) ReadVdm(number, queries);
    if (HasHistory()) ReadHistory();
    for (const Orphans& orphans : kOrphans) {
      if (orphans.schema <= schema_) CountOrphans(orphans);
    }
    return {};
  }

  void ReadHistory() {
    std::map<Number, std::size_t> sizes;  // after the last generation
    Note(Visit([&](const PastGeneration& past) -> Result<void> {
      for (const auto& [number, vdm] : past.vdms) {
        sizes.erase(number);
        if (vdm) sizes.emplace(number, vdm->Size());
      }
      return {};
    }));
    std::map<Number, std::size_t> current;
    for (const auto& [number, vdm] : content) current.emplace(number, vdm->Size());
    if (sizes != current) findings.emplace_back("the generations do not lead to the current content");
  }

  /// The records that can be read.
  Vdm Readable(const Vdm& stored) {
    Vdm readable;
    for (std::size_t i = 0; i < stored.Size(); ++i) {
      const auto record = stored.Read(i);
      if (!record) {
        Note(record.fault());
        continue;
      }
      readable.Insert(readable.Size(), **record);
    }
    return readable;
  }

  void Note(const Fault& fault) {
    const bool isOfSystem = fault.kind == FaultKind::kSystem || fault.kind == FaultKind::kBusy;
    if (isOfSystem && !unreadable_) unreadable_ = fault;
    // The history has most records in several generations.
    if (noted_.insert(fault.text).second) findings.push_back(fault.text);
  }
  void Note(const Result<void>& done) {
    if (!done) Note(done.fault());
  }

  /// SQLite has a finding for a page that the system could not read.
  void CheckStructure() {
    const auto found = StructureFindings();
    if (const auto unread = connection_->ReadFault()) return Note(*unread);
    if (!found) return Note(found.fault());
    findings.insert(findings.end(), found->begin(), found->end());
  }

  Result<StoreFindings> StructureFindings() {
    StoreFindings found;
    VANZET_DO(connection_->Run("PRAGMA integrity_check(20)", {}, [&](const SqliteRow& row) -> Result<void> {
      if (row.Bytes(0) != "ok") found.emplace_back(row.Bytes(0));
      return {};
    }));
    return found;
  }

  std::vector<std::int64_t> NumbersIn(const StoreQueries& queries) {
    std::vector<std::int64_t> numbers;
    Note(connection_->Run(queries.numbers, {}, [&](const SqliteRow& row) -> Result<void> {
      numbers.push_back(row.Integer(0));
      return {};
    }));
    return numbers;
  }

  void ReadVdm(std::int64_t wanted, const StoreQueries& queries) {
    const auto number = NumberFrom(wanted);
    if (!number) return Note(number.fault());
    Vdm vdm;
    for (const RecordKey key : PlacesOf(*number, queries)) {
      auto record = LoadRecord(*connection_, queries, *number, key);
      if (!record) {
        Note(record.fault());
        continue;
      }
      vdm.Insert(vdm.Size(), std::move(*record));
    }
    records += vdm.Size();
    content.emplace(*number, std::move(vdm));
  }

  std::vector<RecordKey> PlacesOf(Number number, const StoreQueries& queries) {
    std::vector<RecordKey> keys;
    std::int64_t expected = 0;
    Note(connection_->Run(
        queries.places, {static_cast<std::int64_t>(number)}, [&](const SqliteRow& row) -> Result<void> {
          if (row.Integer(0) != expected) {
            findings.push_back(NameOf(number) + " has no record " + std::to_string(expected));
          }
          expected = row.Integer(0) + 1;
          keys.push_back(RecordKey{row.Integer(1)});
          return {};
        }));
    return keys;
  }

  void CountOrphans(const Orphans& orphans) {
    const auto count = connection_->Integer(orphans.count);
    if (!count) return Note(count.fault());
    if (*count > 0) findings.push_back(std::to_string(*count) + std::string(orphans.text));
  }

  std::shared_ptr<SqliteConnection> connection_;
  std::optional<SqliteTransaction> reading_;  ///< what is visited later is what was read
  std::int64_t schema_ = 0;
  std::set<std::string> noted_;
  std::optional<Fault> unreadable_;  ///< the first fault of the system
};

std::vector<Number> NumbersOf(const Changes& content) {
  std::vector<Number> numbers;
  for (const auto& [number, vdm] : content) numbers.push_back(number);
  return numbers;
}

/// Whether the name is a second one of the file: a repair that was killed has given it.
bool IsNameOf(const fs::path& name, const fs::path& file) {
  std::error_code unknown;
  return !fs::is_symlink(name, unknown) && fs::equivalent(name, file, unknown);
}

/// A name beside the file for what is damaged, which no other file has.
fs::path AsideOf(const fs::path& file) {
  const std::string first = file.string() + ".damaged";
  std::error_code unknown;
  for (int number = 0;; ++number) {
    const std::string name = number == 0 ? first : first + "-" + std::to_string(number);
    if (!fs::exists(fs::symlink_status(name, unknown)) || IsNameOf(name, file)) return name;
  }
}

/// Writes a store with all generations, as far as they can be read.
Result<void> WriteGenerations(const fs::path& file, Reader& reader) {
  SqliteEngine engine(file);
  VANZET_DO(engine.Fill([&](const GenerationVisitor& visitor) { return reader.Visit(visitor); }));
  VANZET_TRY(const auto kept, engine.Read(NumbersOf(reader.content)));
  std::size_t records = 0;
  for (const auto& [number, content] : kept) records += content.Size();
  if (kept.size() == reader.content.size() && records == reader.records) return {};
  return Fault{.text = "the former generations", .kind = FaultKind::kDamaged};
}

/// Writes a store with the last generation alone.
Result<void> WriteContent(const fs::path& file, const Changes& content) {
  SqliteEngine engine(file);
  const std::string occasion = "repair";
  return engine.Apply({content, nullptr, occasion, {}});
}

/// Where the generations cannot be told from each other, the last one is what counts.
Result<void> WriteStore(const fs::path& file, Reader& reader) {
  if (!reader.HasHistory()) return WriteContent(file, reader.content);
  const auto written = WriteGenerations(file, reader);
  // A file that has just been written is not damaged: the system has not read it.
  const bool isOfSource =
      !written && written.fault().kind == FaultKind::kDamaged && written.fault().file != file.string();
  if (!isOfSource) return written;
  reader.findings.push_back("the former generations");
  std::error_code ignored;
  fs::remove(file, ignored);
  return WriteContent(file, reader.content);
}

/// Gives the file a second name, so that it has one at every moment, and puts the new one in its place, or
/// nothing: the new one does not exist where nothing could be kept.
Result<void> Exchange(const fs::path& file, const fs::path& aside, const fs::path& repaired) {
  std::error_code error;
  if (!IsNameOf(aside, file)) {
    fs::create_hard_link(file, aside, error);
    if (error) fs::copy_file(file, aside, error);
    if (error) return files::SystemFault("cannot be written", error, aside);
  }
  const bool isKept = fs::exists(repaired, error);
  if (!error && isKept) fs::rename(repaired, file, error);
  if (!error && !isKept) fs::remove(file, error);
  if (!error) return {};
  std::error_code ignored;
  fs::remove(aside, ignored);
  return files::SystemFault("cannot be written", error, file);
}

}  // namespace

Result<StoreFindings> CheckStore(const fs::path& file) {
  Reader reader;
  VANZET_DO(reader.Read(file));
  return reader.findings;
}

Result<StoreRepair> RepairStore(const fs::path& file, const fs::path& scratch) {
  Reader reader;
  VANZET_DO(reader.Read(file));
  if (reader.findings.empty()) return StoreRepair();
  const fs::path repaired = scratch / SqliteEngine::kStoreFile;
  VANZET_DO(WriteStore(repaired, reader));
  const StoreRepair repair{AsideOf(file), reader.content.size(), reader.records, reader.findings};
  VANZET_DO(Exchange(file, repair.aside, repaired));
  return repair;
}

Result<void> CopyStore(const fs::path& file, const fs::path& copy) {
  std::error_code unknown;
  if (!fs::exists(file, unknown)) {
    return Fault{.text = "does not exist: the project has no store yet",
                 .file = file.string(),
                 .kind = FaultKind::kMissing};
  }
  VANZET_TRY(const auto connection, SqliteConnection::Open(file, SqliteConnection::IfMissing::kFail, {}));
  VANZET_DO(SchemaOf(*connection));
  const std::string name = copy.string();
  return connection->Run("VACUUM INTO ?1", {SqliteConnection::Text{name}});
}

}  // namespace vanzet::vdm
