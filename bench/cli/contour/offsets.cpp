#include <iostream>

#include "cli/contour/files.h"
#include "cli/contour/operations.h"
#include "cli/contour/region.h"
#include "cli/output.h"
#include "contour/builder.h"
#include "contour/constructions.h"

/// The offsets of contours.
namespace vanzet::cli {
namespace {

using contour::Contour;
using contour::Contours;
using contour::Drawing;

/// 1 where the offset is to the left of the contour, -1 where it is to the right. Fails for the inside of an
/// open contour.
Result<int> DirectionOf(const Contour& contour, const OffsetSide& side) {
  if (!side.isOfClosed) return side.direction;
  if (!contour.curve.Closed()) return Fault{contour::NameOf(contour) + " is open: it has no inside"};
  return side.direction * contour.curve.Direction();
}

/// The offsets of a contour, each further out, until nothing is left. Fails when the first offset is empty.
Result<Contours> OffsetsOf(const Contour& contour, const ContourArguments& arguments) {
  VANZET_TRY(const int direction, DirectionOf(contour, arguments.Side()));
  const auto method = arguments.method.value_or(contour::OffsetMethod::kKurveEx);
  const double step = arguments.numbers[0] * direction;
  Contours offsets;
  for (int i = 1; i <= arguments.steps; ++i) {
    auto offset = OffsetOf(contour, i * step, method);
    if (!offset && offsets.empty()) return offset.fault();
    if (!offset) {
      std::cerr << "vanzet: " + offset.fault().Message() + "; only " + std::to_string(i - 1) + " of " +
                       std::to_string(arguments.steps) + " offsets were made\n";
      break;
    }
    if (method != contour::OffsetMethod::kSpans) WarnOfOffset(contour, *offset, i * step);
    offsets.push_back(std::move(*offset));
  }
  return offsets;
}

/// The offsets of all contours. One that has none is reported and does not stop the others, unless that is
/// asked for. Fails when nothing was made.
Result<Contours> AllOffsets(const Contours& contours, const ContourArguments& arguments) {
  Contours made;
  for (const Contour& contour : contours) {
    const auto offsets = OffsetsOf(contour, arguments);
    if (offsets) {
      made.insert(made.end(), offsets->begin(), offsets->end());
      continue;
    }
    if (arguments.strict || contours.size() == 1) return offsets.fault();
    std::cerr << "vanzet: " + offsets.fault().Message() + "; it is left out\n";
  }
  if (made.empty()) return Fault{"none of the " + Counted(contours.size(), "contour") + " has an offset"};
  return made;
}

}  // namespace

Result<void> ContourOffset(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, ReadContours(arguments, 0, WantsRegion));
  if (WantsRegion(arguments, contours)) return OffsetAsRegion(arguments, contours);
  VANZET_TRY(auto made, AllOffsets(contours, arguments));
  if (arguments.steps > 1) {
    for (std::size_t i = 0; i < made.size(); ++i) made[i].number = static_cast<int>(i) + 1;
  }
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kMain, &contours, "contour"});
  drawing.layers.push_back({Drawing::Role::kOther, &made, made.size() > 1 ? "offsets" : "offset"});
  return WriteContours(arguments, drawing, made);
}

}  // namespace vanzet::cli
