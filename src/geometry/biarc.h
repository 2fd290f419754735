#pragma once

#include "geometry/span.h"

/// Tangent arcs between directions, and other radii for the arcs that blend two spans.
namespace geometry {

/// Two arcs that lead from A along its direction to B along its direction and meet in a common tangent.
///
/// Shape   the lines give points and unit directions. The result is the number of spans that are not null;
///         where a single half turn is enough, `span2` stays as it was
/// Errors  0 when no such pair exists; the spans then stay as they were
/// Source  The control points of both arcs are at equal distances d from A and B and 2 d apart, which is a
///         quadratic in d; both arcs meet in the middle between them
int Biarc(const CLine& lineA, const CLine& lineB, Span& span1, Span& span2);

/// The results of `ChangeRadius`.
enum : std::int32_t {
  BLEND_DONE = 1,  ///< both neighbours keep a length
  BLEND_UNPREPARED = 100,
  BLEND_NOT_TANGENT = 101,    ///< a neighbour that is left is not tangent to the new blend
  BLEND_PREVIOUS_GONE = 103,  ///< it is shorter than `TOLERANCE`
  BLEND_NEXT_GONE = 104,
  BLEND_BOTH_GONE = 105,
  BLEND_TOO_SHORT = 106,  ///< shorter than `TOLERANCE`
  BLEND_IMPOSSIBLE = 107  ///< no arc of that radius fits
};

/// Gives the blend arc between two spans another radius, and all three new ends.
///
/// A neighbour that is null or has no length is replaced by the line from the blend to the sharp corner, if
/// the other neighbour is tangent to the blend. A radius that reaches beyond the far end of a neighbour does
/// not fit.
/// Errors  results 100 and 107 leave the spans as they were; with all others they have their new values. IDs
///         and index words always stay. Throws L"SetProperties missing" for stale spans
int ChangeRadius(Span* previous, Span* blend, Span* next, double radius);

}  // namespace geometry
