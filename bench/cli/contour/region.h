#pragma once

#include "base/result.h"
#include "cli/contour/options.h"
#include "contour/contour.h"

/// The operations of `vanzet contour` on regions.
namespace vanzet::cli {

/// Whether `contour offset` makes the offset of a region: when an option asks for it, or for several closed
/// contours when no option asks for the offset of each contour.
bool WantsRegion(const ContourArguments& arguments, const contour::Contours& contours);

Result<void> OffsetAsRegion(const ContourArguments& arguments, const contour::Contours& contours);
Result<void> ContourClean(const ContourArguments& arguments);
Result<void> ContourUnite(const ContourArguments& arguments);
Result<void> ContourSubtract(const ContourArguments& arguments);
Result<void> IntersectAreas(const ContourArguments& arguments);

/// Prints a warning for an offset by the steps that crosses itself, comes too near to the contour, or is one
/// of several parts.
void WarnOfOffset(const contour::Contour& source, const contour::Contour& offset, double distance);

}  // namespace vanzet::cli
