#pragma once

#include <optional>
#include <vector>

#include "check/finding.h"
#include "check/half_sections.h"

/// Whether two bodies cut into each other, or how far they are apart.
///
/// Method   Boxes first. Two bodies that are turned are compared by their half sections, exactly: the depth
///          is the diameter of the largest circle in what these have in common, which is that of the
///          largest ball in what the bodies have in common. Any other two are compared as facets
///          (facet_depth.h): the first one is nowhere deeper in the second one than the tolerance, or they
///          clash. The depth is then that of the half sections through the deepest places, or that of the
///          deepest place where these have nothing in common
/// Bounded  by a tolerance of 0.05 mm, and for each body that is compared as facets by what these may be
///          wrong
/// Units    millimetres, degrees
namespace vanzet::check {

/// Depths up to it are not reported.
inline constexpr double kTolerance = 0.05;

/// Where two bodies cut into each other. The area is what their half sections have in common there; a disc
/// where the facets alone say it.
struct Clash {
  double depth;
  geometry::Point place;  ///< in the turning plane
  Area area;
};

/// The depth that is not reported when these two are compared by half sections, and when as facets.
double SectionTolerance(const HalfSection& a, const HalfSection& b);
double FacetTolerance(const HalfSection& a, const HalfSection& b);

/// The deepest clash of two bodies; null for a body that is not there. A jaw is its middle plane.
std::optional<Clash> DeepestClash(const HalfSection* a, const HalfSection* b);

/// The same with jaws as they are in space.
std::optional<Clash> DeepestClashInSpace(const HalfSection* a, const HalfSection* b);

/// The two ways, for bodies that both can compare.
std::optional<Clash> ClashOfSections(const HalfSection& a, const HalfSection& b);
std::optional<Clash> ClashOfFacets(const HalfSection& a, const HalfSection& b);

/// Where a part reaches out of a billet.
struct Excess {
  double volume;  ///< that of half sections at even angles, each for its share of the turn
  double depth;
  geometry::Point place;
  Area area;
};
std::optional<Excess> ExcessOf(const HalfSection& part, const HalfSection& billet);

/// The distance between two bodies that do not clash; nothing when they touch.
std::optional<double> GapBetween(const HalfSection& a, const HalfSection& b);

}  // namespace vanzet::check
