#pragma once

#include "geometry/kurveex.h"

/// Contours made longer by straight tangent pieces, or shorter.
///
/// Ends     The functions but `Section` and `Extend` work on the ends of storage, whatever `reversed` says;
///          the results have the same flag
/// Units    lengths in the current unit, along the contour
/// Errors   a contour that cannot be made is empty, or the function returns false; nothing is thrown
namespace geometry {

/// The lengths to add at both ends of the stretch between two vertices.
struct ExtensionRecord {
  std::uint64_t firstVertex = 0, lastVertex = 0;
  double atStart = 0, atEnd = 0;
};

/// The contour with a line of that length before its start, or after its end, along the tangent of the first
/// or last span that has a length. A contour without such a span gets a null span. The line before the start
/// is UNMARKED. A negative length leads into the contour.
KurveEx ExtendStart(double d, const KurveEx& k);
KurveEx ExtendEnd(double d, const KurveEx& k);

/// The contour without that length at its start or end. The result is empty when the contour is closed, has
/// no length, or is shorter, and when `d` is negative. A contour trimmed by its whole length leaves a null
/// span.
KurveEx TrimStart(double d, const KurveEx& k);
KurveEx TrimEnd(double d, const KurveEx& k);
/// `TrimEnd` by |d|, for closed contours too; empty when nothing is left.
KurveEx TrimTo(double d, const KurveEx& k);
/// `TrimEnd` of the reversed copy, reversed again, so that the other end is trimmed. The result is not
/// `reversed`.
KurveEx TrimEndMirrored(double d, const KurveEx& k);

/// The stretch in reading order from the point nearest to `p` to the point nearest to `q`. When `q` comes
/// first, it runs over the seam of a closed contour; on an open one the result is false, unless both are on
/// one span, which then simply has these ends.
bool Section(const KurveEx& k, const Point& p, const Point& q, KurveEx& out);

/// Lengthens stretches of a contour, in reading order, by their records, and joins all pieces again, with
/// UNMARKED lines where they have come apart. A negative length leaves nothing of its stretch. Returns false
/// and a copy when records or spans are missing, when the vertices of a record are not in ascending order,
/// or when one of them does not exist.
bool Extend(const std::vector<ExtensionRecord>& records, const KurveEx& k, KurveEx& out);

/// Trims an open contour by `d` at the end that `point` is; any other point returns false. A closed contour
/// is opened at the nearest point, and `d` is cut off after it for direction 1, before it for -1. Returns
/// false, and leaves `out`, when the contour is shorter than `d`, and for another direction.
bool ExtendAt(const KurveEx& k, const Point& point, double d, int direction, KurveEx& out);

}  // namespace geometry
