#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "vdm/store_engine.h"

namespace vanzet::vdm {

/// The last generation of the rows of `vdm` and `place` that hold now.
inline constexpr std::int64_t kNow = INT64_MAX;

/// A row of `vdm`: a state of a VDM, after the generations from `first` to `last`.
struct VersionRow {
  Number vdm{};
  std::int64_t first = 0, last = 0;

  /// True when it is in the place of states that are no longer kept.
  bool IsCut() const { return first == 0; }
  bool IsFollowedBy(const VersionRow& next) const { return next.vdm == vdm && next.first == last + 1; }
};

/// A row of `place`.
struct PlaceRow {
  std::int64_t first, last, position;
  RecordKey record;
};

/// The rows that an engine keeps of its generations, all of one state: docs/formats/store.md.
class HistoryRows {
 public:
  HistoryRows() = default;
  virtual ~HistoryRows() = default;
  HistoryRows(const HistoryRows&) = delete;
  HistoryRows& operator=(const HistoryRows&) = delete;

  /// By number and generation.
  virtual Result<std::vector<VersionRow>> Versions(std::optional<Number> only) = 0;

  virtual Result<std::map<std::int64_t, Generation>> Generations() = 0;
  virtual Result<std::int64_t> LastGeneration() = 0;

  /// All of a VDM, by their first and last generation.
  virtual Result<std::vector<PlaceRow>> Places(Number number) = 0;

  /// Those that hold after a generation, by position.
  virtual Result<std::vector<PlaceRow>> PlacesAt(Number number, std::int64_t generation) = 0;

  /// Says which records of a VDM are probably loaded next, in their order.
  virtual void Expect(Number number, const std::vector<RecordKey>& keys) = 0;

  virtual Result<Record> Load(Number number, RecordKey key) = 0;

  /// A fault that names the store.
  virtual Fault FaultOf(std::string text, FaultKind kind) const = 0;
};

}  // namespace vanzet::vdm
