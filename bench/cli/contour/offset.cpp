#include <iostream>

#include "cli/contour/operations.h"
#include "contour/constructions.h"

/// Offsets, which lie beside what they were made of, and biarcs, with the directions between which they lead.
namespace vanzet::cli {
namespace {

using contour::Contour;
using contour::Contours;
using contour::Drawing;

/// The offsets of a contour, one beside the other, until none is left. That the first is left is a condition.
Result<Contours> OffsetsOf(const Contour& contour, const ContourArguments& arguments) {
  const double step = arguments.numbers[0] * (arguments.toTheRight ? -1 : 1);
  Contours offsets;
  for (int i = 1; i <= arguments.steps; ++i) {
    auto offset = OffsetOf(contour, i * step, arguments.method);
    if (!offset && offsets.empty()) return offset.fault();
    if (!offset) {
      std::cerr << "vanzet: " + offset.fault().Message() + "; there are " + std::to_string(i - 1) + " of " +
                       std::to_string(arguments.steps) + " offsets\n";
      break;
    }
    offsets.push_back(std::move(*offset));
  }
  return offsets;
}

}  // namespace

Result<void> ContourOffset(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, ReadContours(arguments, 0));
  Contours made;
  for (const Contour& contour : contours) {
    VANZET_TRY(const auto offsets, OffsetsOf(contour, arguments));
    made.insert(made.end(), offsets.begin(), offsets.end());
  }
  if (arguments.steps > 1) {
    for (std::size_t i = 0; i < made.size(); ++i) made[i].number = static_cast<int>(i) + 1;
  }
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kMain, &contours, "contour"});
  drawing.layers.push_back({Drawing::Role::kOther, &made, made.size() > 1 ? "offsets" : "offset"});
  return GiveContours(arguments, drawing, made);
}

Result<void> ContourBiarc(const ContourArguments& arguments) {
  const contour::Heading from{arguments.PointAt(0), arguments.numbers[2]};
  const contour::Heading to{arguments.PointAt(3), arguments.numbers[5]};
  VANZET_TRY(const auto biarc, BiarcOf(from, to));
  const Contours made = {biarc};
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kMain, &made});
  const double reach = Dist(from.point, to.point) / 3;
  const auto show = [&](const contour::Heading& heading, double length) {
    drawing.marks.push_back({Drawing::Mark::Kind::kFound, heading.point});
    drawing.links.push_back({heading.point, geometry::Point(heading.point, length, heading.degrees)});
  };
  show(from, reach);
  show(to, -reach);
  return GiveContours(arguments, drawing, made);
}

}  // namespace vanzet::cli
