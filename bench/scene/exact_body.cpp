#include "scene/exact_body.h"

#include <cmath>

#include "devices/kinds.h"
#include "devices/outline.h"
#include "modeller/body.h"
#include "modeller/measures.h"
#include "modeller/sweep.h"

namespace vanzet::scene {
namespace {

using geometry::Box3d;
using modeller::Body;

constexpr double kSameSize = 0.2;  // millimetres: what facets leave out, and the decimals of a text

const modeller::Axis kSpindle = {{0, 0, 0}, {1, 0, 0}};

geometry::Kurve ContourOf(const std::vector<OutlineVertex>& outline) {
  geometry::Kurve contour;
  contour.Start({outline.front().x, outline.front().y});
  for (std::size_t i = 1; i <= outline.size(); ++i) {
    const OutlineVertex& vertex = outline[i % outline.size()];
    contour.Add(geometry::Point(vertex.x, vertex.y));
  }
  return contour;
}

Result<Body> JawOf(const geometry::Kurve& contour, double thickness) {
  const auto block = modeller::Extrude(contour, thickness);
  if (!block) return block;
  const auto centred = modeller::MoveBody(*block, {0, 0, -thickness / 2});
  if (!centred) return centred;
  return modeller::TurnBody(*centred, kSpindle, 90);
}

bool AreAlike(const geometry::Point3d& a, const geometry::Point3d& b) {
  return std::abs(a.x - b.x) < kSameSize && std::abs(a.y - b.y) < kSameSize &&
         std::abs(a.z - b.z) < kSameSize;
}

}  // namespace

std::optional<Body> ExactBody(const DeviceParams& params, const Body& facets) {
  const std::vector<OutlineVertex> outline = OutlineOf(params);
  if (outline.empty()) return std::nullopt;
  const geometry::Kurve contour = ContourOf(outline);
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
