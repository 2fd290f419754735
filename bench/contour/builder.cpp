#include "contour/builder.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "base/number_text.h"
#include "contour/library.h"

namespace vanzet::contour {
namespace {

using geometry::Point;

/// The centre of an arc of more than half a turn is on the other side of its chord.
bool IsMoreThanHalf(int direction, const Point& start, const Point& end, const Point& centre) {
  return direction * Cross(geometry::Vector2d(start, end), geometry::Vector2d(start, centre)) < 0;
}

Result<void> CheckArc(int direction, const Point& start, const Point& end, const Point& centre) {
  const double atStart = Dist(start, centre), atEnd = Dist(end, centre);
  if (std::fabs(atStart - atEnd) > kCentreTolerance) {
    return Fault{"the arc's centre is " + NumberText(atStart) + " mm from its start and " +
                 NumberText(atEnd) + " mm from its end"};
  }
  const bool isWhole = start.x == end.x && start.y == end.y && atStart > 0;
  const bool isTiny = atStart <= geometry::TOLERANCE;
  // The library has no arc of a full turn: one that closes within its angular tolerance becomes a line.
  const double cosine = Dot(geometry::Vector2d(centre, start), geometry::Vector2d(centre, end));
  const bool closes = start == end || cosine > atStart * atEnd * (1 - geometry::VECTOR_TOLERANCE);
  if (isWhole || (!isTiny && closes && IsMoreThanHalf(direction, start, end, centre))) {
    return Fault{"the arc is a full turn, which has to be two arcs"};
  }
  return {};
}

geometry::RegionSpan DrawnOf(const geometry::Span& span) {
  return {span.dir, span.p0, span.p1, span.pc, span.ID, span.index0, span.index1};
}

/// The centre, moved onto the bisector of the chord.
Point OnBisector(const geometry::RegionSpan& chord, const Point& centre) {
  const geometry::Vector2d along(chord.p0, chord.p1);
  const double length = along.Magnitude();
  if (!(length > 0)) return chord.p0;
  const geometry::Vector2d left = along.LeftNormal() * (1 / length);
  return chord.p0 + along * 0.5 + left * Dot(left, geometry::Vector2d(chord.p0, centre));
}

}  // namespace

Result<void> CheckPoint(const Point& point) {
  for (const double coordinate : {point.x, point.y}) {
    if (std::isnan(coordinate)) return Fault{"a coordinate is not a number"};
    if (!(std::fabs(coordinate) <= kLargestCoordinate)) {
      return Fault{"the coordinate " + NumberText(coordinate) + " mm is not within " +
                   NumberText(kLargestCoordinate) + " mm"};
    }
  }
  return {};
}

Result<void> Builder::Start(const Point& point) {
  VANZET_DO(CheckPoint(point));
  curve_.Start(point);
  drawn_.clear();
  arcsAsLines_ = 0;
  return {};
}

Result<void> Builder::LineTo(const Point& end) {
  VANZET_DO(CheckPoint(end));
  return Add(geometry::LINEAR, end, Point(0, 0));
}

Result<void> Builder::ArcTo(int direction, const Point& end, const Point& centre) {
  for (const Point& point : {end, centre}) {
    VANZET_DO(CheckPoint(point));
  }
  const Point start = HasSpans() ? curve_.spans.back().p1 : curve_.start;
  VANZET_DO(CheckArc(direction, start, end, centre));
  VANZET_DO(Add(direction, end, centre));
  if (curve_.spans.back().dir != geometry::LINEAR) return {};
  if (!(Dist(start, centre) > geometry::TOLERANCE)) ++arcsAsLines_;
  KeepArc(direction, centre);
  return {};
}

Result<void> Builder::Add(int type, const Point& end, const Point& centre) {
  VANZET_DO(Guarded([&] { return curve_.Add(type, end, centre, true); }));
  if (!drawn_.empty()) drawn_.push_back(DrawnOf(curve_.spans.back()));
  return {};
}

// The spans before the first such arc are drawn as the library has them.
void Builder::KeepArc(int direction, const Point& centre) {
  if (drawn_.empty()) std::ranges::transform(curve_.spans, std::back_inserter(drawn_), DrawnOf);
  geometry::RegionSpan& arc = drawn_.back();
  arc.dir = direction;
  arc.pc = OnBisector(arc, centre);
}

Contour Builder::Take(int number) {
  return {number, std::exchange(curve_, {}), std::exchange(arcsAsLines_, 0), std::exchange(drawn_, {})};
}

std::vector<geometry::RegionSpan> SpansOf(const Contour& contour) {
  std::vector<geometry::RegionSpan> spans = contour.drawn;
  if (spans.empty()) std::ranges::transform(contour.curve.spans, std::back_inserter(spans), DrawnOf);
  return spans;
}

Result<Contour> ContourOf(int number, const geometry::KurveEx& curve) {
  Contour contour{number, {}};
  geometry::Span span;
  for (int i = 1; curve.Get(i, span); ++i) {
    for (const geometry::Point& point : {span.p0, span.p1}) {
      VANZET_DO(CheckPoint(point));
    }
    contour.curve.Add(span, false);
  }
  if (contour.curve.spans.empty()) return Fault{"nothing is left of contour " + std::to_string(number)};
  return contour;
}

std::string NameOf(const Contour& contour) {
  return "contour " + std::to_string(contour.number);
}

}  // namespace vanzet::contour
