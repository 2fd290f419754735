#include <functional>
#include <iostream>

#include <nlohmann/json.hpp>

#include "cli/contour/files.h"
#include "cli/contour/operations.h"
#include "cli/output.h"
#include "contour/constructions.h"
#include "contour/json_form.h"
#include "contour/library_text.h"
#include "contour/operations.h"
#include "contour/xml_form.h"

/// The operations that make contours, or write them in another form.
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

Result<void> GiveForm(const ContourArguments& arguments, const Contours& contours, const std::string& form) {
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kMain, &contours});
  VANZET_DO(WritePicture(arguments, std::move(drawing)));
  return arguments.json ? PrintJson(JsonForm(contours)) : Print(form);
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

Result<void> ContourXml(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, ReadContours(arguments, 0));
  return GiveForm(arguments, contours, XmlForm(contours, arguments.xmlKind));
}

Result<void> ContourText(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, arguments.libraryReads ? contour::ReadLibraryText(arguments.files[0])
                                                         : ReadContours(arguments, 0));
  return GiveForm(arguments, contours, LibraryTextForm(contours, arguments.textForm));
}

}  // namespace vanzet::cli
