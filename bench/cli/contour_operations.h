#pragma once

#include "cli/contour_arguments.h"

/// The operations of `vanzet contour`, each from its arguments to its printed result.
namespace vanzet::cli {

Result<void> ContourInfo(const ContourArguments& arguments);
Result<void> ContourNear(const ContourArguments& arguments);
Result<void> ContourInside(const ContourArguments& arguments);
Result<void> ContourIntersect(const ContourArguments& arguments);

Result<void> ContourSplit(const ContourArguments& arguments);
Result<void> ContourReduce(const ContourArguments& arguments);
Result<void> ContourTransform(const ContourArguments& arguments);
Result<void> ContourPart(const ContourArguments& arguments);
Result<void> ContourCircle(const ContourArguments& arguments);

}  // namespace vanzet::cli
