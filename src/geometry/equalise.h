#pragma once

#include "geometry/kurveex.h"

/// Corresponding spans for two contours, and the motion between two contours of one shape.
namespace geometry {

/// A span and the joints with its neighbours.
struct SpanInfo {
  Span span;
  bool hasNext = false, hasPrevious = false;
  double dotNext = 0, dotPrevious = 0;  ///< of the tangents at the joints
  Vector2d vs, ve;
};

/// Cuts two contours, in reading order, so that each span of one corresponds to a span of the other that
/// takes the same share of the perimeter.
///
/// Shape   The result is the common count of spans; it is 0 for two empty contours, whose results are empty.
///         Contours of equal counts are copied unless `force` is given. The partner of a contour without
///         length consists of null spans at its start, or at the origin if it has none
/// Marks   Index words are lost; whole spans have ID 0, and cut ones are UNMARKED. A rest of a span that
///         rounding left is added to the last piece of its contour
/// Errors  Throws L"EqualiseSpanCount - failed to equalise spans" when the counts differ, which happens when
///         the totals of a contour are wrong. Both contours are then in the diagnostic file, as XML in
///         millimetres
int EqualiseSpanCount(const KurveEx& a, const KurveEx& b, KurveEx& outA, KurveEx& outB, bool force);

/// Sets the path of the diagnostic file, for the whole process. Before the first call, and after one with the
/// empty path, it is failedEqualiseSpanCount.xml in the folder of temporary files.
void SetDiagnosticPath(const std::wstring& path);

/// Pairs spans of equal IDs, in the order of storage, which have to ascend from 0. A span without a partner
/// gets a null span. If a span is UNMARKED, the contours are copied when they have equal counts. Returns
/// false, with both results empty, when the IDs cannot be paired; when a contour has no length the results
/// stay as they were.
bool EqualiseByID(const KurveEx& a, const KurveEx& b, KurveEx& outA, KurveEx& outB);
/// The same, with the second result as a new contour; null instead of false.
std::unique_ptr<KurveEx> EqualiseByID(const KurveEx& a, const KurveEx& b, KurveEx& outA);

/// Whether `b` is `a` in another place, turned, and with `allowMirror` mirrored; the matrix takes `a` there.
///
/// Shape   The flags are those of the caller's contours and have to agree. Closed contours may start at
///         different vertices. Lengths, radii and the angles at the joints are compared, so that a polygon
///         mirrored in the order of its vertices may count as a turned one
/// Owns    If `matrix` is null and the totals agree, it becomes a new matrix that the caller owns, also when
///         the result is false
/// Errors  With false an existing matrix stays as it was
bool SameShape(const KurveEx& a, const KurveEx& b, Matrix*& matrix, bool reversedA, int dirA, bool reversedB,
               int dirB, bool allowMirror);

}  // namespace geometry
