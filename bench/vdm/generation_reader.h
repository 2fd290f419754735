#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "vdm/history_rows.h"

namespace vanzet::vdm {

/// Reads the generations that an engine keeps.
///
/// Errors    `kDamaged` for orders with gaps; with `NoteTo` these are noted, and the rest is passed on
/// Source    docs/formats/store.md
class GenerationReader {
 public:
  explicit GenerationReader(std::shared_ptr<HistoryRows> rows) : rows_(std::move(rows)) {}

  /// From now on the first gap in the orders of each VDM is passed to `note`, and `Visit` goes on.
  void NoteTo(std::function<void(const Fault&)> note) { note_ = std::move(note); }

  Result<std::vector<VdmChange>> ListChanges(std::optional<Number> only);
  Result<std::map<Number, Vdm>> ReadAt(std::int64_t generation, std::optional<Number> only);
  Result<void> Visit(std::optional<Number> only, const GenerationVisitor& visitor);

 private:
  struct Step;
  using Steps = std::map<std::int64_t, std::vector<Step>>;  ///< by generation
  class Timeline;
  using Timelines = std::map<Number, std::shared_ptr<Timeline>>;

  Result<Steps> StepsOf(std::optional<Number> only);
  Result<Vdm> ContentAt(Number number, std::int64_t generation, Timelines& timelines);
  Result<void> CheckGeneration(std::int64_t generation);
  Result<std::vector<RecordKey>> KeysAt(Number number, std::int64_t generation);
  Fault CutFault(const VersionRow& cut, std::int64_t generation);

  std::shared_ptr<HistoryRows> rows_;
  std::function<void(const Fault&)> note_;
};

}  // namespace vanzet::vdm
