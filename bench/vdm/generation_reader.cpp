#include "vdm/generation_reader.h"

#include <algorithm>
#include <utility>

#include "vdm/store_schema.h"
#include "vdm/stored_record.h"

namespace vanzet::vdm {
namespace {

constexpr std::string_view kGenerations =
    "SELECT number, time, user, host, program, occasion FROM generation";
constexpr std::string_view kLastGeneration = "SELECT coalesce(max(number), 0) FROM generation";
constexpr std::string_view kVersions =
    "SELECT number, first, last FROM vdm WHERE ?1 IS NULL OR number=?1 ORDER BY number, last";
constexpr std::string_view kPlaces =
    "SELECT first, last, position, record FROM place WHERE vdm=?1 ORDER BY first, last";
constexpr std::string_view kPlacesAt =
    "SELECT position, record FROM place WHERE vdm=?1 AND last>=?2 AND first<=?2 ORDER BY position";

std::int64_t Bound(Number number) {
  return static_cast<std::int64_t>(number);
}

Generation GenerationOf(const SqliteRow& row) {
  const auto text = [&](int column) { return std::string(row.Bytes(column)); };
  return {row.Integer(0), text(1), text(2), text(3), text(4), text(5)};
}

/// The origin of a generation whose row is missing: earlier programs kept that of the last one alone.
Generation UnknownGeneration(std::int64_t number) {
  return {number, "?", "?", "?", "?", "?"};
}

Fault GapFault(SqliteConnection& connection, Number number, std::size_t record, std::int64_t generation) {
  return connection.DamageOf(NameOf(number) + " has no record " + std::to_string(record) + " in generation " +
                             std::to_string(generation));
}

}  // namespace

/// A row of `vdm`.
struct GenerationReader::Version {
  Number vdm{};
  std::int64_t first = 0, last = 0;

  bool IsCut() const { return first == 0; }
  bool IsFollowedBy(const Version& next) const { return next.vdm == vdm && next.first == last + 1; }
};

/// A change of one VDM by one generation.
struct GenerationReader::Step {
  Number vdm{};
  bool isRemoval = false;
  bool isCut = false;  ///< the states before are no longer kept
};

/// The order of one VDM from generation to generation.
class GenerationReader::Timeline {
 public:
  static Result<std::shared_ptr<Timeline>> Read(std::shared_ptr<SqliteConnection> connection, Number number) {
    auto timeline = std::make_shared<Timeline>(std::move(connection), number);
    VANZET_DO(timeline->connection_->Run(kPlaces, {Bound(number)}, [&](const SqliteRow& row) -> Result<void> {
      timeline->places_.push_back(
          {row.Integer(0), row.Integer(1), row.Integer(2), RecordKey{row.Integer(3)}});
      return {};
    }));
    return timeline;
  }

  Timeline(std::shared_ptr<SqliteConnection> connection, Number number)
      : connection_(std::move(connection)), number_(number) {}

  /// The records of a generation; `note` is called for a position without one. Requires: the generation is
  /// later than that of the call before.
  std::vector<RecordKey> KeysAt(std::int64_t generation, const std::function<void(std::size_t)>& note) {
    for (; next_ < places_.size() && places_[next_].first <= generation; ++next_) {
      held_[places_[next_].position] = places_[next_];
    }
    std::erase_if(held_, [&](const auto& each) { return each.second.last < generation; });
    std::vector<RecordKey> keys;
    std::int64_t expected = 0;
    for (const auto& [position, place] : held_) {
      if (position != expected) note(static_cast<std::size_t>(expected));
      expected = position + 1;
      keys.push_back(place.record);
    }
    ForgetAllBut(keys);
    return keys;
  }

  /// A record, which is fetched once as long as the generations visited have it.
  Result<Record> Load(RecordKey key) {
    if (const auto known = records_.find(key); known != records_.end()) return known->second;
    VANZET_TRY(auto record, LoadRecord(*connection_, QueriesOf(kStoreSchema), number_, key));
    records_.emplace(key, record);
    return record;
  }

  bool isSound = true;  ///< no position without a record was found yet

 private:
  struct Place {
    std::int64_t first, last, position;
    RecordKey record;
  };

  void ForgetAllBut(const std::vector<RecordKey>& keys) {
    std::erase_if(records_,
                  [&](const auto& each) { return std::ranges::find(keys, each.first) == keys.end(); });
  }

  std::shared_ptr<SqliteConnection> connection_;
  Number number_;
  std::vector<Place> places_;
  std::size_t next_ = 0;                ///< the first place that was not reached yet
  std::map<std::int64_t, Place> held_;  ///< by position
  std::map<RecordKey, Record> records_;
};

Result<std::vector<VdmChange>> GenerationReader::ListChanges(std::optional<Number> only) {
  VANZET_TRY(const auto steps, StepsOf(only));
  VANZET_TRY(const auto generations, Generations());
  std::vector<VdmChange> changes;
  for (const auto& [number, all] : steps) {
    const auto known = generations.find(number);
    const Generation generation = known == generations.end() ? UnknownGeneration(number) : known->second;
    for (const Step& step : all) changes.push_back({generation, step.vdm, step.isRemoval});
  }
  return changes;
}

Result<std::map<Number, Vdm>> GenerationReader::ReadAt(std::int64_t generation, std::optional<Number> only) {
  VANZET_DO(CheckGeneration(generation));
  VANZET_TRY(const auto versions, VersionsOf(only));
  std::map<Number, Vdm> contents;
  for (const Version& version : versions) {
    if (version.last < generation || version.first > generation) continue;
    if (version.IsCut()) return CutFault(version, generation);
    VANZET_TRY(const auto keys, KeysAt(version.vdm, generation));
    const Vdm stored(keys, [&](RecordKey key) {
      return LoadRecord(*connection_, QueriesOf(kStoreSchema), version.vdm, key);
    });
    VANZET_TRY(auto copy, stored.Copy());
    contents.emplace(version.vdm, std::move(copy));
  }
  return contents;
}

Result<void> GenerationReader::Visit(std::optional<Number> only, const GenerationVisitor& visitor) {
  VANZET_TRY(const auto steps, StepsOf(only));
  VANZET_TRY(const auto generations, Generations());
  Timelines timelines;
  for (const auto& [number, all] : steps) {
    const auto known = generations.find(number);
    PastGeneration past;
    past.generation = known == generations.end() ? UnknownGeneration(number) : known->second;
    for (const Step& step : all) {
      if (step.isCut) past.cut.push_back(step.vdm);
      auto& content = past.vdms[step.vdm];
      if (step.isRemoval) continue;
      VANZET_TRY(content, ContentAt(step.vdm, number, timelines));
    }
    VANZET_DO(visitor(past));
  }
  return {};
}

Result<Vdm> GenerationReader::ContentAt(Number number, std::int64_t generation, Timelines& timelines) {
  auto& timeline = timelines[number];
  if (timeline == nullptr) {
    VANZET_TRY(timeline, Timeline::Read(connection_, number));
  }
  std::optional<Fault> gap;
  const bool wasSound = timeline->isSound;
  const auto keys = timeline->KeysAt(generation, [&](std::size_t record) {
    if (!gap) gap = GapFault(*connection_, number, record, generation);
    timeline->isSound = false;
  });
  if (gap && !note_) return *gap;
  if (gap && wasSound) note_(*gap);
  return Vdm(keys, [timeline](RecordKey key) { return timeline->Load(key); });
}

Result<std::vector<GenerationReader::Version>> GenerationReader::VersionsOf(std::optional<Number> only) {
  std::vector<Version> versions;
  const auto wanted =
      only ? SqliteConnection::Value(Bound(*only)) : SqliteConnection::Value(std::monostate());
  VANZET_DO(connection_->Run(kVersions, {wanted}, [&](const SqliteRow& row) -> Result<void> {
    const auto number = NumberFrom(row.Integer(0));
    if (!number) return connection_->DamageOf(number.fault().text);
    versions.push_back({*number, row.Integer(1), row.Integer(2)});
    return {};
  }));
  return versions;
}

Result<GenerationReader::Steps> GenerationReader::StepsOf(std::optional<Number> only) {
  VANZET_TRY(const auto versions, VersionsOf(only));
  Steps steps;
  for (std::size_t i = 0; i < versions.size(); ++i) {
    const Version& version = versions[i];
    const bool isAfterCut = i > 0 && versions[i - 1].IsCut() && versions[i - 1].IsFollowedBy(version);
    if (!version.IsCut()) steps[version.first].push_back({version.vdm, false, isAfterCut});
    const bool isFollowed = i + 1 < versions.size() && version.IsFollowedBy(versions[i + 1]);
    if (version.last != kNow && !isFollowed) {
      steps[version.last + 1].push_back({version.vdm, true, version.IsCut()});
    }
  }
  return steps;
}

Result<std::map<std::int64_t, Generation>> GenerationReader::Generations() {
  std::map<std::int64_t, Generation> generations;
  VANZET_DO(connection_->Run(kGenerations, {}, [&](const SqliteRow& row) -> Result<void> {
    generations.emplace(row.Integer(0), GenerationOf(row));
    return {};
  }));
  return generations;
}

Result<void> GenerationReader::CheckGeneration(std::int64_t generation) {
  VANZET_TRY(const auto last, connection_->Integer(kLastGeneration));
  if (generation >= 1 && generation <= last) return {};
  return connection_->FaultOf(
      "generation " + std::to_string(generation) + " does not exist; the last one is " + std::to_string(last),
      FaultKind::kMissing);
}

Result<std::vector<RecordKey>> GenerationReader::KeysAt(Number number, std::int64_t generation) {
  std::vector<RecordKey> keys;
  VANZET_DO(
      connection_->Run(kPlacesAt, {Bound(number), generation}, [&](const SqliteRow& row) -> Result<void> {
        if (row.Integer(0) != static_cast<std::int64_t>(keys.size())) {
          return GapFault(*connection_, number, keys.size(), generation);
        }
        keys.push_back(RecordKey{row.Integer(1)});
        return {};
      }));
  return keys;
}

Fault GenerationReader::CutFault(const Version& cut, std::int64_t generation) {
  return connection_->FaultOf("generation " + std::to_string(generation) + " of " + NameOf(cut.vdm) +
                                  " is not kept any more; the oldest one is " + std::to_string(cut.last + 1),
                              FaultKind::kMissing);
}

}  // namespace vanzet::vdm
