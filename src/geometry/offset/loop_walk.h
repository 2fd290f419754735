#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <type_traits>
#include <utility>

#include "geometry/intersect.h"
#include "geometry/offset/loop_removal.h"
#include "geometry/offset/near_index.h"

/// Removal of the loops of a raw offset. docs/contours/offset.md explains it with a picture.
///
/// Notation
///   raw       the spans of the raw offset, by index from 0; span i is the one under judgement
///   source    the spans of the contour that was offset
///   crossing  the first point where span i meets a later span j; the loop lies between the two
///   too near  nearer to the source than |off| less `TOLERANCE`: such a crossing is inside of another loop
///   scan      how many spans span i is compared with before it has a crossing
///   verdict   what becomes of span i: it stays, it ends at a crossing and span j follows, or it is stuck,
///             because all its crossings are too near
namespace geometry {

/// How many spans a span without a crossing is compared with.
inline constexpr std::size_t kScanOfKurveEx = 51;
inline constexpr std::size_t kScanOfKurve = 26;

/// The plain search: every span may cross, and every source span may be too near.
class PlainSearch {
 public:
  explicit PlainSearch(const SourceSpans& source) : source_(source()) {}

  static std::size_t Next(std::size_t, std::size_t from, std::size_t end) { return std::min(from, end); }

  bool AnyWithin(const Point& p, double distance) const {
    return std::any_of(source_.begin(), source_.end(), [&](const Span& span) {
      double unusedAlong = 0;
      return Dist(p, span.NearClamped(p, unusedAlong)) < distance;
    });
  }

 private:
  const std::vector<Span>& source_;
};

/// The search by boxes, which decide which spans are compared. `makeNear` makes the `NearIndex` of the source
/// with the first crossing; a contour without loops needs none.
template <class MakeNear>
class IndexedSearch {
 public:
  IndexedSearch(std::vector<FlatBox> boxes, MakeNear makeNear)
      : boxes_(std::move(boxes)), makeNear_(std::move(makeNear)) {}

  std::size_t Next(std::size_t i, std::size_t from, std::size_t end) {
    if (end <= i + 2 + kScanOfKurveEx) return boxes_.NextMeeting(i, from, end);
    const FlatBox& box = boxes_.At(i);
    return boxes_.Next(from, end, [&box](const FlatBox& other) { return box.Outside(other); });
  }

  bool AnyWithin(const Point& p, double distance) {
    if (!near_) near_.emplace(makeNear_());
    return near_->AnyWithin(p, distance);
  }

 private:
  BoxLevels boxes_;
  MakeNear makeNear_;
  std::optional<std::invoke_result_t<MakeNear>> near_;
};

inline double LengthTo(const Span& span, const Point& end) {
  Span part = span;
  part.p1 = end;
  part.SetProperties();
  return part.length;
}

/// Finds the first crossing of `span` with a later one, unless it is the start of `span`.
inline bool Crossing(const Span& span, const Span& later, Point& p) {
  Point second;
  const int count = Intof(span, later, p, second);
  if (count == 0 || !(Dist(p, span.p0) > TOLERANCE)) return false;
  if (count == 2 && LengthTo(span, p) > LengthTo(span, second)) p = second;
  return true;
}

/// The verdict on a span: it stays, perhaps with a new end, and span `next` follows; or it is stuck.
struct Verdict {
  std::size_t next;
  bool trimmed = false;
  bool stuck = false;
  Point end = {};  ///< if trimmed
};

/// The verdict on span `i`, which is compared with those from `j` on, and before `end`. `Spans` is a vector
/// of them, or `VertexSpans`.
template <class Spans, class SearchForm>
Verdict Judge(const Spans& raw, std::size_t i, std::size_t j, std::size_t end, double nearest,
              SearchForm& search) {
  Verdict verdict{i + 1};
  const Span& span = raw[i];
  for (; j < end; j = search.Next(i, j + 1, end)) {
    Point p;
    if (!Crossing(span, raw[j], p)) continue;
    verdict.next = j;
    verdict.stuck = search.AnyWithin(p, nearest);
    if (!verdict.stuck) {
      verdict.trimmed = true;
      verdict.end = p;
      return verdict;
    }
    end = raw.size();  // a loop has begun, and may close anywhere
  }
  return verdict;
}

/// Calls `keep(i, verdict)` for the spans that stay and returns the code of geometry/offset.h.
template <class SearchForm, class Spans, class Keep>
int Walk(SearchForm&& search, const Spans& raw, std::size_t scan, double off, Keep&& keep) {
  const double nearest = std::fabs(off) - TOLERANCE;
  for (std::size_t i = 0; i < raw.size();) {
    const std::size_t end = std::min(raw.size(), i + 2 + scan);
    const std::size_t first = search.Next(i, i + 2, end);
    if (first >= end) {
      keep(i, Verdict{i + 1});
      ++i;
      continue;
    }
    const Verdict verdict = Judge(raw, i, first, end, nearest, search);
    if (verdict.stuck) return 2;
    keep(i, verdict);
    i = verdict.next;
  }
  return 0;
}

template <class Keep>
int Walk(Search form, const std::vector<Span>& raw, const SourceSpans& source, std::size_t scan, double off,
         Keep&& keep) {
  if (form == Search::Plain) return Walk(PlainSearch(source), raw, scan, off, keep);
  return Walk(IndexedSearch(BoxesOf(raw), [&source] { return NearIndex(source()); }), raw, scan, off, keep);
}

}  // namespace geometry
