#pragma once

#include <vector>

#include "check/facet_tree.h"

/// Facets of one body in another one: what is deeper than a tolerance cannot be missed.
///
/// Method   The depth of a point in a solid changes by no more than the way between two points. So a facet is
///          within the tolerance as a whole when its centre is outside by more than its reach; and, since the
///          distance from a facet is a convex function, when its corners are within the tolerance of one
///          facet of the solid; and when all of it would be outside if it were moved by less than the
///          tolerance, into its body or away from the solid. Any other facet is cut where that facet of the
///          solid ends, or halved, until each piece is either within the tolerance, or has a centre that is
///          deeper, or is smaller than 0.002 mm
/// Exact    for the facets themselves, but for pieces of that size; how far they are from the true surface is
///          the caller's to add to the tolerance
namespace vanzet::check {

/// The side of a solid into which depths are measured.
enum class Side { kInside, kOutside };

/// A place that is deeper than the tolerance, on a facet or below one.
struct DeepPlace {
  geometry::Point3d place;
  double depth;
};

/// The places at which a body is deeper than `tolerance` in a solid, or outside of it: on the body's facets,
/// at most one on each, the deepest first. When these are nowhere deeper, but the whole of the solid's
/// surface is in the body, they are below facets of the solid.
std::vector<DeepPlace> FindDeeper(const FacetTree& body, const FacetTree& solid, Side side, double tolerance);

/// The distance between two bodies that do not cut into each other. Whether it is within `tolerance` is
/// certain; a larger one is that from the corners of both, which is exact where a corner is nearest, and
/// never more than a ninth too large.
double DistanceBetween(const FacetTree& a, const FacetTree& b, double tolerance);

}  // namespace vanzet::check
