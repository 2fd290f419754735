#pragma once

#include "geometry/kurveex.h"

namespace geometry {

/// A place on a contour, in reading order.
struct ContourPlace {
  int span = 0;  ///< from 1
  double along = 0;
  Point point;
};

/// What lies between two places: over the seam of a closed contour when the second comes first. Two places of
/// one span otherwise give that span with these ends, whatever their order. Parts of spans that are null are
/// left out.
/// Requires: the spans are there, and do not run backwards on an open contour.
KurveEx SectionBetween(const KurveEx& k, const ContourPlace& from, const ContourPlace& to);

}  // namespace geometry
