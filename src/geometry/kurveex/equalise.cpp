#include <filesystem>
#include <limits>
#include <utility>

#include "geometry/equalise.h"
#include "geometry/forms/wide_text.h"
#include "geometry/state.h"
#include "geometry/xml.h"

namespace geometry {

constinit std::unique_ptr<const std::wstring> diagnosticPath;

namespace {

/// Spans that are not longer are skipped, and lines and radii that are not longer are not cut.
constexpr double kNoLength = 1e-8;

/// One of the two contours during the walk, with the rest of its current span.
class Strand {
 public:
  explicit Strand(const KurveEx& source) : source_(source) {
    spVertex first;
    source.Get(0, first);
    out_.Start(first.p);
  }

  /// Advances to a span with a length. Returns false when none is left.
  bool Fetch() {
    while (!(length_ > kNoLength)) {
      if (!source_.Get(next_, rest_)) return false;
      ++next_;
      rest_.SetProperties();
      length_ = rest_.length;
    }
    return true;
  }

  double length() const { return length_; }

  void TakeWhole() {
    out_.Add(spVertex(rest_.dir, rest_.p1, rest_.pc, 0), true);
    rest_.p0 = rest_.p1;
    length_ = 0;
  }

  /// Takes the first part of the span. The length of the rest is calculated and not measured again: near half
  /// a turn the angles of the parts do not add up.
  void Cut(double d) {
    if (rest_.dir == LINEAR) {
      if (length_ > kNoLength) rest_.p0 = rest_.p0 + rest_.vs * d;
    } else if (rest_.radius > kNoLength) {
      Vector2d spoke(rest_.pc, rest_.p0);
      spoke.Rotate(d * rest_.dir / rest_.radius);
      rest_.p0 = rest_.pc + spoke;
    }
    out_.Add(rest_.dir, rest_.p0, rest_.pc, true);
    length_ -= d;
  }

  /// Takes all remaining spans. A rest of the last span that rounding left moves the end of its last piece.
  void TakeRest() {
    if (!out_.spans.empty() && length_ <= TOLERANCE) {
      Span last = out_.spans.back();
      out_.RemoveLast();
      last.p1 = rest_.p1;
      out_.Add(last, true);
      length_ = 0;
    }
    while (Fetch()) TakeWhole();
  }

  const KurveEx& out() const { return out_; }

 private:
  const KurveEx& source_;
  KurveEx out_;
  Span rest_;
  double length_ = 0;  ///< of the rest
  int next_ = 1;
};

/// Pairs the spans of `k` with null spans for a contour without length.
int AgainstPoint(const KurveEx& point, const KurveEx& k, KurveEx& outPoint, KurveEx& outK) {
  spVertex first;
  point.Get(0, first);
  KurveEx nulls;
  nulls.Start(first.p);
  for (int i = 0; i < k.SpanCount(); ++i) nulls.AddNullSpan();
  outK = KurveEx(k);
  outPoint = nulls;
  return outK.SpanCount();
}

std::wstring DiagnosticPath() {
  if (diagnosticPath) return *diagnosticPath;
  std::error_code none;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(none);
  return Widen((folder / "failedEqualiseSpanCount.xml").string());
}

[[noreturn]] void FailWithDiagnosis(const KurveEx& a, const KurveEx& b) {
  {
    XmlWriter xml(DiagnosticPath(), true);
    xml.startElement(L"FailedEqualiseSpanCount");
    xml.Write(L"first", a);
    xml.Write(L"second", b);
    xml.endElement();
  }
  constexpr int kCode = 1004;
  ThrowError(L"EqualiseSpanCount - failed to equalise spans", 0, kCode);
}

/// Walks along both by equal shares; `ratio` is the length of the first divided by that of the second.
void Pair(Strand& a, Strand& b, double ratio) {
  while (true) {
    const bool hasA = a.Fetch();
    const bool hasB = b.Fetch();
    if (!hasA || !hasB) break;
    if (a.length() > b.length() * ratio) {
      a.Cut(b.length() * ratio);
      b.TakeWhole();
    } else {
      b.Cut(a.length() / ratio);
      a.TakeWhole();
    }
  }
  a.TakeRest();
  b.TakeRest();
}

/// The spans of one contour in the order of storage, and its result.
class IdStrand {
 public:
  explicit IdStrand(const KurveEx& source) : source_(source) {
    if (source.start.ok) out_.Start(source.start);
  }

  bool AtEnd() const { return next_ >= source_.spans.size(); }
  bool IsUnmarked() const { return !AtEnd() && Head().ID == UNMARKED; }

  /// The number of the next span, without its mark; -1 at the end.
  std::int32_t ID() const { return AtEnd() ? -1 : static_cast<std::int32_t>(Head().ID & ~ROLL_AROUND); }
  bool IsRollAround() const { return !AtEnd() && (Head().ID & ROLL_AROUND) != 0; }

  void Take() {
    out_.Add(Head(), true);
    ++next_;
  }
  void TakeNull() { out_.AddNullSpan(); }

  KurveEx Result() {
    out_.Reverse(source_.reversed);
    return out_;
  }

 private:
  const Span& Head() const { return source_.spans[next_]; }

  const KurveEx& source_;
  KurveEx out_;
  std::size_t next_ = 0;
};

/// The smallest number from `running` on that comes next in one of them; below 0 when neither has one. IDs
/// that descend along a contour are never found.
std::int32_t NextNumber(const IdStrand& a, const IdStrand& b, std::int32_t running) {
  std::int32_t next = std::numeric_limits<std::int32_t>::max();
  bool found = false;
  for (const std::int32_t ID : {a.ID(), b.ID()}) {
    if (ID < running || ID > next) continue;
    next = ID;
    found = true;
  }
  return found ? next : -1;
}

void TakePair(IdStrand& a, IdStrand& b, std::int32_t number) {
  const bool isOfA = a.ID() == number;
  const bool isOfBoth = isOfA && b.ID() == number && a.IsRollAround() == b.IsRollAround();
  if (isOfBoth) {
    a.Take();
    b.Take();
  } else if (isOfA) {
    a.Take();
    b.TakeNull();
  } else {
    a.TakeNull();
    b.Take();
  }
}

}  // namespace

int EqualiseSpanCount(const KurveEx& a, const KurveEx& b, KurveEx& outA, KurveEx& outB, bool force) {
  if (a.spans.empty() && b.spans.empty()) {
    outA.Clear();
    outB.Clear();
    return 0;
  }
  if (a.perim < TOLERANCE) return AgainstPoint(a, b, outA, outB);
  if (b.perim < TOLERANCE) return AgainstPoint(b, a, outB, outA);
  if (!force && a.SpanCount() == b.SpanCount()) {
    KurveEx copyB(b);  // b may be outA
    outA = KurveEx(a);
    outB = std::move(copyB);
    return outA.SpanCount();
  }
  Strand strandA(a);
  Strand strandB(b);
  Pair(strandA, strandB, a.perim / b.perim);
  if (strandA.out().SpanCount() != strandB.out().SpanCount()) FailWithDiagnosis(a, b);
  outA = strandA.out();
  outB = strandB.out();
  return outA.SpanCount();
}

void SetDiagnosticPath(const std::wstring& path) {
  diagnosticPath = path.empty() ? nullptr : std::make_unique<const std::wstring>(path);
}

bool EqualiseByID(const KurveEx& a, const KurveEx& b, KurveEx& outA, KurveEx& outB) {
  if (NearZero(a.perim, TIGHT_TOLERANCE) || NearZero(b.perim, TIGHT_TOLERANCE)) return false;
  IdStrand strandA(a);
  IdStrand strandB(b);
  std::int32_t number = 0;
  bool asTheyAre = false;
  while (number >= 0 && !(strandA.AtEnd() && strandB.AtEnd())) {
    asTheyAre = strandA.IsUnmarked() || strandB.IsUnmarked();
    if (asTheyAre) break;
    number = NextNumber(strandA, strandB, number);
    if (number >= 0) TakePair(strandA, strandB, number);
  }
  const bool paired = asTheyAre ? a.SpanCount() == b.SpanCount() : number >= 0;
  const KurveEx resultA = !paired ? KurveEx() : asTheyAre ? a : strandA.Result();
  outB = !paired ? KurveEx() : asTheyAre ? b : strandB.Result();
  outA = resultA;
  return paired;
}

std::unique_ptr<KurveEx> EqualiseByID(const KurveEx& a, const KurveEx& b, KurveEx& outA) {
  auto outB = std::make_unique<KurveEx>();
  if (!EqualiseByID(a, b, outA, *outB)) return nullptr;
  return outB;
}

}  // namespace geometry
