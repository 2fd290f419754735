#include "contour/constructions.h"

#include <cmath>

#include "base/number_text.h"
#include "contour/builder.h"
#include "contour/library.h"
#include "geometry/biarc.h"
#include "geometry/kurve.h"
#include "geometry/trim.h"

namespace vanzet::contour {
namespace {

using geometry::Kurve;
using geometry::KurveEx;
using geometry::Point;
using geometry::Span;

constexpr int kToTheLeft = 1, kGood = 0, kInsideOut = 3;

/// An offset of the library with its code, geometry/offset.h.
struct Offset {
  int code = kGood;
  KurveEx curve;
};

/// Two of the methods are members of the compact contour.
Offset OffsetBy(const KurveEx& curve, double distance, OffsetMethod method) {
  constexpr int kWithoutLoops = 1;
  Offset offset;
  if (method == OffsetMethod::kKurveEx) {
    offset.code = curve.Offset(offset.curve, distance, kToTheLeft, kWithoutLoops, 0);
    return offset;
  }
  const Kurve source(curve);
  Kurve moved;
  if (method == OffsetMethod::kKurve) {
    offset.code = source.OffsetMethod1(moved, distance, kToTheLeft, kWithoutLoops);
  } else {
    source.OffsetMethod2(moved, distance, kToTheLeft, false);  // its code is always 1
  }
  offset.curve = KurveEx(moved);
  return offset;
}

Result<Contour> TrimClosed(const Contour& contour, double length, End end, const Point& opening) {
  if (end == End::kBoth) return Fault{NameOf(contour) + " is closed: it is trimmed at one end"};
  VANZET_TRY(const KurveEx trimmed, Guarded([&] {
               KurveEx out;
               ExtendAt(contour.curve, opening, length, end == End::kStart ? 1 : -1, out);
               return out;
             }));
  return ContourOf(contour.number, trimmed);
}

using Change = KurveEx (*)(double, const KurveEx&);

Result<Contour> ChangeEnds(const Contour& contour, double length, End end, Change atStart, Change atEnd) {
  VANZET_TRY(const KurveEx changed, Guarded([&] {
               KurveEx curve = contour.curve;
               if (end != End::kEnd) curve = atStart(length, curve);
               if (end != End::kStart) curve = atEnd(length, curve);
               return curve;
             }));
  return ContourOf(contour.number, changed);
}

/// The arc nearest to a point, if there are arcs.
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

std::string ReasonOf(int code, double radius) {
  switch (code) {
    case geometry::BLEND_UNPREPARED: return "the neighbours of the arc do not form a corner";
    case geometry::BLEND_TOO_SHORT: return "the new arc would be shorter than 0.005 mm";
    default: return "no arc of radius " + NumberText(radius) + " mm fits between its neighbours";
  }
}

/// The spans with another radius for one of them. Beyond the ends of an open contour the library makes up the
/// lines to the sharp corner.
Result<std::vector<Span>> ChangeRadiusOf(const KurveEx& curve, std::size_t arc, double radius) {
  std::vector<Span> spans = curve.spans;
  const std::size_t last = spans.size() - 1;
  const bool closed = curve.Closed() && last > 0;
  Span before(spans[arc].p0, spans[arc].p0), after(spans[arc].p1, spans[arc].p1);
  Span& previous = arc > 0 ? spans[arc - 1] : closed ? spans[last] : before;
  Span& next = arc < last ? spans[arc + 1] : closed ? spans[0] : after;
  if (&previous == &next) return Fault{ReasonOf(geometry::BLEND_UNPREPARED, radius)};
  const int code = ChangeRadius(&previous, &spans[arc], &next, radius);
  const bool isDone = code == geometry::BLEND_DONE || code == geometry::BLEND_PREVIOUS_GONE ||
                      code == geometry::BLEND_NEXT_GONE || code == geometry::BLEND_BOTH_GONE;
  if (!isDone) return Fault{ReasonOf(code, radius)};
  if (!closed && arc == 0) spans.insert(spans.begin(), before);
  if (!closed && arc == last) spans.push_back(after);
  return spans;
}

}  // namespace

Result<Contour> OffsetOf(const Contour& contour, double distance, OffsetMethod method) {
  const std::string place =
      " at " + NumberText(std::fabs(distance)) + " mm to the " + (distance < 0 ? "right" : "left");
  const auto offset = Guarded([&] { return OffsetBy(contour.curve, distance, method); });
  if (!offset) {
    return Fault{NameOf(contour) + " has no offset" + place + ": " + offset.fault().text +
                 (contour.curve.Closed() ? "; --region makes it in another way" : "")};
  }
  if (offset->code == kGood) return ContourOf(contour.number, offset->curve);
  return Fault{NameOf(contour) + (offset->code == kInsideOut ? " turns inside out" : " collapses") + place};
}

Result<Contour> Trim(const Contour& contour, double length, End end, const std::optional<Point>& opening) {
  if (contour.curve.Closed()) {
    if (opening) return TrimClosed(contour, length, end, *opening);
    return Fault{NameOf(contour) + " is closed: give the place where to open it with --from"};
  }
  if (opening) return Fault{NameOf(contour) + " is open already: --from is for closed contours"};
  return ChangeEnds(contour, length, end, geometry::TrimStart, geometry::TrimEnd);
}

Result<Contour> Extend(const Contour& contour, double length, End end) {
  if (contour.curve.Closed()) return Fault{NameOf(contour) + " is closed: it has no ends"};
  return ChangeEnds(contour, length, end, geometry::ExtendStart, geometry::ExtendEnd);
}

Result<Contour> SectionOf(const Contour& contour, const Point& from, const Point& to) {
  KurveEx section;
  VANZET_TRY(const bool found, Guarded([&] { return Section(contour.curve, from, to, section); }));
  if (!found) return Fault{"the second point comes before the first, and " + NameOf(contour) + " is open"};
  return ContourOf(contour.number, section);
}

Result<Contour> ChangeBlend(const Contour& contour, const Point& point, double radius) {
  const auto arc = NearestArc(contour.curve, point);
  if (!arc) return Fault{NameOf(contour) + " has no arc"};
  VANZET_TRY(const auto guarded, Guarded([&] { return ChangeRadiusOf(contour.curve, *arc, radius); }));
  VANZET_TRY(const std::vector<Span> spans, guarded);
  KurveEx curve;
  for (const Span& span : spans) curve.Add(span, false);
  return ContourOf(contour.number, curve);
}

Result<Contour> BiarcOf(const Heading& from, const Heading& to) {
  const auto line = [](const Heading& heading) {
    const double angle = heading.degrees * geometry::RADIANS_PER_DEGREE;
    return geometry::CLine(heading.point, std::cos(angle), std::sin(angle), true);
  };
  Span first, second;
  VANZET_TRY(const int count, Guarded([&] { return Biarc(line(from), line(to), first, second); }));
  if (count == 0) return Fault{"no biarc joins these two directions"};
  KurveEx curve;
  for (const Span& span : {first, second}) {
    if (span.propertiesSet) curve.Add(span, false);
  }
  return ContourOf(1, curve);
}

Result<Contour> EllipseOf(const Point& centre, double radiusX, double radiusY,
                          const geometry::Matrix& motion) {
  if (!(radiusX > geometry::TOLERANCE) || !(radiusY > geometry::TOLERANCE)) {
    return Fault{"both radii have to be more than 0.005 mm"};
  }
  VANZET_TRY(const KurveEx curve, Guarded([&] { return EllipseToSpans(centre, radiusX, radiusY, motion); }));
  return ContourOf(1, curve);
}

}  // namespace vanzet::contour
