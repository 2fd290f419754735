#include <cmath>

#include "base/number_text.h"
#include "contour/constructions.h"
#include "contour/library.h"
#include "contour/sound.h"
#include "geometry/kurve.h"

namespace vanzet::contour {
namespace {

using geometry::Kurve;
using geometry::KurveEx;

constexpr int kToTheLeft = 1, kGood = 0, kInsideOut = 3;

/// The library's code and contour.
struct Offset {
  int code = kGood;
  KurveEx curve;
};

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
    source.OffsetMethod2(moved, distance, kToTheLeft, false);  // its code tells nothing
  }
  offset.curve = KurveEx(moved);
  return offset;
}

}  // namespace

Result<Contour> OffsetOf(const Contour& contour, double distance, OffsetMethod method) {
  const auto offset = Guarded([&] { return OffsetBy(contour.curve, distance, method); });
  if (!offset) return offset.fault();
  if (offset->code == kGood) return Sound(contour.number, offset->curve);
  return Fault{Named(contour) + (offset->code == kInsideOut ? " turns inside out" : " collapses") + " at " +
               NumberText(std::fabs(distance)) + " mm to the " + (distance < 0 ? "right" : "left")};
}

}  // namespace vanzet::contour
