#include "scene/profile.h"

#include <algorithm>

#include "devices/outline.h"
#include "modeller/spun_part.h"

namespace vanzet::scene {
namespace {

using geometry::Kurve;
using geometry::Point;
using geometry::Region;

std::optional<Region> Valid(Region region) {
  if (!region.ok || region.loops.empty()) return std::nullopt;
  return region;
}

Region UnionOf(const std::vector<Kurve>& contours) {
  Region all;
  for (const Kurve& contour : contours) {
    all = geometry::Unite(all, geometry::Clean(geometry::KurveEx(contour)));
  }
  return all;
}

/// The region inside of the outer figure and outside of the inner one.
std::optional<Region> BetweenFigures(const std::string& outside, const std::string& inside,
                                     const Sources& sources) {
  const auto part = CurvesNamed(outside, sources), bore = CurvesNamed(inside, sources);
  if (!part || !bore) return std::nullopt;
  return Valid(
      geometry::Subtract(UnionOf(modeller::HalfSections(*part)), UnionOf(modeller::HalfSections(*bore))));
}

}  // namespace

std::optional<Kurve> CylinderSection(const Billet& billet) {
  const double front = billet.frontAllowance;
  const double rear =
      billet.barLength > 0 ? front - billet.barLength : -billet.partLength - billet.rearAllowance;
  const double bore = std::max(billet.innerDiameter, 0.0) / 2, radius = billet.outerDiameter / 2;
  if (!(front > rear) || !(radius > bore)) return std::nullopt;
  Kurve contour;
  contour.Start(Point(rear, bore));
  for (const Point& corner :
       {Point(front, bore), Point(front, radius), Point(rear, radius), Point(rear, bore)}) {
    contour.Add(corner);
  }
  return contour;
}

std::optional<Kurve> DeviceContour(const DeviceParams& params) {
  const std::vector<OutlineVertex> outline = OutlineOf(params);
  if (outline.empty()) return std::nullopt;
  Kurve contour;
  contour.Start({outline.front().x, outline.front().y});
  for (std::size_t i = 1; i <= outline.size(); ++i) {
    const OutlineVertex& vertex = outline[i % outline.size()];
    contour.Add(Point(vertex.x, vertex.y));
  }
  return contour;
}

Result<std::vector<Kurve>> CurvesNamed(const std::string& name, const Sources& sources) {
  if (name.empty()) return std::vector<Kurve>();
  return sources.figure(name);
}

std::optional<Region> ProfileOf(const DeviceParams& params) {
  const auto contour = DeviceContour(params);
  return contour ? Valid(UnionOf({*contour})) : std::nullopt;
}

std::optional<Region> ProfileOf(const Billet& billet, const Sources& sources) {
  if (billet.type == billet_type::kFigures) return BetweenFigures(billet.outside, billet.inside, sources);
  if (billet.type != billet_type::kCylinder) return std::nullopt;
  const auto contour = CylinderSection(billet);
  return contour ? Valid(UnionOf({*contour})) : std::nullopt;
}

std::optional<Region> ProfileOf(const FinishPart& part, const Sources& sources) {
  if (part.type != finish_part_type::kFigures) return std::nullopt;
  return BetweenFigures(part.outside, part.inside, sources);
}

}  // namespace vanzet::scene
