#pragma once

#include <vector>

#include "base/result.h"
#include "geometry/kurve.h"

namespace vanzet::modeller {

/// The largest number of spans of a contour that becomes a body.
inline constexpr std::size_t kMostSpans = 5'000;

/// The largest coordinate of a contour or a body: 10 km, in millimetres.
inline constexpr double kLargestCoordinate = 1e7;

/// A contour that bounds an area: closed without a gap, anticlockwise, without contact with itself, its spans
/// with all their properties.
using Outline = std::vector<geometry::Span>;

/// Makes an outline of a contour. Ends less than the library's `CLOSED_TOLERANCE` apart are joined.
///
/// Errors    a fault without a place: the contour is open, has no area, crosses or touches itself, has more
///           than `kMostSpans` spans, a coordinate that is not a number or too large, or an arc that cannot
///           exist
/// Requires  the geometry library works in millimetres
Result<Outline> OutlineOf(const geometry::Kurve& contour);

}  // namespace vanzet::modeller
