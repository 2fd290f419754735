#pragma once

#include <vector>

#include "base/result.h"
#include "geometry/kurve.h"

namespace vanzet::modeller {

/// No contour of more spans becomes a body.
inline constexpr std::size_t kMostSpans = 5'000;

/// No coordinate of a contour or a body is larger: 10 km, in millimetres.
inline constexpr double kLargestCoordinate = 1e7;

/// A contour that bounds an area: closed without a gap, anticlockwise, nowhere touching itself, its spans
/// with all their properties.
using Outline = std::vector<geometry::Span>;

/// The outline that a contour is. Ends less than the library's `CLOSED_TOLERANCE` apart are joined.
///
/// Errors    a reason without a place: the contour is open, has no area, crosses or touches itself, has more
///           than `kMostSpans` spans, a coordinate that is no number or too large, or is torn
/// Requires  the geometry library works in millimetres
Result<Outline> OutlineOf(const geometry::Kurve& contour);

}  // namespace vanzet::modeller
