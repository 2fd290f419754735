#include "scene/bodies.h"

#include <algorithm>
#include <cmath>

#include "devices/kinds.h"
#include "devices/outline.h"
#include "modeller/body.h"
#include "modeller/measures.h"
#include "modeller/spun_part.h"
#include "modeller/sweep.h"

namespace vanzet::scene {
namespace {

using geometry::Kurve;
using geometry::Point;
using modeller::Body;
using MaybeBody = std::optional<Body>;

constexpr double kSameSize = 0.2;  // millimetres: what facets leave out, and the decimals of a text

const modeller::Axis kSpindle = {{0, 0, 0}, {1, 0, 0}};

Kurve Rectangle(double left, double right, double bottom, double top) {
  Kurve contour;
  contour.Start(Point(left, bottom));
  for (const Point& corner :
       {Point(right, bottom), Point(right, top), Point(left, top), Point(left, bottom)}) {
    contour.Add(corner);
  }
  return contour;
}

Result<MaybeBody> Cylinder(const Billet& billet) {
  const double front = billet.frontAllowance;
  const double rear =
      billet.barLength > 0 ? front - billet.barLength : -billet.partLength - billet.rearAllowance;
  const double bore = std::max(billet.innerDiameter, 0.0);
  if (!(front > rear) || !(billet.outerDiameter > bore)) return MaybeBody();
  VANZET_TRY(const Body body,
             modeller::Spin(Rectangle(rear, front, bore / 2, billet.outerDiameter / 2), kSpindle, 360));
  return MaybeBody(body);
}

Result<std::vector<Kurve>> CurvesOf(const std::string& name, const Sources& sources) {
  if (name.empty()) return std::vector<Kurve>();
  return sources.figure(name);
}

Result<MaybeBody> FromFigures(const std::string& outsideName, const std::string& insideName,
                              const Sources& sources) {
  VANZET_TRY(const std::vector<Kurve> outside, CurvesOf(outsideName, sources));
  VANZET_TRY(const std::vector<Kurve> inside, CurvesOf(insideName, sources));
  auto body = modeller::SpinPart(outside, inside);
  if (!body) return Fault{"figure '" + outsideName + "': " + body.fault().text};
  return body;
}

Result<MaybeBody> FromSolid(const std::string& name, double angle, const Sources& sources) {
  VANZET_TRY(const Body solid, sources.body(name));
  VANZET_TRY(const Body turned, modeller::TurnBody(solid, kSpindle, angle));
  return MaybeBody(turned);
}

Kurve ContourOf(const std::vector<OutlineVertex>& outline) {
  Kurve contour;
  contour.Start({outline.front().x, outline.front().y});
  for (std::size_t i = 1; i <= outline.size(); ++i) {
    const OutlineVertex& vertex = outline[i % outline.size()];
    contour.Add(Point(vertex.x, vertex.y));
  }
  return contour;
}

Result<Body> JawOf(const Kurve& contour, double thickness) {
  VANZET_TRY(const Body block, modeller::Extrude(contour, thickness));
  VANZET_TRY(const Body centred, modeller::MoveBody(block, {0, 0, -thickness / 2}));
  return modeller::TurnBody(centred, kSpindle, 90);
}

bool AreAlike(const geometry::Point3d& a, const geometry::Point3d& b) {
  return std::abs(a.x - b.x) < kSameSize && std::abs(a.y - b.y) < kSameSize &&
         std::abs(a.z - b.z) < kSameSize;
}

}  // namespace

Result<MaybeBody> BodyOf(const Billet& billet, const Sources& sources) {
  switch (billet.type) {
    case billet_type::kCylinder: return Cylinder(billet);
    case billet_type::kFigures: return FromFigures(billet.outside, billet.inside, sources);
    case billet_type::kSolid: return FromSolid(billet.solid, billet.angle, sources);
    default: return MaybeBody();
  }
}

Result<MaybeBody> BodyOf(const FinishPart& part, const Sources& sources) {
  switch (part.type) {
    case finish_part_type::kFigures: return FromFigures(part.outside, part.inside, sources);
    case finish_part_type::kSolid: return FromSolid(part.solid, 0, sources);
    default: return MaybeBody();
  }
}

std::optional<Body> ExactBody(const DeviceParams& params, const Body& facets) {
  const std::vector<OutlineVertex> outline = OutlineOf(params);
  if (outline.empty()) return std::nullopt;
  const Kurve contour = ContourOf(outline);
  const auto body = devices::IsJaw(params.type) ? JawOf(contour, devices::ThicknessOf(params))
                                                : modeller::Spin(contour, kSpindle, 360);
  if (!body) return std::nullopt;
  const auto box = modeller::Extents(*body), shown = modeller::Extents(facets);
  if (!box || !shown || !AreAlike(box->min, shown->min) || !AreAlike(box->max, shown->max)) {
    return std::nullopt;
  }
  return *body;
}

}  // namespace vanzet::scene
