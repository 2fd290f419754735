#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "vdm/sqlite_connection.h"
#include "vdm/store_engine.h"

namespace vanzet::vdm {

/// Reads the generations that a file of the current schema keeps.
///
/// Errors    `kDamaged` for orders with gaps; with `NoteTo` these are noted, and the rest is passed on
/// Requires  a transaction, as long as it lives
/// Source    docs/formats/store.md
class GenerationReader {
 public:
  explicit GenerationReader(std::shared_ptr<SqliteConnection> connection)
      : connection_(std::move(connection)) {}

  /// From now on the first gap in the orders of each VDM is passed to `note`, and `Visit` goes on.
  void NoteTo(std::function<void(const Fault&)> note) { note_ = std::move(note); }

  Result<std::vector<VdmChange>> ListChanges(std::optional<Number> only);
  Result<std::map<Number, Vdm>> ReadAt(std::int64_t generation, std::optional<Number> only);
  Result<void> Visit(std::optional<Number> only, const GenerationVisitor& visitor);

 private:
  struct Version;
  struct Step;
  using Steps = std::map<std::int64_t, std::vector<Step>>;  ///< by generation
  class Timeline;
  using Timelines = std::map<Number, std::shared_ptr<Timeline>>;

  Result<std::vector<Version>> VersionsOf(std::optional<Number> only);
  Result<Steps> StepsOf(std::optional<Number> only);
  Result<std::map<std::int64_t, Generation>> Generations();
  Result<Vdm> ContentAt(Number number, std::int64_t generation, Timelines& timelines);
  Result<void> CheckGeneration(std::int64_t generation);
  Result<std::vector<RecordKey>> KeysAt(Number number, std::int64_t generation);
  Fault CutFault(const Version& cut, std::int64_t generation);

  std::shared_ptr<SqliteConnection> connection_;
  std::function<void(const Fault&)> note_;
};

}  // namespace vanzet::vdm
