#pragma once

#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "history/words.h"
#include "vdm/store.h"

namespace vanzet::history {

/// A change of one VDM by one generation.
struct Entry {
  vdm::VdmChange change;
  std::vector<std::string> words;  ///< what it changed; empty: nothing
};

/// A VDM that differs between two states.
struct Difference {
  vdm::Number vdm{};
  std::optional<vdm::Vdm> before, now;  ///< nothing: it does not exist
};

/// The generations of a project, and the way back to one.
///
/// Story    `List` for a table; `StateAt` for the records of all VDMs at a row of it, of which
///          `project::ReadDefinition` reads a definition; `Restore` and `store.Commit("restore")` to go back.
///          Undo is the restoring of the generation before the last that changed something, redo that of the
///          one undone
/// Shape    generations count the commits of the project from 1; one number for all VDMs of a run
/// Owns     nothing; the store has to outlive it
/// Errors   faults of the store: `kMissing` for a generation that never was or is not kept any more,
///          `kDamaged`
/// Threads  one, that of the store
class History {
 public:
  static constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();

  explicit History(vdm::VdmStore& store) : store_(store) {}

  /// The changes that are kept, of all VDMs or one, the newest generation first, with brief words; of the
  /// `newest` generations alone. Fails when a record that is compared cannot be read.
  Result<std::vector<Entry>> List(std::optional<vdm::Number> only = {}, std::size_t newest = kAll) const;

  /// The number of the last generation, of all VDMs or one; 0 without any.
  Result<std::int64_t> Last(std::optional<vdm::Number> only = {}) const;

  /// The VDMs, or the one, as they were after a generation.
  Result<std::map<vdm::Number, vdm::Vdm>> StateAt(std::int64_t generation,
                                                  std::optional<vdm::Number> only = {}) const {
    return store_.ReadAt(generation, only);
  }

  /// The VDMs that differ from the state after one generation to that after another.
  Result<std::vector<Difference>> Compare(std::int64_t before, std::int64_t now,
                                          std::optional<vdm::Number> only = {}) const;

  /// The VDMs that differ from the state now, as the store shows it, to that after a generation.
  Result<std::vector<Difference>> CompareNow(std::int64_t generation,
                                             std::optional<vdm::Number> only = {}) const;

  /// Makes the state after a generation that of the store, and returns what that changes. Others see it when
  /// the store commits: a new generation, so nothing is lost. Fails with `kBusy` when a VDM of them is open.
  Result<std::vector<Difference>> Restore(std::int64_t generation, std::optional<vdm::Number> only = {});

 private:
  vdm::VdmStore& store_;
};

}  // namespace vanzet::history
