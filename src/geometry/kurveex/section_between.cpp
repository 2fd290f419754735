#include "geometry/kurveex/contour_place.h"
#include "geometry/trim.h"

namespace geometry {
namespace {

ContourPlace PlaceOf(const KurveEx& k, const Point& p) {
  ContourPlace place;
  place.point = k.Near(p, place.span, place.along);
  return place;
}

Span SpanOf(const KurveEx& k, int number) {
  Span span;
  k.Get(number, span);
  return span;
}

/// The span from one point of it to another. An arc's centre is moved onto the bisector by `Add`.
Span Between(Span span, const Point& from, const Point& to) {
  span.p0 = from;
  span.p1 = to;
  return span;
}

void AddWhole(const KurveEx& k, int first, int last, KurveEx& out) {
  for (int i = first; i <= last; ++i) out.Add(SpanOf(k, i), true);
}

bool IsBackwards(const ContourPlace& from, const ContourPlace& to) {
  return from.span > to.span || (from.span == to.span && from.along > to.along);
}

}  // namespace

KurveEx SectionBetween(const KurveEx& k, const ContourPlace& from, const ContourPlace& to) {
  const Span first = SpanOf(k, from.span);
  const Span last = SpanOf(k, to.span);
  const bool overSeam = IsBackwards(from, to) && k.Closed();
  KurveEx section;
  if (from.span == to.span && !overSeam) {
    section.Add(Between(first, from.point, to.point), true);
    return section;
  }
  section.Add(Between(first, from.point, first.p1), false);
  AddWhole(k, from.span + 1, overSeam ? k.SpanCount() : to.span - 1, section);
  if (overSeam) AddWhole(k, 1, to.span - 1, section);
  section.Add(Between(last, last.p0, to.point), false);
  if (section.spans.empty()) section.Start(from.point);
  return section;
}

bool Section(const KurveEx& k, const Point& p, const Point& q, KurveEx& out) {
  const ContourPlace from = PlaceOf(k, p);
  const ContourPlace to = PlaceOf(k, q);
  if (from.span == 0 || to.span == 0) return false;
  if (from.span > to.span && !k.Closed()) return false;
  out = SectionBetween(k, from, to);
  return true;
}

}  // namespace geometry
