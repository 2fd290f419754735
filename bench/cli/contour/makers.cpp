#include <functional>
#include <iostream>

#include <nlohmann/json.hpp>

#include "base/number_text.h"
#include "cli/contour/files.h"
#include "cli/contour/operations.h"
#include "cli/output.h"
#include "contour/constructions.h"
#include "contour/contour_file.h"
#include "contour/json_form.h"
#include "contour/operations.h"

/// The operations that make contours, or write them in another form.
namespace vanzet::cli {
namespace {

using contour::Contour;
using contour::Contours;
using contour::Drawing;

/// Writes contours that were made from others. The picture shows them on top of their source.
Result<void> WriteMade(const ContourArguments& arguments, const Contours& source, const Contours& made) {
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kUnderlay, &source, "before"});
  drawing.layers.push_back({Drawing::Role::kMain, &made, "after"});
  return WriteContours(arguments, drawing, made);
}

using Change = std::function<Result<Contour>(const Contour&)>;

/// Contours and what they were changed to.
struct Changed {
  Contours source, made;
};

Result<Changed> ChangeContours(const ContourArguments& arguments, const Change& change,
                               MakesRegion keepsSmallArcs = nullptr) {
  VANZET_TRY(auto contours, ReadContours(arguments, 0, keepsSmallArcs));
  Changed changed{std::move(contours), {}};
  for (const Contour& contour : changed.source) {
    VANZET_TRY(auto result, change(contour));
    changed.made.push_back(std::move(result));
  }
  return changed;
}

/// Reads the contours, changes each of them, and writes the result.
Result<void> WriteChanged(const ContourArguments& arguments, const Change& change) {
  const auto changed = ChangeContours(arguments, change);
  return changed ? WriteMade(arguments, changed->source, changed->made) : changed.fault();
}

/// Says which arcs of a result other operations will not have.
void ReportSmallArcs(const Contours& made) {
  int count = 0;
  for (const Contour& contour : made) count += contour.arcsAsLines;
  if (count == 0) return;
  std::cerr << "vanzet: the result has " + Counted(static_cast<std::size_t>(count), "arc") +
                   " under 0.005 mm radius, for which other operations and JSON have lines\n";
}

Result<void> PrintForm(const ContourArguments& arguments, const Contours& contours, const std::string& form) {
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kMain, &contours});
  VANZET_DO(WritePicture(arguments, std::move(drawing)));
  return arguments.json ? PrintResult(arguments, JsonForm(contours)) : PrintResult(arguments, form);
}

/// Fails unless the length of `trim` and `extend` is one.
Result<void> CheckLength(const ContourArguments& arguments) {
  const double length = arguments.numbers[0];
  if (length > 0) return {};
  return Fault{"the length has to be above 0, found " + NumberText(length)};
}

}  // namespace

Result<void> ContourSplit(const ContourArguments& arguments) {
  return WriteChanged(arguments, [&](const Contour& c) { return SplitArcs(c, arguments.tolerance); });
}

Result<void> ContourReduce(const ContourArguments& arguments) {
  return WriteChanged(arguments, [&](const Contour& c) { return Reduce(c, arguments.tolerance); });
}

Result<void> ContourTransform(const ContourArguments& arguments) {
  const auto keepsSmallArcs = [](const ContourArguments&, const Contours&) { return true; };
  VANZET_TRY(
      const auto changed,
      ChangeContours(
          arguments, [&](const Contour& c) { return Transform(c, arguments.matrix); }, keepsSmallArcs));
  ReportSmallArcs(changed.made);
  return WriteMade(arguments, changed.source, changed.made);
}

Result<void> ContourPart(const ContourArguments& arguments) {
  VANZET_TRY(const auto contour, ReadOneContour(arguments, 0));
  VANZET_TRY(const auto part, PartOf(contour, arguments.PointAt(0), arguments.PointAt(2)));
  return WriteMade(arguments, {contour}, {part});
}

Result<void> ContourSection(const ContourArguments& arguments) {
  return WriteChanged(
      arguments, [&](const Contour& c) { return SectionOf(c, arguments.PointAt(0), arguments.PointAt(2)); });
}

Result<void> ContourTrim(const ContourArguments& arguments) {
  VANZET_DO(CheckLength(arguments));
  return WriteChanged(arguments, [&](const Contour& c) {
    return Trim(c, arguments.numbers[0], arguments.end, arguments.opening);
  });
}

// The original is drawn on top, so that the picture shows where the longer contour extends it.
Result<void> ContourExtend(const ContourArguments& arguments) {
  VANZET_DO(CheckLength(arguments));
  const auto changed = ChangeContours(
      arguments, [&](const Contour& c) { return Extend(c, arguments.numbers[0], arguments.end); });
  if (!changed) return changed.fault();
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kOther, &changed->made, "extended"});
  drawing.layers.push_back({Drawing::Role::kMain, &changed->source, "contour"});
  return WriteContours(arguments, drawing, changed->made);
}

Result<void> ContourBlend(const ContourArguments& arguments) {
  VANZET_TRY(const auto contour, ReadOneContour(arguments, 0));
  VANZET_TRY(const auto blended, ChangeBlend(contour, arguments.PointAt(0), arguments.numbers[2]));
  const Contours source = {contour}, made = {blended};
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kMain, &source, "contour"});
  drawing.layers.push_back({Drawing::Role::kOther, &made, "with the new radius"});
  return WriteContours(arguments, drawing, made);
}

Result<void> ContourCircle(const ContourArguments& arguments) {
  VANZET_TRY(const auto circle, contour::CircleOf(arguments.PointAt(0), arguments.numbers[2]));
  return WriteMade(arguments, {}, {circle});
}

Result<void> ContourEllipse(const ContourArguments& arguments) {
  VANZET_TRY(const auto ellipse, contour::EllipseOf(arguments.PointAt(0), arguments.numbers[2],
                                                    arguments.numbers[3], arguments.matrix));
  return WriteMade(arguments, {}, {ellipse});
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
  return WriteContours(arguments, drawing, made);
}

Result<void> ContourXml(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, ReadContours(arguments, 0));
  return PrintForm(arguments, contours, XmlForm(contours, arguments.xmlKind));
}

Result<void> ContourText(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, arguments.libraryReads ? contour::ReadLibraryText(arguments.files[0])
                                                         : ReadContours(arguments, 0));
  return PrintForm(arguments, contours, LibraryTextForm(contours, arguments.textForm));
}

}  // namespace vanzet::cli
