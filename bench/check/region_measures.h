#pragma once

#include <optional>

#include "geometry/region.h"

/// Measures of half sections: regions of the turning plane, x along the axis, y the radius.
///
/// Units    millimetres
namespace vanzet::check {

/// The thickest part of a region: the diameter of the largest circle in it, and the centre of that circle.
struct Thickness {
  double width;
  geometry::Point place;
};

/// Nothing for a region that is nowhere as thick as `least`. The width is exact to a hundredth of itself. A
/// region that reaches the axis goes on beyond it.
std::optional<Thickness> ThickestOf(const geometry::Region& region, double least);

/// The volume of the body that a half section makes in a full turn. The integral of 2 pi y over the region,
/// by Green's theorem that of -pi y^2 dx along its boundary.
double SpunVolume(const geometry::Region& region);

/// The part of a region between two places on the axis.
geometry::Region Between(const geometry::Region& region, double from, double to);

/// The least distance between the boundaries of two regions that have no common points.
double DistanceBetween(const geometry::Region& a, const geometry::Region& b);

}  // namespace vanzet::check
