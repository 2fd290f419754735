#include "cli/contour/region.h"

#include <algorithm>
#include <cmath>
#include <iostream>

#include <nlohmann/json.hpp>

#include "base/number_text.h"
#include "cli/contour/files.h"
#include "cli/output.h"
#include "contour/builder.h"
#include "contour/library.h"
#include "contour/region.h"

namespace vanzet::cli {
namespace {

using contour::Contour;
using contour::Contours;
using contour::Drawing;
using geometry::Region;

constexpr int kDecimals = 4;

std::string PlaceText(const geometry::Point& p) {
  return DecimalText(p.x, kDecimals) + ", " + DecimalText(p.y, kDecimals);
}

bool AlwaysMakesRegion(const ContourArguments&, const Contours&) {
  return true;
}

Result<Region> InFile(Result<Region> region, const std::string& file) {
  if (region) return region;
  Fault fault = region.fault();
  fault.file = file;
  return fault;
}

/// Writes the files that the command asks for, and prints the region.
Result<void> WriteRegion(const ContourArguments& arguments, Drawing drawing, const Region& region) {
  const Contours loops = contour::ContoursOf(region);
  // At the bottom, since it is filled.
  drawing.layers.insert(drawing.layers.begin(), {Drawing::Role::kMain, &loops, "result"});
  if (loops.empty()) std::cerr << "vanzet: the region is empty\n";
  if (!arguments.json) return WriteContours(arguments, drawing, loops);
  VANZET_DO(WriteDrawings(arguments, drawing, loops));
  return PrintResult(arguments, contour::JsonForm(region));
}

using Combination = Region (*)(const Region&, const Region&);

/// Reads the regions of both files and writes their combination.
Result<void> Combine(const ContourArguments& arguments, Combination combine) {
  VANZET_TRY(const Contours first, ReadContours(arguments, 0, AlwaysMakesRegion));
  VANZET_TRY(const Contours second, ReadContours(arguments, 1, AlwaysMakesRegion));
  VANZET_TRY(const Region a, InFile(RegionOf(first), arguments.files[0]));
  VANZET_TRY(const Region b, InFile(RegionOf(second), arguments.files[1]));
  VANZET_TRY(const Region made, contour::Checked(combine(a, b)));
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kUnderlay, &first, "A"});
  drawing.layers.push_back({Drawing::Role::kUnderlay, &second, "B"});
  return WriteRegion(arguments, drawing, made);
}

Result<Region> OffsetRegionOf(const ContourArguments& arguments, const Contours& contours) {
  const geometry::RegionOffset options{arguments.corner.value_or(geometry::Corner::Round)};
  const double distance = arguments.numbers[0];
  if (arguments.thicken) return contour::Thicken(contours, distance, *arguments.thicken, options);
  for (const Contour& contour : contours) {
    if (contour.curve.Closed()) continue;
    return Fault{contour::NameOf(contour) +
                 " is open: a region needs closed contours; --thicken takes open ones"};
  }
  VANZET_TRY(const Region region, RegionOf(contours));
  return contour::Checked(OffsetRegion(region, distance * arguments.Side().direction, options));
}

}  // namespace

bool WantsRegion(const ContourArguments& arguments, const Contours& contours) {
  if (arguments.AsksForRegion()) return true;
  const auto isClosed = [](const Contour& contour) { return contour.curve.Closed(); };
  return !arguments.AsksForContours() && contours.size() > 1 && std::ranges::all_of(contours, isClosed);
}

Result<void> OffsetAsRegion(const ContourArguments& arguments, const Contours& contours) {
  VANZET_TRY(const Region made, InFile(OffsetRegionOf(arguments, contours), arguments.files[0]));
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kUnderlay, &contours, "before"});
  return WriteRegion(arguments, drawing, made);
}

Result<void> ContourClean(const ContourArguments& arguments) {
  VANZET_TRY(const Contours contours, ReadContours(arguments, 0, AlwaysMakesRegion));
  VANZET_TRY(const Region region, InFile(RegionOf(contours), arguments.files[0]));
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kUnderlay, &contours, "before"});
  return WriteRegion(arguments, drawing, region);
}

Result<void> ContourUnite(const ContourArguments& arguments) {
  return Combine(arguments, geometry::Unite);
}

Result<void> ContourSubtract(const ContourArguments& arguments) {
  return Combine(arguments, geometry::Subtract);
}

Result<void> IntersectAreas(const ContourArguments& arguments) {
  return Combine(arguments, geometry::Intersect);
}

namespace {

/// The arcs that the offset to the left would have, but for the library's least radius.
std::size_t SmallArcsOf(const Contour& source, double distance) {
  constexpr double kNothing = 1e-9;
  const auto& spans = source.curve.spans;
  return static_cast<std::size_t>(std::count_if(spans.begin(), spans.end(), [&](const auto& span) {
    const double radius = Dist(span.p0, span.pc) - span.dir * distance;
    return span.dir != geometry::LINEAR && radius > kNothing && radius <= geometry::TOLERANCE;
  }));
}

}  // namespace

void WarnOfOffset(const Contour& source, const Contour& offset, double distance) {
  using Finding = geometry::OffsetCheck::Finding;
  const auto warn = [&](const std::string& text) {
    std::cerr << "vanzet: the offset of " + contour::NameOf(source) + " by " +
                     DecimalText(std::fabs(distance), kDecimals) + " mm " + text +
                     (source.curve.Closed() ? "; --region makes all of it\n" : "\n");
  };
  const auto small = SmallArcsOf(source, distance);
  if (small > 0) warn("leaves out " + Counted(small, "arc") + " that shrank to less than 0.005 mm radius");
  const auto check = contour::Guarded([&] { return CheckOffset(source.curve, offset.curve, distance); });
  if (!check) return warn("cannot be checked: " + check.fault().Message());
  if (check->finding == Finding::Crosses) return warn("crosses itself at " + PlaceText(check->place));
  if (check->finding == Finding::TooNear) {
    return warn("is only " + DecimalText(check->nearest, kDecimals) + " mm away at " +
                PlaceText(check->place));
  }
  if (!source.curve.Closed()) return;
  const Region whole = OffsetRegion(Clean(source.curve), distance * source.curve.Direction());
  if (whole.loops.size() > 1)
    warn("has " + std::to_string(whole.loops.size()) + " loops, of which one is made");
}

}  // namespace vanzet::cli
