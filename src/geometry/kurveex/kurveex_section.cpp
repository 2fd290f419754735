#include <utility>

#include "geometry/kurveex.h"

/// Places along the perimeter, and cutting a pair of contours at the same place.
namespace geometry {
namespace {

/// Adds a span that keeps its kind although it may have collapsed, so that both contours stay alike.
void AddKeepingKind(KurveEx& out, const Span& span) {
  out.Add(span, true);
  Span& added = out.spans.back();
  if (added.dir == span.dir) return;
  added.dir = span.dir;
  added.pc = span.pc;
}

/// The copy of one contour, made span by span.
class Copy {
 public:
  explicit Copy(const KurveEx& source) : source_(source) {
    if (source.Start().ok) copy_.Start(source.Start());
    copy_.index0 = source.GetIndex0(0);
    copy_.index1 = source.GetIndex1(0);
  }

  Span Read(int spanNumber) const {
    Span span;
    source_.Get(spanNumber, span);
    return span;
  }

  void Add(const Span& span) { AddKeepingKind(copy_, span); }

  void AddAll(int from, int to) {
    for (int i = from; i <= to; ++i) Add(Read(i));
  }

  /// Adds the span as two, divided at distance `d`, which may lie beyond its ends: the second then leads
  /// back, or on round the circle. The words stay with its end.
  void AddCut(const Span& span, double d) {
    Span first = span;
    Span second = span;
    first.p1 = second.p0 = d == span.length && !span.NullSpan ? span.p1 : span.Along(d);
    first.index0 = first.index1 = 0;
    Add(first);
    Add(second);
  }

  const KurveEx& Result() const { return copy_; }

 private:
  const KurveEx& source_;
  KurveEx copy_;
};

/// Where the partner's span is cut, as a distance along it. `ownTarget` is the place on the partner's
/// perimeter, `beforePartner` the length of its spans before.
using PartnerDistance = double (*)(double d, const Span& span, const Span& partner, double ownTarget,
                                   double beforePartner);

double AtSameFraction(double d, const Span& span, const Span& partner, double, double) {
  return span.length > 0 ? d / span.length * partner.length : 0.0;
}

double AtSameDistance(double d, const Span&, const Span&, double, double) {
  return d;
}

double AtOwnFraction(double, const Span&, const Span&, double ownTarget, double beforePartner) {
  return ownTarget - beforePartner;
}

int SectionAt(const KurveEx& a, const KurveEx& b, double f, PartnerDistance partnerDistance, KurveEx& outA,
              KurveEx& outB) {
  if (a.SpanCount() != b.SpanCount()) {
    outA.Clear();
    outB.Clear();
    return 0;
  }
  Copy copyA(a);
  Copy copyB(b);
  const double target = f * a.perim;
  const double ownTarget = f * b.perim;
  double before = 0;
  double beforePartner = 0;
  int cut = 0;
  for (int i = 1; i <= a.SpanCount(); ++i) {
    const Span spanA = copyA.Read(i);
    const Span spanB = copyB.Read(i);
    if (cut == 0 && before + spanA.length >= target) {
      cut = i;
      const double d = target - before;
      copyA.AddCut(spanA, d);
      copyB.AddCut(spanB, partnerDistance(d, spanA, spanB, ownTarget, beforePartner));
    } else {
      copyA.Add(spanA);
      copyB.Add(spanB);
    }
    before += spanA.length;
    beforePartner += spanB.length;
  }
  outA = copyA.Result();
  outB = copyB.Result();
  return cut;
}

/// The number of the first span that passes `p`; 0 for none.
int SpanThrough(const KurveEx& k, const Point& p) {
  Span span;
  for (int i = 1; k.Get(i, span); ++i) {
    if (!span.box.Outside(p) && span.On(p)) return i;
  }
  return 0;
}

}  // namespace

Point KurveEx::AtFraction(double f, int& spanNumber, double& localFraction) const {
  const double target = f * perim;
  double before = 0;
  for (std::size_t i = 0; i < spans.size(); ++i) {
    const Span span = ReadSpan(i);
    if (before + span.length > target) {
      spanNumber = static_cast<int>(i) + 1;
      localFraction = (target - before) / span.length;
      return span.Along(target - before);
    }
    before += span.length;
  }
  spanNumber = SpanCount();
  localFraction = spans.empty() ? 0.0 : 1.0;
  return spans.empty() ? INVALID_POINT : End();
}

int KurveEx::FindAlong(int spanNumber, const Point& p, double d, double& fraction) const {
  fraction = -1.0;
  Span span;
  if (!Get(spanNumber, span)) return -1;
  double rest = 0;
  span.NearClamped(p, rest);
  rest += d;
  // From here on `rest` is the distance from the start of the current span.
  bool mayWrap = Closed();
  while (!(0 <= rest && rest <= span.length)) {
    const bool forwards = rest > span.length;
    if (!forwards && !(rest < 0)) return -1;
    if (forwards) rest -= span.length;
    spanNumber += forwards ? 1 : -1;
    if (spanNumber < 1 || spanNumber > SpanCount()) {
      if (!mayWrap) return -1;
      mayWrap = false;
      spanNumber = forwards ? 1 : SpanCount();
    }
    Get(spanNumber, span);
    if (!forwards) rest += span.length;
  }
  fraction = span.length > 0 ? rest / span.length : 0.0;
  return spanNumber;
}

int SectionByFraction(const KurveEx& a, const KurveEx& b, double f, KurveEx& outA, KurveEx& outB) {
  return SectionAt(a, b, f, AtSameFraction, outA, outB);
}

int SectionByDistance(const KurveEx& a, const KurveEx& b, double f, KurveEx& outA, KurveEx& outB) {
  return SectionAt(a, b, f, AtSameDistance, outA, outB);
}

int SectionByOwnFraction(const KurveEx& a, const KurveEx& b, double f, KurveEx& outA, KurveEx& outB) {
  return SectionAt(a, b, f, AtOwnFraction, outA, outB);
}

int SectionAtVertex(const KurveEx& a, const KurveEx& b, int vertexNumber, double d, KurveEx& outA,
                    KurveEx& outB) {
  double position = d;
  Span span;
  for (int i = 1; i <= vertexNumber && a.Get(i, span); ++i) position += span.length;
  return SectionByFraction(a, b, position / a.perim, outA, outB);
}

int SectionAtPoint(const KurveEx& a, const KurveEx& b, const Point& p, KurveEx& outA, KurveEx& outB) {
  const int through = SpanThrough(a, p);
  Span spanA;
  Span spanB;
  const bool found = a.Get(through, spanA) && b.Get(through, spanB);
  const bool atStart = found && p == spanA.p0;
  const bool atEnd = found && p == spanA.p1;
  Copy copyA(a);
  Copy copyB(b);
  if (!found || atStart || atEnd) {
    copyA.AddAll(1, a.SpanCount());
    copyB.AddAll(1, b.SpanCount());
  } else {
    double d = 0;
    spanA.NearClamped(p, d);
    copyA.AddAll(1, through - 1);
    copyA.AddCut(spanA, d);
    copyA.AddAll(through + 1, a.SpanCount());
    copyB.AddAll(1, through - 1);
    copyB.AddCut(spanB, AtSameFraction(d, spanA, spanB, 0, 0));
    copyB.AddAll(through + 1, b.SpanCount());
  }
  outA = copyA.Result();
  outB = copyB.Result();
  if (!found) return -1;
  return atStart ? through - 1 : through;
}

}  // namespace geometry
