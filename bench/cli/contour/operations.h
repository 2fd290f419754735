#pragma once

#include "base/result.h"
#include "cli/contour/options.h"

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
Result<void> ContourSection(const ContourArguments& arguments);
Result<void> ContourTrim(const ContourArguments& arguments);
Result<void> ContourExtend(const ContourArguments& arguments);
Result<void> ContourBlend(const ContourArguments& arguments);
Result<void> ContourCircle(const ContourArguments& arguments);
Result<void> ContourEllipse(const ContourArguments& arguments);
Result<void> ContourBiarc(const ContourArguments& arguments);
Result<void> ContourOffset(const ContourArguments& arguments);

Result<void> ContourEqualise(const ContourArguments& arguments);
Result<void> ContourSame(const ContourArguments& arguments);

Result<void> ContourXml(const ContourArguments& arguments);
Result<void> ContourText(const ContourArguments& arguments);

}  // namespace vanzet::cli
