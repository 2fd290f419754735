#pragma once

#include "geometry/kurveex.h"

/// Contours made longer by straight tangent pieces, or shorter.
///
/// Ends     of these functions, but for `Section` and `Extend`, are those of storage, whatever `reversed`
///          says; the results have the same flag
/// Errors   by value: an empty contour, or false
namespace geometry {

/// What is added at both ends of the stretch between two vertices.
struct ExtensionRecord {
  std::uint64_t firstVertex = 0, lastVertex = 0;
  double atStart = 0, atEnd = 0;
};

/// The contour with a line of that length before its start, or behind its end, along the tangent there: that
/// of the first or last span with a length. A contour without one has a null span added. The line before the
/// start is UNMARKED. A negative length leads into the contour.
KurveEx ExtendStart(double d, const KurveEx& k);
KurveEx ExtendEnd(double d, const KurveEx& k);

/// The contour without that length at its start or end; empty when the contour is closed, has no length, or
/// is shorter, or when `d` is negative. At its whole length a null span remains.
KurveEx TrimStart(double d, const KurveEx& k);
KurveEx TrimEnd(double d, const KurveEx& k);
/// As `TrimEnd` by |d|, for closed contours too; empty when nothing is left.
KurveEx TrimTo(double d, const KurveEx& k);
/// `TrimEnd` of the reversed copy, reversed: the other end is trimmed. The result is not `reversed`.
KurveEx TrimEndMirrored(double d, const KurveEx& k);

/// The stretch in reading order from the point that is nearest to `p` to the one nearest to `q`. With `q`
/// first it runs over the seam of a closed contour. On an open one it is false and nothing is given, unless
/// both are on one span, which then simply has these ends.
bool Section(const KurveEx& k, const Point& p, const Point& q, KurveEx& out);

/// Lengthens stretches of a contour, in reading order, by their records, and joins all pieces again, with
/// UNMARKED lines where they have come apart. A negative length leaves nothing of its stretch. False, and a
/// copy, when there are no records or spans, a record does not run upwards, or one names no vertex.
bool Extend(const std::vector<ExtensionRecord>& records, const KurveEx& k, KurveEx& out);

/// An open contour is trimmed by `d` at the end that `point` is; false for any other point. A closed one is
/// opened at the nearest point, and `d` is cut off behind it for the direction 1, before it for -1. False
/// when the contour is shorter than `d`, or for another direction; nothing is given then.
bool ExtendAt(const KurveEx& k, const Point& point, double d, int direction, KurveEx& out);

}  // namespace geometry
