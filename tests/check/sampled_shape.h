#pragma once

#include <vector>

/// Shapes that are compared by nothing but points, for tests of the check: no region, no facet and no solid
/// of the workbench is used.
namespace vanzet::test {

struct PlanePoint {
  double x, y;
};

/// A polygon; an edge along y = 0 is not part of its border, since the shape goes on below.
using Polygon = std::vector<PlanePoint>;

/// An arm that points away from the axis: what is within its radius of a line, seen along the axis.
struct SampledArm {
  double fromX, toX;
  double foot, head;  ///< the ends of the line, by their distances from the axis
  double radius;
  double angle;  ///< degrees from the upright direction towards +z
};

/// A body: the polygon of its half section turned about the axis, or with a thickness, the polygon of a jaw
/// in its middle plane, upright; and arms.
struct SampledShape {
  Polygon section;
  double thickness = 0;  ///< 0: turned
  std::vector<SampledArm> arms = {};

  bool IsFlat() const { return thickness == 0 && arms.empty(); }
};

/// How deep a place is in a shape; below 0 outside, by the distance in the plane or across it. Where arms
/// meet the rest it may be deeper.
double DepthIn(const SampledShape& shape, double x, double y, double z);

/// The largest distance from what is outside of both that a search by points finds in what two shapes have
/// in common: never more than the true one. Below 0 when nothing was found.
double DeepestCommon(const SampledShape& a, const SampledShape& b);

/// The same of what the first shape has outside of the second one.
double DeepestBeyond(const SampledShape& a, const SampledShape& b);

/// The least distance between the borders of two turned shapes: never less than the true one.
double NearestOf(const SampledShape& a, const SampledShape& b);

}  // namespace vanzet::test
