#include "geometry/offset/loop_removal.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "geometry/intersect.h"
#include "geometry/offset/box_levels.h"

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
namespace {

/// How many spans a span without a crossing is compared with.
constexpr std::size_t kScanOfKurveEx = 51;
constexpr std::size_t kScanOfKurve = 26;

double SizeOf(const Point& p) {
  return std::fabs(p.x) + std::fabs(p.y);
}

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

/// The search by boxes, which decide which spans are compared. The source gets its boxes with the first
/// crossing, and a contour without loops needs none.
class IndexedSearch {
 public:
  IndexedSearch(std::vector<FlatBox> boxes, const SourceSpans& source)
      : boxes_(std::move(boxes)), source_(source) {}

  std::size_t Next(std::size_t i, std::size_t from, std::size_t end) {
    if (end <= i + 2 + kScanOfKurveEx) return boxes_.NextMeeting(i, from, end);
    const FlatBox& box = boxes_.At(i);
    return boxes_.Next(from, end, [&box](const FlatBox& other) { return box.Outside(other); });
  }

  bool AnyWithin(const Point& p, double distance) {
    if (!near_) BuildNear();
    const double reach = distance + margin_ + kRounding * SizeOf(p);
    const FlatBox around(Box(Point(p.x - reach, p.y - reach), Point(p.x + reach, p.y + reach)));
    const auto misses = [&around](const FlatBox& box) { return around.Outside(box); };
    const std::size_t n = nearSpans_->size();
    for (std::size_t i = near_->Next(0, n, misses); i < n; i = near_->Next(i + 1, n, misses)) {
      double unusedAlong = 0;
      if (Dist(p, (*nearSpans_)[i].NearClamped(p, unusedAlong)) < distance) return true;
    }
    return false;
  }

 private:
  /// Points of a span lie in its box but for rounding, which the margin covers amply.
  void BuildNear() {
    nearSpans_ = &source_();
    near_.emplace(BoxesOf(*nearSpans_));
    double size = 0;
    for (const Span& span : *nearSpans_) {
      size = std::max({size, span.radius, SizeOf(span.box.min), SizeOf(span.box.max)});
    }
    margin_ = TOLERANCE + kRounding * size;
  }

  static constexpr double kRounding = 1e-12;

  BoxLevels boxes_;
  const SourceSpans& source_;
  const std::vector<Span>* nearSpans_ = nullptr;
  std::optional<BoxLevels> near_;
  double margin_ = 0;
};

double LengthTo(const Span& span, const Point& end) {
  Span part = span;
  part.p1 = end;
  part.SetProperties();
  return part.length;
}

/// Finds the first crossing of `span` with a later one, unless it is the start of `span`.
bool Crossing(const Span& span, const Span& later, Point& p) {
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

template <class SearchForm>
Verdict Judge(const std::vector<Span>& raw, std::size_t i, std::size_t scan, double nearest,
              SearchForm& search) {
  const Span& span = raw[i];
  Verdict verdict{i + 1};
  std::size_t end = std::min(raw.size(), i + 2 + scan);
  for (std::size_t j = search.Next(i, i + 2, end); j < end; j = search.Next(i, j + 1, end)) {
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
template <class SearchForm, class Keep>
int Walk(SearchForm&& search, const std::vector<Span>& raw, std::size_t scan, double off, Keep&& keep) {
  const double nearest = std::fabs(off) - TOLERANCE;
  for (std::size_t i = 0; i < raw.size();) {
    const Verdict verdict = Judge(raw, i, scan, nearest, search);
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
  return Walk(IndexedSearch(BoxesOf(raw), source), raw, scan, off, keep);
}

/// Moves the spans that stay to the front of the contour's storage, and sums the totals up again.
///
/// Of a contour that is joined nothing changes before its first loop: until then the spans are not even read.
class Compaction {
 public:
  explicit Compaction(KurveEx& k, bool joined = false, bool summed = false)
      : k_(k), unchanged_(joined), summed_(summed) {
    if (!unchanged_) k_.perim = k_.area = 0.0;
    if (!k_.spans.empty()) k_.start = k_.spans.front().p0;
  }

  void Keep(std::size_t i, const Verdict& verdict) {
    if (unchanged_ && verdict.trimmed) CatchUp();
    if (!unchanged_) Take(i, verdict);
    ++kept_;
  }

  void Finish() {
    if (unchanged_ && !(summed_ && kept_ == k_.spans.size())) CatchUp();
    k_.spans.erase(k_.spans.begin() + static_cast<std::ptrdiff_t>(kept_), k_.spans.end());
  }

 private:
  void CatchUp() {
    unchanged_ = false;
    k_.perim = k_.area = 0.0;
    for (std::size_t i = 0; i < kept_; ++i) Count(k_.spans[i]);
  }

  void Take(std::size_t i, const Verdict& verdict) {
    Span& span = k_.spans[kept_];
    if (kept_ != i) span = k_.spans[i];
    if (verdict.trimmed) Trim(span, verdict.end);
    const bool continues = kept_ == 0 || BeginsExactlyAt(span, k_.spans[kept_ - 1].p1);
    if (verdict.trimmed || !continues) Attach(span);
    Count(span);
  }

  void Count(const Span& span) {
    k_.perim += span.length;
    k_.area += span.Area();
  }

  static bool BeginsExactlyAt(const Span& span, const Point& p) {
    return span.p0.x == p.x && span.p0.y == p.y;
  }

  static void Trim(Span& span, const Point& end) {
    span.p1 = end;
    span.SetProperties();
  }

  /// Changes the span as `KurveEx::Add` would when adding it to the spans kept so far.
  void Attach(Span& span) const {
    if (kept_ > 0) {
      const Point& end = k_.spans[kept_ - 1].p1;
      const bool apart = !(end == span.p0);
      span.p0 = end;
      if (apart) span.SetProperties();
    }
    if (span.dir != LINEAR) span.pc = span.CentreOnBisector();
    span.SetProperties();
  }

  KurveEx& k_;
  bool unchanged_;
  const bool summed_;
  std::size_t kept_ = 0;
};

}  // namespace

KurveEx EliminateLoops(RawContour&& raw, const std::vector<Span>& source, double off, int& code) {
  Compaction compaction(raw.contour, raw.joined, raw.summed);
  const SourceSpans asTheyAre = [&source]() -> const std::vector<Span>& { return source; };
  code = Walk(IndexedSearch(std::move(raw.boxes), asTheyAre), raw.contour.spans, kScanOfKurveEx, off,
              [&](std::size_t i, const Verdict& verdict) { compaction.Keep(i, verdict); });
  compaction.Finish();
  return std::move(raw.contour);
}

KurveEx WithTotals(RawContour&& raw) {
  KurveEx k = std::move(raw.contour);
  if (raw.summed) return k;
  k.perim = k.area = 0.0;
  for (const Span& span : k.spans) {
    k.perim += span.length;
    k.area += span.Area();
  }
  return k;
}

KurveEx EliminateLoops(KurveEx&& raw, const std::vector<Span>& source, double off, int& code, Search search) {
  KurveEx k;
  if (raw.reversed) {
    k.Add(raw, true);
  } else {
    k = std::move(raw);
  }
  Compaction compaction(k);
  const SourceSpans asTheyAre = [&source]() -> const std::vector<Span>& { return source; };
  code = Walk(search, k.spans, asTheyAre, kScanOfKurveEx, off,
              [&](std::size_t i, const Verdict& verdict) { compaction.Keep(i, verdict); });
  compaction.Finish();
  return k;
}

Kurve EliminateLoops(const Kurve& raw, const SourceSpans& source, double off, int& code, Search search) {
  Kurve k;
  k = static_cast<const Matrix&>(raw);
  const std::vector<Span> spans = SpansOf(raw);
  if (!spans.empty()) k.Add(spVertex(LINEAR, spans.front().p0, Point(0, 0), raw.GetSpanID(0)));
  code = Walk(search, spans, source, kScanOfKurve, off, [&](std::size_t i, const Verdict& verdict) {
    const Span& span = spans[i];
    k.Add(spVertex(span.dir, verdict.trimmed ? verdict.end : span.p1, span.pc, span.ID), false);
  });
  return k;
}

std::vector<Span> SpansOf(const Kurve& k) {
  const int n = k.SpanCount();
  std::vector<Span> spans;
  spans.reserve(static_cast<std::size_t>(n));
  for (int i = 1; i <= n; ++i) k.Get(i, spans.emplace_back(), true, false);
  return spans;
}

KurveEx EliminateLoops(const KurveEx& raw, const KurveEx& source, double off, int& code) {
  return EliminateLoops(KurveEx(raw), source.spans, off, code, Search::Indexed);
}

Kurve EliminateLoops(const Kurve& raw, const Kurve& source, double off, int& code) {
  std::vector<Span> spans;
  const SourceSpans read = [&]() -> const std::vector<Span>& { return spans = SpansOf(source); };
  return EliminateLoops(raw, read, off, code, Search::Indexed);
}

}  // namespace geometry
