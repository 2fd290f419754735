#pragma once

#include <vector>

#include "base/result.h"
#include "contour/curve/arc_budget.h"
#include "contour/curve/plane_curve.h"
#include "contour/piece.h"

namespace vanzet::contour {

/// Arcs and lines that replace consecutive curves of Bezier: each but the first begins where the former ends.
///
/// Every point of the one is nearer than the budget's tolerance to the other. Arcs and lines meet without a
/// corner where the curves do, but for 0.18 degrees next to an arc that is so flat that a contour has a line
/// there, and at tips of a radius or a width below 0.005 mm, for which contours have no arcs either. Ends of
/// curves that are corners, or where a curve turns back, are kept. The segments begin at the start of the
/// first curve and are few: each pair of tangent arcs reaches as far as it can.
///
/// Fails when the budget does not suffice. Requires: poles within `kLargestCoordinate`, weights above 0.
Result<std::vector<Segment>> FitArcs(const std::vector<PlaneBezier>& beziers, ArcBudget& budget);

}  // namespace vanzet::contour
