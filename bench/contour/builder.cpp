#include "contour/builder.h"

#include <cmath>
#include <utility>

#include "base/number_text.h"
#include "contour/library.h"

namespace vanzet::contour {
namespace {

using geometry::Point;

/// An arc of more than half a turn has its centre on the other side of its chord.
bool IsMoreThanHalf(int direction, const Point& start, const Point& end, const Point& centre) {
  return direction * Cross(geometry::Vector2d(start, end), geometry::Vector2d(start, centre)) < 0;
}

Result<void> CheckArc(int direction, const Point& start, const Point& end, const Point& centre) {
  const double atStart = Dist(start, centre), atEnd = Dist(end, centre);
  if (std::fabs(atStart - atEnd) > kCentreTolerance) {
    return Fault{"the arc's centre is " + NumberText(atStart) + " mm from its start and " +
                 NumberText(atEnd) + " mm from its end"};
  }
  if (atStart <= geometry::TOLERANCE) return {};
  // The library knows no arc of a full turn: what closes to within an angle it cannot tell is a line there.
  const double cosine = Dot(geometry::Vector2d(centre, start), geometry::Vector2d(centre, end));
  const bool closes = start == end || cosine > atStart * atEnd * (1 - geometry::VECTOR_TOLERANCE);
  const bool isWhole = start.x == end.x && start.y == end.y;
  if (isWhole || (closes && IsMoreThanHalf(direction, start, end, centre))) {
    return Fault{"the arc is a full turn, which has to be two arcs"};
  }
  return {};
}

}  // namespace

Result<void> CheckPoint(const Point& point) {
  for (const double coordinate : {point.x, point.y}) {
    if (std::isnan(coordinate)) return Fault{"a coordinate is no number"};
    if (!(std::fabs(coordinate) <= kLargestCoordinate)) {
      return Fault{"the coordinate " + NumberText(coordinate) + " mm is not within " +
                   NumberText(kLargestCoordinate) + " mm"};
    }
  }
  return {};
}

Result<void> Builder::Start(const Point& point) {
  if (const auto checked = CheckPoint(point); !checked) return checked;
  curve_.Start(point);
  return {};
}

Result<void> Builder::LineTo(const Point& end) {
  if (const auto checked = CheckPoint(end); !checked) return checked;
  return Add(geometry::LINEAR, end, Point(0, 0));
}

Result<void> Builder::ArcTo(int direction, const Point& end, const Point& centre) {
  for (const Point& point : {end, centre}) {
    if (const auto checked = CheckPoint(point); !checked) return checked;
  }
  const Point start = HasSpans() ? curve_.spans.back().p1 : curve_.start;
  if (const auto checked = CheckArc(direction, start, end, centre); !checked) return checked;
  return Add(direction, end, centre);
}

Result<void> Builder::Add(int type, const Point& end, const Point& centre) {
  const auto added = Guarded([&] { return curve_.Add(type, end, centre, true); });
  if (!added) return added.fault();
  return {};
}

geometry::KurveEx Builder::Take() {
  return std::exchange(curve_, geometry::KurveEx());
}

}  // namespace vanzet::contour
