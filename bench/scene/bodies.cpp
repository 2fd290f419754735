#include "scene/bodies.h"

#include <algorithm>
#include <cmath>

#include "devices/kinds.h"
#include "modeller/body.h"
#include "modeller/measures.h"
#include "modeller/spun_part.h"
#include "modeller/sweep.h"
#include "scene/profile.h"

namespace vanzet::scene {
namespace {

using geometry::Kurve;
using modeller::Body;
using MaybeBody = std::optional<Body>;

constexpr double kSameSize = 0.2;  // millimetres: what facets leave out, and the decimals of a text

const modeller::Axis kSpindle = {{0, 0, 0}, {1, 0, 0}};

Result<MaybeBody> Cylinder(const Billet& billet) {
  const auto section = CylinderSection(billet);
  if (!section) return MaybeBody();
  VANZET_TRY(const Body body, modeller::Spin(*section, kSpindle, 360));
  return MaybeBody(body);
}

Result<MaybeBody> FromFigures(const std::string& outsideName, const std::string& insideName,
                              const Sources& sources) {
  VANZET_TRY(const std::vector<Kurve> outside, CurvesNamed(outsideName, sources));
  VANZET_TRY(const std::vector<Kurve> inside, CurvesNamed(insideName, sources));
  auto body = modeller::SpinPart(outside, inside);
  if (!body) return Fault{"figure '" + outsideName + "': " + body.fault().text};
  return body;
}

Result<MaybeBody> FromSolid(const std::string& name, double angle, const Sources& sources) {
  VANZET_TRY(const Body solid, sources.body(name));
  VANZET_TRY(const Body turned, modeller::TurnBody(solid, kSpindle, angle));
  return MaybeBody(turned);
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

std::optional<Body> DeviceBody(const DeviceParams& params) {
  const auto contour = DeviceContour(params);
  if (!contour) return std::nullopt;
  const auto body = devices::IsJaw(params.type) ? JawOf(*contour, devices::ThicknessOf(params))
                                                : modeller::Spin(*contour, kSpindle, 360);
  if (!body) return std::nullopt;
  return *body;
}

std::optional<Body> ExactBody(const DeviceParams& params, const Body& facets) {
  auto body = DeviceBody(params);
  if (!body) return std::nullopt;
  const auto box = modeller::Extents(*body), shown = modeller::Extents(facets);
  if (!box || !shown || !AreAlike(box->min, shown->min) || !AreAlike(box->max, shown->max)) {
    return std::nullopt;
  }
  return body;
}

}  // namespace vanzet::scene
