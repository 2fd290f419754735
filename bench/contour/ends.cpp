#include "contour/constructions.h"
#include "contour/library.h"
#include "contour/sound.h"
#include "geometry/trim.h"

namespace vanzet::contour {
namespace {

using geometry::KurveEx;
using geometry::Point;

Result<Contour> TrimmedWhereOpened(const Contour& contour, double length, End end, const Point& opening) {
  if (end == End::kBoth) return Fault{Named(contour) + " is closed: it is trimmed at one end"};
  const auto trimmed = Guarded([&] {
    KurveEx out;
    ExtendAt(contour.curve, opening, length, end == End::kStart ? 1 : -1, out);
    return out;
  });
  if (!trimmed) return trimmed.fault();
  return Sound(contour.number, *trimmed);
}

using Change = KurveEx (*)(double, const KurveEx&);

Result<Contour> ChangedAt(const Contour& contour, double length, End end, Change atStart, Change atEnd) {
  const auto changed = Guarded([&] {
    KurveEx curve = contour.curve;
    if (end != End::kEnd) curve = atStart(length, curve);
    if (end != End::kStart) curve = atEnd(length, curve);
    return curve;
  });
  if (!changed) return changed.fault();
  return Sound(contour.number, *changed);
}

}  // namespace

Result<Contour> Trimmed(const Contour& contour, double length, End end, const std::optional<Point>& opening) {
  if (contour.curve.Closed()) {
    if (opening) return TrimmedWhereOpened(contour, length, end, *opening);
    return Fault{Named(contour) + " is closed: tell by --from where it is opened"};
  }
  if (opening) return Fault{Named(contour) + " is open already: --from is for closed ones"};
  return ChangedAt(contour, length, end, geometry::TrimStart, geometry::TrimEnd);
}

Result<Contour> Extended(const Contour& contour, double length, End end) {
  if (contour.curve.Closed()) return Fault{Named(contour) + " is closed: it has no ends"};
  return ChangedAt(contour, length, end, geometry::ExtendStart, geometry::ExtendEnd);
}

Result<Contour> SectionOf(const Contour& contour, const Point& from, const Point& to) {
  KurveEx section;
  const auto found = Guarded([&] { return Section(contour.curve, from, to, section); });
  if (!found) return found.fault();
  if (!*found) return Fault{"the second point comes before the first, and " + Named(contour) + " is open"};
  return Sound(contour.number, section);
}

}  // namespace vanzet::contour
