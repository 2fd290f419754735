#include "history/item_changes.h"

#include <algorithm>
#include <functional>

namespace vanzet::history {
namespace {

/// Elements of two sequences that belong together, from `before` and `now` on: the same ones, or ones that
/// take each other's place. A side that is past its end of the stretch has none.
struct Stretch {
  std::size_t before, beforeEnd;
  std::size_t now, nowEnd;
};

/// More comparisons than this are not worth a shorter list: what is between is then compared in its order.
constexpr std::size_t kMostComparisons = 4'000'000;

using IsSame = std::function<bool(std::size_t before, std::size_t now)>;

/// The lengths of the longest common subsequences of the rests of a stretch.
class CommonLengths {
 public:
  CommonLengths(const Stretch& of, const IsSame& isSame)
      : of_(of), width_(of.nowEnd - of.now + 1), lengths_((of.beforeEnd - of.before + 1) * width_) {
    for (std::size_t i = of.beforeEnd; i-- > of.before;) {
      for (std::size_t k = of.nowEnd; k-- > of.now;) {
        At(i, k) = isSame(i, k) ? At(i + 1, k + 1) + 1 : std::max(At(i + 1, k), At(i, k + 1));
      }
    }
  }

  std::size_t& At(std::size_t before, std::size_t now) {
    return lengths_[(before - of_.before) * width_ + now - of_.now];
  }

 private:
  Stretch of_;
  std::size_t width_;
  std::vector<std::size_t> lengths_;
};

/// The stretches of two sequences between elements that are the same.
std::vector<Stretch> Differences(std::size_t beforeSize, std::size_t nowSize, const IsSame& isSame) {
  Stretch middle{0, beforeSize, 0, nowSize};
  while (middle.before < middle.beforeEnd && middle.now < middle.nowEnd &&
         isSame(middle.before, middle.now)) {
    ++middle.before, ++middle.now;
  }
  while (middle.before < middle.beforeEnd && middle.now < middle.nowEnd &&
         isSame(middle.beforeEnd - 1, middle.nowEnd - 1)) {
    --middle.beforeEnd, --middle.nowEnd;
  }
  const std::size_t comparisons = (middle.beforeEnd - middle.before) * (middle.nowEnd - middle.now);
  if (comparisons == 0 && middle.before == middle.beforeEnd && middle.now == middle.nowEnd) return {};
  if (comparisons == 0 || comparisons > kMostComparisons) return {middle};
  CommonLengths lengths(middle, isSame);
  std::vector<Stretch> stretches;
  std::size_t i = middle.before, k = middle.now;
  while (i < middle.beforeEnd || k < middle.nowEnd) {
    Stretch next{i, i, k, k};
    while (i < middle.beforeEnd || k < middle.nowEnd) {
      const bool hasBoth = i < middle.beforeEnd && k < middle.nowEnd;
      if (hasBoth && isSame(i, k)) break;
      const bool isBefore = k == middle.nowEnd || (hasBoth && lengths.At(i + 1, k) >= lengths.At(i, k + 1));
      ++(isBefore ? i : k);
    }
    next.beforeEnd = i, next.nowEnd = k;
    if (next.before < i || next.now < k) stretches.push_back(next);
    if (i < middle.beforeEnd && k < middle.nowEnd) ++i, ++k;
  }
  return stretches;
}

using Records = std::vector<const vdm::Record*>;

Result<Records> RecordsOf(const vdm::Vdm& content) {
  Records records;
  for (std::size_t i = 0; i < content.Size(); ++i) {
    VANZET_TRY(const auto* const record, content.Read(i));
    records.push_back(record);
  }
  return records;
}

bool AreSame(const vdm::Record& a, const vdm::Record& b) {
  if (&a == &b) return true;
  if (a.Size() != b.Size()) return false;
  for (std::size_t i = 0; i < a.Size(); ++i) {
    if (a[i] != b[i]) return false;
  }
  return true;
}

std::vector<Stretch> RecordDifferences(const Records& before, const Records& now) {
  return Differences(before.size(), now.size(),
                     [&](std::size_t i, std::size_t k) { return AreSame(*before[i], *now[k]); });
}

/// Adds the items by which two records differ; null: no record, and at most one of them.
void AddItems(const vdm::Record* before, const vdm::Record* now, std::size_t record,
              std::vector<ItemChange>& changes) {
  static const vdm::Record kNone;
  const vdm::Record& was = before == nullptr ? kNone : *before;
  const vdm::Record& is = now == nullptr ? kNone : *now;
  const auto isSame = [&](std::size_t i, std::size_t k) { return was[i] == is[k]; };
  for (const Stretch& stretch : Differences(was.Size(), is.Size(), isSame)) {
    std::size_t i = stretch.before, k = stretch.now;
    while (i < stretch.beforeEnd || k < stretch.nowEnd) {
      ItemChange change{record, k < stretch.nowEnd ? k : i, {}, {}};
      if (i < stretch.beforeEnd) change.before = was[i++];
      if (k < stretch.nowEnd) change.now = is[k++];
      changes.push_back(std::move(change));
    }
  }
}

}  // namespace

Result<std::vector<ItemChange>> ItemChanges(const vdm::Vdm& before, const vdm::Vdm& now) {
  VANZET_TRY(const auto former, RecordsOf(before));
  VANZET_TRY(const auto present, RecordsOf(now));
  std::vector<ItemChange> changes;
  for (const Stretch& stretch : RecordDifferences(former, present)) {
    std::size_t i = stretch.before, k = stretch.now;
    while (i < stretch.beforeEnd || k < stretch.nowEnd) {
      const vdm::Record* const was = i < stretch.beforeEnd ? former[i] : nullptr;
      const vdm::Record* const is = k < stretch.nowEnd ? present[k] : nullptr;
      AddItems(was, is, is != nullptr ? k : i, changes);
      i += was != nullptr ? 1u : 0u;
      k += is != nullptr ? 1u : 0u;
    }
  }
  return changes;
}

Result<std::size_t> CountChangedRecords(const vdm::Vdm& before, const vdm::Vdm& now) {
  VANZET_TRY(const auto former, RecordsOf(before));
  VANZET_TRY(const auto present, RecordsOf(now));
  std::size_t count = 0;
  for (const Stretch& stretch : RecordDifferences(former, present)) {
    count += std::max(stretch.beforeEnd - stretch.before, stretch.nowEnd - stretch.now);
  }
  return count;
}

}  // namespace vanzet::history
