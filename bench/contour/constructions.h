#pragma once

#include <optional>

#include "base/result.h"
#include "contour/contour.h"
#include "geometry/matrix.h"

/// Contours that the geometry library constructs from others.
///
/// Units    lengths in millimetres; a distance to the left is positive
/// Errors   all fail when a coordinate would be too large and when nothing would be left; the fault has no
///          place. The given contours never change
namespace vanzet::contour {

/// The ways to offset: the compact contour, the working contour, or span by span, which keeps corners sharp
/// and loops in place.
enum class OffsetMethod { kKurve, kKurveEx, kSpans };

/// Offsets the contour to the left, or to the right when the distance is below 0. Fails when it collapses or
/// turns inside out. docs/contours/offset.md explains the steps.
Result<Contour> OffsetOf(const Contour& contour, double distance, OffsetMethod method);

enum class End { kStart, kEnd, kBoth };

/// Cuts that length off at one end or both. A closed contour is opened at `opening` first; it fails without
/// an opening, or at both ends. An open one fails with an opening, and when it is too short.
Result<Contour> Trim(const Contour& contour, double length, End end,
                     const std::optional<geometry::Point>& opening);

/// Adds a straight piece of that length at one end or both, along the tangent there. Fails for a closed
/// contour.
Result<Contour> Extend(const Contour& contour, double length, End end);

/// The stretch from the point nearest to `from` to the point nearest to `to`, over the start of a closed
/// contour if need be. Fails on an open contour when `to` comes before `from`.
Result<Contour> SectionOf(const Contour& contour, const geometry::Point& from, const geometry::Point& to);

/// Two contours with equally many spans, each taking the same share of its contour's length.
struct EqualPair {
  Contour a, b;
};
/// Cuts the spans of both. Contours that have equally many spans stay as they are unless `force` is given.
Result<EqualPair> Equalise(const Contour& a, const Contour& b, bool force);

/// The motion that takes `a` onto `b`, if it exists; with `mayMirror` also a mirrored one.
Result<std::optional<geometry::Matrix>> MotionOnto(const Contour& a, const Contour& b, bool mayMirror);

/// Gives the arc nearest to the point another radius, between its neighbours. Fails when the contour has no
/// arc, when the neighbours do not form a corner, and when the arc does not fit.
Result<Contour> ChangeBlend(const Contour& contour, const geometry::Point& point, double radius);

/// A point and a direction, in degrees.
struct Heading {
  geometry::Point point;
  double degrees = 0;
};
/// The two arcs, or fewer, from one heading to the other. Fails when no such arcs exist.
Result<Contour> BiarcOf(const Heading& from, const Heading& to);

/// An ellipse of arcs, moved. Fails unless both radii are larger than a point.
Result<Contour> EllipseOf(const geometry::Point& centre, double radiusX, double radiusY,
                          const geometry::Matrix& motion);

}  // namespace vanzet::contour
