#include "vdm/generation_reader.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vanzet::vdm {
namespace {

/// The origin of a generation whose row is missing: earlier programs kept that of the last one alone.
Generation UnknownGeneration(std::int64_t number) {
  return {number, "?", "?", "?", "?", "?"};
}

Fault GapFault(const HistoryRows& rows, Number number, std::size_t record, std::int64_t generation) {
  return rows.FaultOf(NameOf(number) + " has no record " + std::to_string(record) + " in generation " +
                          std::to_string(generation),
                      FaultKind::kDamaged);
}

}  // namespace

/// A change of one VDM by one generation.
struct GenerationReader::Step {
  Number vdm{};
  bool isRemoval = false;
  bool isCut = false;  ///< the states before are no longer kept
};

/// The order of one VDM from generation to generation.
class GenerationReader::Timeline {
 public:
  static Result<std::shared_ptr<Timeline>> Read(std::shared_ptr<HistoryRows> rows, Number number) {
    auto timeline = std::make_shared<Timeline>(std::move(rows), number);
    VANZET_TRY(timeline->places_, timeline->rows_->Places(number));
    return timeline;
  }

  Timeline(std::shared_ptr<HistoryRows> rows, Number number) : rows_(std::move(rows)), number_(number) {}

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
    ExpectNew(keys);
    return keys;
  }

  /// A record, which is fetched once as long as the generations visited have it.
  Result<Record> Load(RecordKey key) {
    if (const auto known = records_.find(key); known != records_.end()) return known->second;
    VANZET_TRY(auto record, rows_->Load(number_, key));
    records_.emplace(key, record);
    return record;
  }

  bool isSound = true;  ///< no position without a record was found yet

 private:
  void ForgetAllBut(const std::vector<RecordKey>& keys) {
    std::erase_if(records_,
                  [&](const auto& each) { return std::ranges::find(keys, each.first) == keys.end(); });
  }

  void ExpectNew(const std::vector<RecordKey>& keys) {
    std::vector<RecordKey> unknown;
    std::ranges::copy_if(keys, std::back_inserter(unknown),
                         [&](RecordKey key) { return !records_.contains(key); });
    rows_->Expect(number_, unknown);
  }

  std::shared_ptr<HistoryRows> rows_;
  Number number_;
  std::vector<PlaceRow> places_;
  std::size_t next_ = 0;                   ///< the first place that was not reached yet
  std::map<std::int64_t, PlaceRow> held_;  ///< by position
  std::map<RecordKey, Record> records_;
};

Result<std::vector<VdmChange>> GenerationReader::ListChanges(std::optional<Number> only) {
  VANZET_TRY(const auto steps, StepsOf(only));
  VANZET_TRY(const auto generations, rows_->Generations());
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
  VANZET_TRY(const auto versions, rows_->Versions(only));
  std::map<Number, Vdm> contents;
  for (const VersionRow& version : versions) {
    if (version.last < generation || version.first > generation) continue;
    if (version.IsCut()) return CutFault(version, generation);
    VANZET_TRY(const auto keys, KeysAt(version.vdm, generation));
    rows_->Expect(version.vdm, keys);
    const Vdm stored(keys, [&](RecordKey key) { return rows_->Load(version.vdm, key); });
    VANZET_TRY(auto copy, stored.Copy());
    contents.emplace(version.vdm, std::move(copy));
  }
  return contents;
}

Result<void> GenerationReader::Visit(std::optional<Number> only, const GenerationVisitor& visitor) {
  VANZET_TRY(const auto steps, StepsOf(only));
  VANZET_TRY(const auto generations, rows_->Generations());
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
    VANZET_TRY(timeline, Timeline::Read(rows_, number));
  }
  std::optional<Fault> gap;
  const bool wasSound = timeline->isSound;
  const auto keys = timeline->KeysAt(generation, [&](std::size_t record) {
    if (!gap) gap = GapFault(*rows_, number, record, generation);
    timeline->isSound = false;
  });
  if (gap && !note_) return *gap;
  if (gap && wasSound) note_(*gap);
  return Vdm(keys, [timeline](RecordKey key) { return timeline->Load(key); });
}

Result<GenerationReader::Steps> GenerationReader::StepsOf(std::optional<Number> only) {
  VANZET_TRY(const auto versions, rows_->Versions(only));
  Steps steps;
  for (std::size_t i = 0; i < versions.size(); ++i) {
    const VersionRow& version = versions[i];
    const bool isAfterCut = i > 0 && versions[i - 1].IsCut() && versions[i - 1].IsFollowedBy(version);
    if (!version.IsCut()) steps[version.first].push_back({version.vdm, false, isAfterCut});
    const bool isFollowed = i + 1 < versions.size() && version.IsFollowedBy(versions[i + 1]);
    if (version.last != kNow && !isFollowed) {
      steps[version.last + 1].push_back({version.vdm, true, version.IsCut()});
    }
  }
  return steps;
}

Result<void> GenerationReader::CheckGeneration(std::int64_t generation) {
  VANZET_TRY(const auto last, rows_->LastGeneration());
  if (generation >= 1 && generation <= last) return {};
  return rows_->FaultOf(
      "generation " + std::to_string(generation) + " does not exist; the last one is " + std::to_string(last),
      FaultKind::kMissing);
}

Result<std::vector<RecordKey>> GenerationReader::KeysAt(Number number, std::int64_t generation) {
  VANZET_TRY(const auto places, rows_->PlacesAt(number, generation));
  std::vector<RecordKey> keys;
  for (const PlaceRow& place : places) {
    if (place.position != static_cast<std::int64_t>(keys.size())) {
      return GapFault(*rows_, number, keys.size(), generation);
    }
    keys.push_back(place.record);
  }
  return keys;
}

Fault GenerationReader::CutFault(const VersionRow& cut, std::int64_t generation) {
  return rows_->FaultOf("generation " + std::to_string(generation) + " of " + NameOf(cut.vdm) +
                            " is not kept any more; the oldest one is " + std::to_string(cut.last + 1),
                        FaultKind::kMissing);
}

}  // namespace vanzet::vdm
