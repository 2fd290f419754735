#pragma once

#include "base/result.h"
#include "contour/contour.h"
#include "contour/json_form.h"
#include "geometry/region.h"

/// Regions from the closed contours of files, and back.
///
/// Units    lengths in millimetres
/// Errors   a fault without a place
namespace vanzet::contour {

/// The contours as one region by the even-odd rule. Fails when one is open, and when the region cannot be
/// computed.
Result<geometry::Region> RegionOf(const Contours& contours);

/// The points within the distance of the contours, which may be open.
Result<geometry::Region> Thicken(const Contours& contours, double distance, geometry::PathEnd end,
                                 const geometry::RegionOffset& options);

/// Fails when an operation could not compute the region.
Result<geometry::Region> Checked(geometry::Region region);

/// The loops, numbered from 1.
Contours ContoursOf(const geometry::Region& region);

/// {"loops": [{"area", "perimeter", "hole", "spans"}], "area", "perimeter"}; areas of holes are below 0.
nlohmann::ordered_json JsonForm(const geometry::Region& region);

}  // namespace vanzet::contour
