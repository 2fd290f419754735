#include "geometry/equalise.h"

#include <filesystem>

#include "geometry/forms/wide_text.h"
#include "geometry/state.h"
#include "geometry/xml.h"

namespace geometry {
namespace {

/// Spans that are not longer are passed over, and lines and radii that are not longer are not cut.
constexpr double kNoLength = 1e-8;

/// One contour on the way through, with what is left of the span that is being looked at.
class Strand {
 public:
  explicit Strand(const KurveEx& source) : source_(source) {
    spVertex first;
    source.Get(0, first);
    out_.Start(first.p);
  }

  /// Sees to a span with a length; false when there is none left.
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

  /// Takes the first part of the span. What remains is counted and not measured anew: near a half turn the
  /// angles of parts do not add up.
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

  /// Takes all that is left, alone. What rounding left of the last span moves the end of its last piece.
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

/// The spans of `k` against a contour without length.
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

/// Goes along both, by equal shares; `ratio` is the length of the first over that of the second.
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
    const KurveEx copyB(b);
    outA = KurveEx(a);
    outB = copyB;
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

}  // namespace geometry
