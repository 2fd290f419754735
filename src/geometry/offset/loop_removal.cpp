#include "geometry/offset/loop_removal.h"

#include <utility>

#include "geometry/offset/loop_walk.h"

/// The spans that a walk keeps, and the contours that they make. loop_walk.h has the notation.
namespace geometry {
namespace {

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

/// Moves the vertices that stay to the front of the contour's storage. Until the first loop nothing changes.
class VertexCompaction {
 public:
  explicit VertexCompaction(RawVertices& raw)
      : raw_(raw), k_(raw.contour), unchanged_(raw.asStored && k_.SpanCount() > 0) {
    if (!unchanged_) KeepFirstVertex();
  }

  void Keep(std::size_t i, const Verdict& verdict) {
    if (unchanged_ && verdict.trimmed) CatchUp();
    if (unchanged_) {
      ++vertices_;
    } else {
      Take(static_cast<int>(i) + 1, verdict);
    }
  }

  void Finish() {
    if (unchanged_ && vertices_ == k_.nVertices) return;
    raw_.area.reset();
    if (k_.SpanCount() == 0) return k_.Clear();
    k_.nVertices = vertices_;
    const auto full = static_cast<std::size_t>((vertices_ + SPANSTORAGE - 1) / SPANSTORAGE);
    for (; k_.blocks.size() > full; k_.blocks.pop_back()) delete k_.blocks.back();
  }

 private:
  void CatchUp() {
    unchanged_ = false;
    spVertex last;
    k_.Get(vertices_ - 1, last);
    end_ = last.p;
  }

  void KeepFirstVertex() {
    if (k_.SpanCount() == 0) return;
    spVertex first;
    k_.Get(0, first);
    k_.Replace(0, LINEAR, first.p, Point(0, 0), first.ID);
    end_ = first.p;
  }

  void Take(int number, const Verdict& verdict) {
    Span span;
    k_.GetStored(number, span);
    if (!raw_.asStored) span.SetTangents();
    const Point& end = verdict.trimmed ? verdict.end : span.p1;
    if (Dist(end_, end) < TOLERANCE) return;
    k_.Replace(vertices_++, span.dir, end, span.pc, span.ID);
    end_ = end;
  }

  RawVertices& raw_;
  Kurve& k_;
  bool unchanged_;
  int vertices_ = 1;
  Point end_;
};

}  // namespace

KurveEx EliminateLoops(RawContour&& raw, const std::vector<Span>& source, double off, int& code) {
  Compaction compaction(raw.contour, raw.joined, raw.summed);
  IndexedSearch search(std::move(raw.boxes), [&source] { return NearIndex(source); });
  code = Walk(search, raw.contour.spans, kScanOfKurveEx, off,
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

Kurve EliminateLoops(RawVertices& raw, const Kurve& source, double off, int& code) {
  VertexCompaction compaction(raw);
  const VertexSpans sources(source);
  IndexedSearch search(std::move(raw.boxes), [&sources] { return NearIndex(sources); });
  code = Walk(search, VertexSpans(raw.contour), kScanOfKurve, off,
              [&](std::size_t i, const Verdict& verdict) { compaction.Keep(i, verdict); });
  compaction.Finish();
  return std::move(raw.contour);
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
