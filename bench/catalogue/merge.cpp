#include "catalogue/merge.h"

#include <algorithm>

#include "base/quote.h"
#include "catalogue/comparison.h"
#include "catalogue/kinds.h"
#include "catalogue/rules.h"

namespace vanzet::catalogue {
namespace {

struct Row {
  Outcome outcome;
  const char* word;
};
constexpr Row kWords[] = {
    {Outcome::kAdded, "added"},       {Outcome::kChanged, "changed"}, {Outcome::kRemoved, "removed"},
    {Outcome::kSame, "same"},         {Outcome::kKept, "kept"},       {Outcome::kRefused, "refused"},
    {Outcome::kConflict, "conflict"},
};
constexpr Outcome kOutcomes[] = {Outcome::kAdded, Outcome::kChanged, Outcome::kRemoved, Outcome::kSame,
                                 Outcome::kKept,  Outcome::kRefused, Outcome::kConflict};

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : "; ") + text;
  return joined;
}

/// True when both are missing or have the same values.
bool AreSame(const Entry* a, const Entry* b) {
  if (a == nullptr || b == nullptr) return a == b;
  return a->params == b->params && a->hasValues == b->hasValues;
}

class Merger {
 public:
  Merger(Shop& mine, const Shop& other, const Shop* base, Prefer prefer, LengthUnit unit)
      : mine_(mine), other_(other), base_(base), prefer_(prefer), unit_(unit) {}

  Result<std::vector<Merged>> Merge() {
    for (const std::string& name : other_.catalogue.Names()) {
      VANZET_TRY(auto merged, OneOfOther(name));
      merged_.push_back(std::move(merged));
    }
    if (base_ == nullptr) return std::move(merged_);
    for (const std::string& name : base_->catalogue.Names()) {
      if (other_.catalogue.Find(name) == nullptr) RemovedByOther(name);
    }
    return std::move(merged_);
  }

 private:
  const Entry* InBase(const std::string& name) const {
    return base_ == nullptr ? nullptr : base_->catalogue.Find(name);
  }

  Result<Merged> OneOfOther(const std::string& name) {
    const Entry* const mine = mine_.catalogue.Find(name);
    const Entry& other = *other_.catalogue.Find(name);
    const Entry* const base = InBase(name);
    if (AreSame(mine, &other)) return Same(name);
    if (AreSame(mine, base)) return Take(other, mine);
    if (base_ != nullptr && AreSame(&other, base)) return Merged{name, Outcome::kKept, ""};
    if (prefer_ == Prefer::kOther) return Take(other, mine);
    if (prefer_ == Prefer::kMine) return Merged{name, Outcome::kKept, ""};
    return Merged{name, Outcome::kConflict, ConflictOf(mine, other)};
  }

  std::string ConflictOf(const Entry* mine, const Entry& other) const {
    if (mine == nullptr) return "removed here, changed there";
    return Joined(LetterChanges(*mine, other));
  }

  std::vector<std::string> LetterChanges(const Entry& before, const Entry& now) const {
    return ChangesOf(ShownIn(before.params, unit_), ShownIn(now.params, unit_));
  }

  std::vector<std::string> FigureChanges(const MakerJson* before, const MakerJson* now) const {
    const auto shown = [&](const MakerJson* figures) {
      return figures == nullptr ? MakerJson::object() : ShownIn(*figures, unit_);
    };
    const MakerJson former = shown(before), later = shown(now);
    return FigureChangesOf(&former, &later);
  }

  Merged Same(const std::string& name) {
    const MakerJson* const figures = other_.maker.Find(name);
    if (figures == nullptr || mine_.maker.Find(name) == nullptr) {
      if (figures == nullptr) return {name, Outcome::kSame, ""};
      mine_.maker.Put(name, figures);
      return {name, Outcome::kChanged, Joined(FigureChanges(nullptr, figures))};
    }
    const auto differences = FigureChanges(mine_.maker.Find(name), figures);
    return {name, Outcome::kSame,
            differences.empty() ? "" : "other maker data there: " + Joined(differences)};
  }

  Result<Merged> Take(const Entry& other, const Entry* mine) {
    std::string refusal = NameRefusal(other.name);
    if (refusal.empty()) refusal = ValuesRefusal(other.params, unit_);
    if (!refusal.empty()) return Merged{other.name, Outcome::kRefused, refusal};
    const Merged merged = mine == nullptr
                              ? Merged{other.name, Outcome::kAdded, ""}
                              : Merged{other.name, Outcome::kChanged, Joined(LetterChanges(*mine, other))};
    VANZET_DO(mine_.catalogue.Put(other.name, other.params));
    if (const MakerJson* const figures = other_.maker.Find(other.name)) mine_.maker.Put(other.name, figures);
    return merged;
  }

  void RemovedByOther(const std::string& name) {
    const Entry* const mine = mine_.catalogue.Find(name);
    if (mine == nullptr) return;
    const bool isUnchanged = AreSame(mine, InBase(name));
    if (!isUnchanged && prefer_ == Prefer::kNeither) {
      merged_.push_back({name, Outcome::kConflict, "changed here, removed there"});
    } else if (!isUnchanged && prefer_ == Prefer::kMine) {
      merged_.push_back({name, Outcome::kKept, ""});
    } else {
      mine_.catalogue.Remove(name);
      mine_.maker.Put(name, nullptr);
      merged_.push_back({name, Outcome::kRemoved, ""});
    }
  }

  Shop& mine_;
  const Shop& other_;
  const Shop* base_;
  Prefer prefer_;
  LengthUnit unit_;
  std::vector<Merged> merged_;
};

}  // namespace

const char* WordOf(Outcome outcome) {
  return std::ranges::find(kWords, outcome, &Row::outcome)->word;
}

std::span<const Outcome> Outcomes() {
  return kOutcomes;
}

Result<std::vector<Merged>> Merge(Shop& mine, const Shop& other, const Shop* base, Prefer prefer,
                                  LengthUnit unit) {
  return Merger(mine, other, base, prefer, unit).Merge();
}

std::size_t CountOf(const std::vector<Merged>& all, Outcome outcome) {
  return static_cast<std::size_t>(std::ranges::count(all, outcome, &Merged::outcome));
}

}  // namespace vanzet::catalogue
