#include <cmath>

#include "base/number_text.h"
#include "contour/builder.h"
#include "contour/constructions.h"
#include "contour/library.h"
#include "contour/sound.h"
#include "geometry/biarc.h"

namespace vanzet::contour {
namespace {

using geometry::KurveEx;
using geometry::Point;
using geometry::Span;

/// The arc nearest to a point; none without arcs.
std::optional<std::size_t> NearestArc(const KurveEx& curve, const Point& point) {
  std::optional<std::size_t> nearest;
  double least = 0;
  for (std::size_t i = 0; i < curve.spans.size(); ++i) {
    const Span& span = curve.spans[i];
    if (span.dir == geometry::LINEAR || span.NullSpan) continue;
    Point on;
    const double distance = span.Dist(point, on);
    if (nearest && distance >= least) continue;
    nearest = i;
    least = distance;
  }
  return nearest;
}

std::string WhyNot(int code, double radius) {
  switch (code) {
    case geometry::BLEND_UNPREPARED: return "the neighbours of the arc make no corner";
    case geometry::BLEND_TOO_SHORT: return "the new arc would be shorter than 0.005 mm";
    default: return "no arc of radius " + NumberText(radius) + " mm fits between its neighbours";
  }
}

/// The spans with another radius for one of them. Beyond the ends of an open contour the library makes up the
/// lines to the sharp corner.
Result<std::vector<Span>> WithRadius(const KurveEx& curve, std::size_t arc, double radius) {
  std::vector<Span> spans = curve.spans;
  const std::size_t last = spans.size() - 1;
  const bool closed = curve.Closed() && last > 0;
  Span before(spans[arc].p0, spans[arc].p0), after(spans[arc].p1, spans[arc].p1);
  Span& previous = arc > 0 ? spans[arc - 1] : closed ? spans[last] : before;
  Span& next = arc < last ? spans[arc + 1] : closed ? spans[0] : after;
  if (&previous == &next) return Fault{WhyNot(geometry::BLEND_UNPREPARED, radius)};
  const int code = ChangeRadius(&previous, &spans[arc], &next, radius);
  const bool isDone = code == geometry::BLEND_DONE || code == geometry::BLEND_PREVIOUS_GONE ||
                      code == geometry::BLEND_NEXT_GONE || code == geometry::BLEND_BOTH_GONE;
  if (!isDone) return Fault{WhyNot(code, radius)};
  if (!closed && arc == 0) spans.insert(spans.begin(), before);
  if (!closed && arc == last) spans.push_back(after);
  return spans;
}

}  // namespace

Result<Contour> Blended(const Contour& contour, const Point& point, double radius) {
  const auto arc = NearestArc(contour.curve, point);
  if (!arc) return Fault{Named(contour) + " has no arc"};
  const auto spans = Guarded([&] { return WithRadius(contour.curve, *arc, radius); });
  if (!spans) return spans.fault();
  if (!*spans) return spans->fault();
  KurveEx curve;
  for (const Span& span : **spans) curve.Add(span, false);
  return Sound(contour.number, curve);
}

Result<Contour> BiarcOf(const Heading& from, const Heading& to) {
  const auto line = [](const Heading& heading) {
    const double angle = heading.degrees * geometry::RADIANS_PER_DEGREE;
    return geometry::CLine(heading.point, std::cos(angle), std::sin(angle), true);
  };
  Span first, second;
  const auto count = Guarded([&] { return Biarc(line(from), line(to), first, second); });
  if (!count) return count.fault();
  if (*count == 0) return Fault{"no two arcs lead from the one to the other"};
  KurveEx curve;
  for (const Span& span : {first, second}) {
    if (span.propertiesSet) curve.Add(span, false);
  }
  return Sound(1, curve);
}

Result<Contour> EllipseOf(const Point& centre, double radiusX, double radiusY,
                          const geometry::Matrix& motion) {
  if (!(radiusX > geometry::TOLERANCE) || !(radiusY > geometry::TOLERANCE)) {
    return Fault{"both radii have to be more than 0.005 mm"};
  }
  const auto curve = Guarded([&] { return EllipseToSpans(centre, radiusX, radiusY, motion); });
  if (!curve) return curve.fault();
  return Sound(1, *curve);
}

}  // namespace vanzet::contour
