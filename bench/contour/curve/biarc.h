#pragma once

#include <optional>
#include <vector>

#include "contour/curve/plane_curve.h"
#include "contour/piece.h"

/// Pairs of tangent arcs between two spots of a curve, and how near they are to it.
namespace vanzet::contour {

/// Two tangent arcs, of which either can be a line.
struct Biarc {
  geometry::Point start;
  Segment first, second;
};

/// The pair whose tangents at its ends are equally long. Arcs that a contour cannot have are lines. Nothing
/// for directions that no arcs of less than a turn join.
std::optional<Biarc> BiarcBetween(const CurveSpot& from, const CurveSpot& to);

/// The distance of a point from the arcs.
double DistanceOf(const geometry::Point& point, const Biarc& biarc);

/// Whether all spots are within the tolerance and follow the arcs in their order.
bool Follows(const std::vector<CurveSpot>& spots, const Biarc& biarc, double tolerance);

/// The two segments as one, if they are of one circle, of half a turn at most, or of one line.
std::optional<Segment> AsOne(const geometry::Point& start, const Segment& first, const Segment& second,
                             double tolerance);

}  // namespace vanzet::contour
