#include <algorithm>
#include <cmath>

#include "contour/builder.h"
#include "contour/library.h"
#include "contour/operations.h"
#include "geometry/kurve.h"

namespace vanzet::contour {
namespace {

using geometry::Kurve;
using geometry::KurveEx;
using geometry::Point;
using geometry::Span;

/// An estimate, good enough for the limit: an arc of radius r rises s over a chord of the angle sqrt(8 s /
/// r).
double ExpectedChords(const Span& arc, double tolerance) {
  return std::fabs(arc.angle) / std::sqrt(8 * tolerance / arc.radius);
}

void AddChords(const Span& arc, double tolerance, KurveEx& chords) {
  // At most half the radius, so that no chord spans more than half a turn.
  const int count = std::max(1, arc.ChordCount(std::min(tolerance, arc.radius / 2)));
  const double sweep = SweepOf(arc);
  for (int i = 1; i < count; ++i) {
    geometry::Vector2d spoke(arc.pc, arc.p0);
    spoke.Rotate(std::cos(sweep * i / count), std::sin(sweep * i / count));
    const Point end = arc.pc + spoke;
    chords.Add(end.x, end.y);
  }
  chords.Add(arc.p1.x, arc.p1.y);
}

/// The part of a closed contour that returns to the span where it begins.
Kurve PartAround(const Kurve& curve, int span, const Point& from, const Point& to) {
  Span first, second;
  const int following = span % curve.SpanCount() + 1;
  curve.Get(span, first, true, true);
  curve.Get(following, second, true, true);
  Kurve part = Part(curve, span, from, span, first.p1);
  part.Add(Part(curve, following, second.p0, span, to), false);
  return part;
}

/// The distance of a point along its span.
double Along(const Contour& contour, const Nearest& place) {
  double along = 0;
  contour.curve.spans[static_cast<std::size_t>(place.span) - 1].Near(place.point, along);
  return along;
}

}  // namespace

Result<Contour> SplitArcs(const Contour& contour, double tolerance) {
  double expected = 0;
  for (const Span& span : contour.curve.spans) {
    expected += span.dir == geometry::LINEAR ? 1 : 1 + ExpectedChords(span, tolerance);
  }
  if (!(expected < static_cast<double>(kMostVertices))) {
    return Fault{"contour " + std::to_string(contour.number) + " would have more than " +
                 std::to_string(kMostVertices) + " chords"};
  }
  Contour chorded{contour.number, {}};
  chorded.curve.Start(contour.curve.start);
  for (const Span& span : contour.curve.spans) {
    if (span.dir == geometry::LINEAR) {
      chorded.curve.Add(span.p1.x, span.p1.y);
    } else {
      AddChords(span, tolerance, chorded.curve);
    }
  }
  return chorded;
}

// The compact contour measures every vertex that it drops; the working one measures only the last, so that
// its errors add up.
Result<Contour> Reduce(const Contour& contour, double tolerance) {
  return Guarded([&]() -> Contour {
    Kurve reduced(contour.curve);
    reduced.Reduce(tolerance);
    return {contour.number, KurveEx(reduced)};
  });
}

Result<Contour> Transform(const Contour& contour, const geometry::Matrix& matrix) {
  Builder builder;
  VANZET_DO(builder.Start(contour.curve.start.Transform(matrix)));
  for (const geometry::RegionSpan& span : SpansOf(contour)) {
    const int direction = matrix.mirrored ? -span.dir : span.dir;
    const Point end = span.p1.Transform(matrix);
    VANZET_DO(direction == geometry::LINEAR ? builder.LineTo(end)
                                            : builder.ArcTo(direction, end, span.pc.Transform(matrix)));
  }
  return builder.Take(contour.number);
}

Result<Contour> PartOf(const Contour& contour, const Point& from, const Point& to) {
  const Nearest first = NearestOn(contour, from), last = NearestOn(contour, to);
  if (first.point == last.point) return Fault{"the two points are the same point of the contour"};
  const bool isForward =
      first.span != last.span ? first.span < last.span : Along(contour, first) < Along(contour, last);
  if (!isForward && !contour.curve.Closed()) {
    return Fault{"the second point comes before the first, and the contour is open"};
  }
  return Guarded([&]() -> Contour {
    const Kurve curve(contour.curve);
    const bool goesAround = !isForward && first.span == last.span;
    const Kurve part = goesAround ? PartAround(curve, first.span, first.point, last.point)
                                  : Part(curve, first.span, first.point, last.span, last.point);
    Contour result{contour.number, {}};
    for (const Span& span : KurveEx(part).spans) result.curve.Add(span, false);
    return result;
  });
}

Result<Contour> CircleOf(const Point& centre, double radius) {
  if (!(radius > geometry::TOLERANCE)) return Fault{"the radius has to be more than 0.005 mm"};
  for (const double side : {-radius, radius}) {
    VANZET_DO(CheckPoint({centre.x + side, centre.y + side}));
  }
  return Guarded([&]() -> Contour { return {1, KurveEx(centre, radius, geometry::ACW)}; });
}

}  // namespace vanzet::contour
