#pragma once

#include <optional>

#include "base/result.h"
#include "contour/contour.h"
#include "geometry/matrix.h"

/// What the library constructs from contours. All refuse what is too large, and what leaves nothing.
namespace vanzet::contour {

/// How an offset is made: by the compact contour, by the working one, or span by span, without roll arcs and
/// with its loops.
enum class OffsetMethod { kKurve, kKurveEx, kSpans };

/// The contour moved to the left by `distance`, to the right when it is below 0. Refused when it collapses or
/// turns inside out.
Result<Contour> OffsetOf(const Contour& contour, double distance, OffsetMethod method);

enum class End { kStart, kEnd, kBoth };

/// The contour without that length at its ends. A closed one is opened at `opening` first; refused without
/// it, or at both ends. An open one is refused with it, and when it is too short.
Result<Contour> Trimmed(const Contour& contour, double length, End end,
                        const std::optional<geometry::Point>& opening);

/// With a straight piece of that length at its ends, along the tangents there. Refused for a closed one.
Result<Contour> Extended(const Contour& contour, double length, End end);

/// The stretch from the point nearest to `from` to that nearest to `to`, over the start of a closed contour
/// if need be. Refused backwards on an open contour.
Result<Contour> SectionOf(const Contour& contour, const geometry::Point& from, const geometry::Point& to);

/// Both contours with as many spans, each taking the same share of its contour's length.
struct Equalised {
  Contour a, b;
};
Result<Equalised> EqualisedOf(const Contour& a, const Contour& b, bool force);

/// The motion that takes `a` onto `b`, if there is one; with `mayMirror` a mirrored one too.
Result<std::optional<geometry::Matrix>> MotionOnto(const Contour& a, const Contour& b, bool mayMirror);

/// The arc that is nearest to the point with another radius, between its neighbours. Refused when there is no
/// arc, when the neighbours make no corner, and when the arc does not fit.
Result<Contour> Blended(const Contour& contour, const geometry::Point& point, double radius);

/// Two arcs, or less, from a point in a direction to another, in degrees. Refused when there are none.
struct Heading {
  geometry::Point point;
  double degrees = 0;
};
Result<Contour> BiarcOf(const Heading& from, const Heading& to);

/// An ellipse of arcs, moved. Refused unless both radii are larger than a point.
Result<Contour> EllipseOf(const geometry::Point& centre, double radiusX, double radiusY,
                          const geometry::Matrix& motion);

}  // namespace vanzet::contour
