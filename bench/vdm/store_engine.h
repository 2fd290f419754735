#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "vdm/vdm.h"

namespace vanzet::vdm {

/// VDMs that get a new content; nothing in the place of the content: the VDM is removed.
using Changes = std::map<Number, std::optional<Vdm>>;

/// The heads of the records of a VDM, in their order.
using RecordHeads = std::vector<RecordHead>;

/// A text file of the project that changes together with VDMs.
struct TextFile {
  std::string name;  ///< in the project's folder
  std::string content;
  std::optional<std::uint64_t> former = {};  ///< the checksum of its content before; nothing: no file
};

/// The last step of a commit, taken when all is written and nothing is kept yet: its fault gives up the
/// commit. Commands print their result in it, so that a run that cannot say what it did has not done it.
using LastStep = std::function<Result<void>()>;

/// The generations of a VDM that stay, unless the project says otherwise.
inline constexpr std::int64_t kUsualKeep = 200;

/// The changes of one run to a store. The parts belong to the caller.
struct NewGeneration {
  const Changes& vdms;
  const TextFile* file;            ///< null: none
  const std::string& occasion;     ///< a word for the run: "define", "dialog"
  const LastStep& lastStep;        ///< may be empty
  std::int64_t keep = kUsualKeep;  ///< the generations of each VDM that stay; the last one always does
};

/// A commit of the project, and who made it.
struct Generation {
  std::int64_t number = 0;  ///< counts the commits of the project from 1
  std::string time;         ///< in UTC: "2026-11-22T09:00:00Z"
  std::string user, host, program;
  std::string occasion;

  bool operator==(const Generation&) const = default;
};

/// A VDM that a generation created, changed or removed.
struct VdmChange {
  Generation generation;
  Number vdm{};
  bool isRemoval = false;
};

/// A generation with the VDMs as it left them.
struct PastGeneration {
  Generation generation;
  Changes vdms;             ///< their records are in the store until they are read
  std::vector<Number> cut;  ///< the states of these VDMs before this generation are no longer kept
};
using GenerationVisitor = std::function<Result<void>(const PastGeneration&)>;

/// Passes generations to a visitor, by rising number; its fault, or that of the visitor, ends it.
using GenerationSource = std::function<Result<void>(const GenerationVisitor&)>;

/// Keeps closed VDMs, for this process and others. Who may write is the business of `StoreLocks`.
///
/// Shape      numbers, each with the last content written under it, and its contents of former generations as
///            far as they are kept; and the text file of a commit until `FinishFile`, so that a process that
///            dies before it wrote the file loses nothing
/// Owns       what it keeps; it must outlive the VDMs that it opened, which fetch their records from it
/// Atomicity  a generation comes wholly or not at all, even when the process or the machine dies; a read sees
///            one state, never parts of two
/// Errors     a fault that names the store; the content of the store is then unchanged. The engine waits for
///            another process that is writing, and retries nothing else
class StoreEngine {
 public:
  StoreEngine() = default;
  virtual ~StoreEngine() = default;
  StoreEngine(const StoreEngine&) = delete;
  StoreEngine& operator=(const StoreEngine&) = delete;

  /// The place of the store, as its faults name it.
  virtual std::string Name() const = 0;

  /// All numbers, in ascending order.
  virtual Result<std::vector<Number>> Numbers() = 0;

  virtual Result<bool> Exists(Number number) = 0;

  /// The VDM, its records still in the store. Nothing when it does not exist.
  /// Requires: nobody else writes or removes this number as long as the VDM is used.
  virtual Result<std::optional<Vdm>> Open(Number number) = 0;

  /// The VDMs of these numbers that exist, of one state, wholly in memory and independent of any store.
  virtual Result<std::map<Number, Vdm>> Read(const std::vector<Number>& numbers) = 0;

  /// The heads of their records, of one state. A long record is not verified.
  virtual Result<std::map<Number, RecordHeads>> ReadHeads(const std::vector<Number>& numbers) = 0;

  /// Makes all the changes in one transaction: the next generation. Records that are as before are not
  /// written again. Generations that need not be kept are forgotten, now or by one of the next calls.
  /// Afterwards the contents no longer know what the store keeps: do not write them a second time. Fails for
  /// a VDM that was opened when the records it was opened from no longer exist. Removing a VDM that does not
  /// exist does nothing.
  virtual Result<void> Apply(const NewGeneration& next) = 0;

  /// The changes that are kept, of all VDMs or one: by rising generation, and in one by rising number.
  virtual Result<std::vector<VdmChange>> ListChanges(std::optional<Number> only) = 0;

  /// The VDMs, or the one, as they were after a generation; wholly in memory and independent of any store.
  /// Fails with `kMissing` for a generation that never was, and for a state that is not kept any more.
  virtual Result<std::map<Number, Vdm>> ReadAt(std::int64_t generation, std::optional<Number> only) = 0;

  /// Visits the kept generations of all VDMs or one, by rising number, all of one state of the store; a fault
  /// of the visitor ends it. The visitor may read the VDMs until it returns.
  virtual Result<void> Visit(std::optional<Number> only, const GenerationVisitor& visitor) = 0;

  /// Takes over generations that were made elsewhere, with their numbers, in one transaction. Fails when this
  /// store is not empty. Requires: the source does not read this store.
  virtual Result<void> Fill(const GenerationSource& source) = 0;

  /// The text file of a commit after which nobody called `FinishFile`.
  virtual Result<std::optional<TextFile>> UnfinishedFile() = 0;

  /// Forgets the text file of the last commit: it is in its place.
  virtual Result<void> FinishFile() = 0;
};

}  // namespace vanzet::vdm
