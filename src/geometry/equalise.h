#pragma once

#include "geometry/kurveex.h"

/// Corresponding spans for two contours, and contours that are one shape in two places.
namespace geometry {

/// A span with how it meets its neighbours.
struct SpanInfo {
  Span span;
  bool hasNext = false, hasPrevious = false;
  double dotNext = 0, dotPrevious = 0;  ///< of the tangents at the joints
  Vector2d vs, ve;
};

/// Cuts two contours, in reading order, so that each span of one has a span of the other that takes the same
/// share of the perimeter. Returns the common count of spans; 0 for two empty contours, with both results
/// empty. Contours of equal counts are copied unless `force` is given. Against a contour without length null
/// spans at its start are put; without a start, at the origin. Index words are lost, whole spans have ID 0,
/// and cut ones are UNMARKED. A rest of a span that rounding left joins its contour's last piece. Throws
/// L"EqualiseSpanCount - failed to equalise spans" when the counts differ, as they may when the totals of a
/// contour are not its own; both contours are then in the diagnostic file, as XML in millimetres.
int EqualiseSpanCount(const KurveEx& a, const KurveEx& b, KurveEx& outA, KurveEx& outB, bool force);

/// Where the diagnostic file goes, for the whole process; failedEqualiseSpanCount.xml in the folder of
/// temporary files until it is told, and again for the empty path.
void SetDiagnosticPath(const std::wstring& path);

/// Pairs spans of equal IDs, in the order of storage, which have to run upwards from 0; where one contour has
/// none, a null span stands. With an UNMARKED span the contours are copied if they have equal counts. False,
/// with both results empty, when IDs do not match so; when a contour has no length the results stay.
bool EqualiseByID(const KurveEx& a, const KurveEx& b, KurveEx& outA, KurveEx& outB);
/// The same; the second result is returned, or null.
std::unique_ptr<KurveEx> EqualiseByID(const KurveEx& a, const KurveEx& b, KurveEx& outA);

/// Whether `b` is `a` in another place, turned, and with `allowMirror` mirrored; the matrix takes `a` there.
/// The flags are those of the callers' contours and have to agree. Closed contours may start elsewhere. What
/// is compared are lengths, radii and the angles at the joints, so that a polygon mirrored in the order of
/// its vertices may be taken for a turned one.
/// Owns    a null `matrix` is given a new one when totals agree, which is the caller's, also on false
/// Errors  false leaves the matrix as it was
bool SameShape(const KurveEx& a, const KurveEx& b, Matrix*& matrix, bool reversedA, int dirA, bool reversedB,
               int dirB, bool allowMirror);

}  // namespace geometry
