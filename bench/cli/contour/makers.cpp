#include <functional>

#include "cli/contour/operations.h"
#include "contour/constructions.h"
#include "contour/operations.h"

/// The operations that make contours.
namespace vanzet::cli {
namespace {

using contour::Contour;
using contour::Contours;
using contour::Drawing;

/// In the picture what was made lies on what it was made of.
Result<void> Give(const ContourArguments& arguments, const Contours& source, const Contours& made) {
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kUnderlay, &source, "before"});
  drawing.layers.push_back({Drawing::Role::kMain, &made, "after"});
  return GiveContours(arguments, drawing, made);
}

using Change = std::function<Result<Contour>(const Contour&)>;

/// A source with what was made of it.
struct Changed {
  Contours source, made;
};

Result<Changed> ChangedBy(const ContourArguments& arguments, const Change& change) {
  VANZET_TRY(auto contours, ReadContours(arguments, 0));
  Changed changed{std::move(contours), {}};
  for (const Contour& contour : changed.source) {
    VANZET_TRY(auto result, change(contour));
    changed.made.push_back(std::move(result));
  }
  return changed;
}

/// Reads the contours and gives each of them changed.
Result<void> GiveChanged(const ContourArguments& arguments, const Change& change) {
  const auto changed = ChangedBy(arguments, change);
  return changed ? Give(arguments, changed->source, changed->made) : changed.fault();
}

}  // namespace

Result<void> ContourSplit(const ContourArguments& arguments) {
  return GiveChanged(arguments, [&](const Contour& c) { return SplitArcs(c, arguments.tolerance); });
}

Result<void> ContourReduce(const ContourArguments& arguments) {
  return GiveChanged(arguments, [&](const Contour& c) { return Reduce(c, arguments.tolerance); });
}

Result<void> ContourTransform(const ContourArguments& arguments) {
  return GiveChanged(arguments, [&](const Contour& c) { return Transform(c, arguments.matrix); });
}

Result<void> ContourPart(const ContourArguments& arguments) {
  VANZET_TRY(const auto contour, ReadOneContour(arguments, 0));
  VANZET_TRY(const auto part, PartOf(contour, arguments.PointAt(0), arguments.PointAt(2)));
  return Give(arguments, {contour}, {part});
}

Result<void> ContourSection(const ContourArguments& arguments) {
  return GiveChanged(
      arguments, [&](const Contour& c) { return SectionOf(c, arguments.PointAt(0), arguments.PointAt(2)); });
}

Result<void> ContourTrim(const ContourArguments& arguments) {
  return GiveChanged(arguments, [&](const Contour& c) {
    return Trim(c, arguments.numbers[0], arguments.end, arguments.opening);
  });
}

// In the picture the longer contour is seen where it leaves the one that lies on it.
Result<void> ContourExtend(const ContourArguments& arguments) {
  const auto changed =
      ChangedBy(arguments, [&](const Contour& c) { return Extend(c, arguments.numbers[0], arguments.end); });
  if (!changed) return changed.fault();
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kOther, &changed->made, "extended"});
  drawing.layers.push_back({Drawing::Role::kMain, &changed->source, "contour"});
  return GiveContours(arguments, drawing, changed->made);
}

Result<void> ContourBlend(const ContourArguments& arguments) {
  VANZET_TRY(const auto contour, ReadOneContour(arguments, 0));
  VANZET_TRY(const auto blended, Blended(contour, arguments.PointAt(0), arguments.numbers[2]));
  const Contours source = {contour}, made = {blended};
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kMain, &source, "contour"});
  drawing.layers.push_back({Drawing::Role::kOther, &made, "with the new radius"});
  return GiveContours(arguments, drawing, made);
}

Result<void> ContourCircle(const ContourArguments& arguments) {
  VANZET_TRY(const auto circle, contour::CircleOf(arguments.PointAt(0), arguments.numbers[2]));
  return Give(arguments, {}, {circle});
}

Result<void> ContourEllipse(const ContourArguments& arguments) {
  VANZET_TRY(const auto ellipse, contour::EllipseOf(arguments.PointAt(0), arguments.numbers[2],
                                                    arguments.numbers[3], arguments.matrix));
  return Give(arguments, {}, {ellipse});
}

}  // namespace vanzet::cli
