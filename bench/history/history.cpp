#include "history/history.h"

#include <algorithm>
#include <set>

#include "history/item_changes.h"

namespace vanzet::history {
namespace {

using vdm::Number;
using State = std::map<Number, vdm::Vdm>;

std::optional<vdm::Vdm> ContentIn(const State& state, Number number) {
  const auto content = state.find(number);
  return content == state.end() ? std::nullopt : std::optional(content->second);
}

Result<bool> AreSame(const std::optional<vdm::Vdm>& a, const std::optional<vdm::Vdm>& b) {
  if (!a || !b) return !a && !b;
  VANZET_TRY(const std::size_t changed, CountChangedRecords(*a, *b));
  return changed == 0;
}

Result<std::vector<Difference>> Differences(const State& before, const State& now) {
  std::set<Number> numbers;
  for (const State* const state : {&before, &now}) {
    for (const auto& [number, content] : *state) numbers.insert(number);
  }
  std::vector<Difference> differences;
  for (const Number number : numbers) {
    Difference difference{number, ContentIn(before, number), ContentIn(now, number)};
    VANZET_TRY(const bool areSame, AreSame(difference.before, difference.now));
    if (!areSame) differences.push_back(std::move(difference));
  }
  return differences;
}

using Change = std::pair<std::int64_t, Number>;  // a generation, and a VDM that it changed

/// The contents to be read for a list.
struct Plan {
  std::set<Change> listed;
  std::set<Change> passedOver;  ///< neither listed nor the state before one that is
};

/// Requires: `kept` is by rising generation.
Plan PlanFor(const std::vector<vdm::VdmChange>& kept, std::size_t newest) {
  Plan plan;
  std::set<std::int64_t> generations;
  std::map<Number, bool> isNextListed;
  for (auto change = kept.rbegin(); change != kept.rend(); ++change) {
    const std::int64_t number = change->generation.number;
    if (generations.size() < newest) generations.insert(number);
    const bool isListed = generations.contains(number);
    if (isListed) plan.listed.emplace(number, change->vdm);
    if (!isListed && !isNextListed[change->vdm]) plan.passedOver.emplace(number, change->vdm);
    isNextListed[change->vdm] = isListed;
  }
  return plan;
}

/// The words of the changes of one VDM after the other, each content read once.
class Narrator {
 public:
  /// The changes since the content before. Requires: contents of a VDM come by rising generation.
  Result<std::vector<std::string>> Next(Number number, const std::optional<vdm::Vdm>& content) {
    Former& former = former_[number];
    if (former.content && content && HaveSameRecords(*former.content, *content)) {
      return std::vector<std::string>();
    }
    VANZET_TRY(auto reading, Reading::Of(content));
    auto words = ChangesInWords(former.reading, reading, Detail::kBrief);
    former = {content, std::move(reading)};
    return words;
  }

 private:
  struct Former {
    std::optional<vdm::Vdm> content;
    Reading reading;
  };
  std::map<Number, Former> former_;
};

}  // namespace

Result<std::vector<Entry>> History::List(std::optional<Number> only, std::size_t newest) const {
  VANZET_TRY(const auto kept, store_.ListChanges(only));
  const Plan plan = PlanFor(kept, newest);
  std::vector<Entry> entries;
  Narrator narrator;
  VANZET_DO(store_.Visit(only, [&](const vdm::PastGeneration& past) -> Result<void> {
    for (const auto& [number, content] : past.vdms) {
      const Change change{past.generation.number, number};
      if (plan.passedOver.contains(change)) continue;
      VANZET_TRY(auto words, narrator.Next(number, content));
      if (!plan.listed.contains(change)) continue;
      if (std::ranges::find(past.cut, number) != past.cut.end()) words = {"older states are no longer kept"};
      entries.push_back({{past.generation, number, !content}, std::move(words)});
    }
    return {};
  }));
  std::ranges::stable_sort(entries, std::greater(),
                           [](const Entry& entry) { return entry.change.generation.number; });
  return entries;
}

Result<std::int64_t> History::Last(std::optional<Number> only) const {
  VANZET_TRY(const auto changes, store_.ListChanges(only));
  return changes.empty() ? 0 : changes.back().generation.number;
}

Result<std::vector<Difference>> History::Compare(std::int64_t before, std::int64_t now,
                                                 std::optional<Number> only) const {
  VANZET_TRY(const auto from, StateAt(before, only));
  VANZET_TRY(const auto to, StateAt(now, only));
  return Differences(from, to);
}

Result<std::vector<Difference>> History::CompareNow(std::int64_t generation,
                                                    std::optional<Number> only) const {
  VANZET_TRY(const auto numbers, store_.Numbers());
  VANZET_TRY(const auto present, store_.Snapshots(only ? std::vector{*only} : numbers));
  VANZET_TRY(const auto past, StateAt(generation, only));
  return Differences(present, past);
}

Result<std::vector<Difference>> History::Restore(std::int64_t generation, std::optional<Number> only) {
  VANZET_TRY(auto differences, CompareNow(generation, only));
  for (const Difference& each : differences) {
    const auto number = static_cast<std::int64_t>(each.vdm);
    VANZET_DO(each.now ? store_.Replace(number, *each.now) : store_.Delete(number));
  }
  return differences;
}

}  // namespace vanzet::history
