#include <functional>

#include "cli/contour_operations.h"
#include "cli/output.h"
#include "contour/json_form.h"
#include "contour/operations.h"
#include "contour/text_form.h"

/// The operations that make contours.
namespace vanzet::cli {
namespace {

using contour::Contour;
using contour::Contours;
using contour::Drawing;

/// Prints what was made; in the picture it lies on what it was made of.
Result<void> Give(const ContourArguments& arguments, const Contours& source, const Contours& made) {
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kUnderlay, &source});
  drawing.layers.push_back({Drawing::Role::kMain, &made});
  if (const auto written = WritePicture(arguments, std::move(drawing)); !written) return written;
  return arguments.json ? PrintJson(JsonForm(made)) : Print(TextForm(made));
}

using Change = std::function<Result<Contour>(const Contour&)>;

/// Reads the contours and gives each of them changed.
Result<void> GiveChanged(const ContourArguments& arguments, const Change& change) {
  const auto contours = ReadContours(arguments, 0);
  if (!contours) return contours.fault();
  Contours changed;
  for (const Contour& contour : *contours) {
    auto result = change(contour);
    if (!result) return result.fault();
    changed.push_back(std::move(*result));
  }
  return Give(arguments, *contours, changed);
}

}  // namespace

Result<void> ContourSplit(const ContourArguments& arguments) {
  return GiveChanged(arguments, [&](const Contour& c) { return Chorded(c, arguments.tolerance); });
}

Result<void> ContourReduce(const ContourArguments& arguments) {
  return GiveChanged(arguments, [&](const Contour& c) { return Reduced(c, arguments.tolerance); });
}

Result<void> ContourTransform(const ContourArguments& arguments) {
  return GiveChanged(arguments, [&](const Contour& c) { return Transformed(c, arguments.matrix); });
}

Result<void> ContourPart(const ContourArguments& arguments) {
  const auto contours = ReadContours(arguments, 0);
  if (!contours) return contours.fault();
  if (contours->size() > 1) {
    return Fault{"there are " + Counted(contours->size(), "contour") + "; choose one with --contour",
                 arguments.files[0]};
  }
  const auto part = PartOf(contours->front(), arguments.PointAt(0), arguments.PointAt(2));
  if (!part) return part.fault();
  return Give(arguments, *contours, {*part});
}

Result<void> ContourCircle(const ContourArguments& arguments) {
  const auto circle = contour::CircleOf(arguments.PointAt(0), arguments.numbers[2]);
  if (!circle) return circle.fault();
  return Give(arguments, {}, {*circle});
}

}  // namespace vanzet::cli
