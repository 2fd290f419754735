#pragma once

#include "geometry/span.h"

namespace geometry {

/// Two arcs that lead from A along its direction to B along its direction and meet in a common tangent. The
/// lines carry point and unit direction. Returns how many of the spans are not null; 0 also when there is no
/// such pair, and the spans then stay as they were. Where one half turn does, `span2` stays as it was.
int Biarc(const CLine& lineA, const CLine& lineB, Span& span1, Span& span2);

/// What became of a blend; `ChangeRadius` returns these numbers.
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

/// Gives the blend arc between two spans another radius, and the spans new ends. A neighbour that is null or
/// has no length is taken for the line from the blend to the sharp corner, if the other neighbour is tangent
/// to the blend. A radius that reaches beyond the far end of a neighbour does not fit.
/// The spans take their new values unless the result is 100 or 107. IDs and words stay.
/// Throws L"SetProperties missing" for stale spans.
int ChangeRadius(Span* previous, Span* blend, Span* next, double radius);

}  // namespace geometry
