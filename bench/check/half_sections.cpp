#include "check/half_sections.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/numbers.h"
#include "check/region_measures.h"
#include "modeller/measures.h"
#include "section/cut.h"
#include "section/section.h"

namespace vanzet::check {
namespace {

using geometry::Region;
using scene::Kind;
using scene::SceneBody;

constexpr int kAboutX = 1;
constexpr double kFineness = 0.05;  // millimetres between facets and the surface
constexpr int kPlanes = 48;

/// Where a point of the scene is in the half plane at an angle.
geometry::Matrix TurnedBack(geometry::Matrix placement, double degrees) {
  if (degrees != 0) placement.Rotate(-degrees * std::numbers::pi / 180, kAboutX);
  return placement;
}

/// The extents of facets in space: along the axis, and the distances from it.
geometry::Box BoxOf(const modeller::Mesh& mesh, const geometry::Matrix& placement) {
  geometry::Box box;
  for (const geometry::Point3d& point : mesh.points) {
    const geometry::Point3d placed = placement.Transform(point);
    box.Insert(geometry::Point(placed.x, std::hypot(placed.y, placed.z)));
  }
  return box;
}

/// The angle of a jaw by its placement, which turns the height of the jaw, z, away from the axis.
double AngleOf(const SceneBody& jaw) {
  const auto foot = jaw.placement.Transform(geometry::Point3d(0, 0, 0));
  const auto above = jaw.placement.Transform(geometry::Point3d(0, 0, 1));
  return std::atan2(above.z - foot.z, above.y - foot.y) * 180 / std::numbers::pi;
}

}  // namespace

Result<HalfSection> HalfSection::Of(const SceneBody& body) {
  HalfSection made;
  made.body_ = &body;
  if (made.IsJaw()) made.angle_ = AngleOf(body);
  if (!body.profile) {
    VANZET_TRY(auto mesh, modeller::MeshOf(body.body, {.chord = kFineness}));
    made.isClosed_ = modeller::IsClosed(mesh);
    made.box_ = BoxOf(mesh, body.placement);
    made.mesh_ = std::make_shared<const modeller::Mesh>(std::move(mesh));
  }
  if (made.IsTurned()) made.box_ = section::BoxOf(made.Own());
  return made;
}

const Region& HalfSection::At(double degrees) const {
  const double angle = IsJaw() ? angle_ : IsTurned() ? 0 : degrees;
  const auto [cut, isNew] = cuts_.try_emplace(angle);
  if (isNew) cut->second = Cut(angle);
  return cut->second;
}

Region HalfSection::Cut(double degrees) const {
  const geometry::Matrix placement = TurnedBack(body_->placement, degrees);
  if (mesh_) return section::CutOf(*mesh_, placement);
  return section::Placed(*body_->profile, {.kind = body_->kind, .placement = placement});
}

double HalfSection::Error() const {
  return body_->profile ? 0 : kFineness;
}

double HalfSection::Volume() const {
  if (!mesh_) return SpunVolume(Own());
  return std::fabs(modeller::MeasuresOf(*mesh_).volume);
}

Result<HalfSections> HalfSections::Of(const scene::Scene& scene) {
  HalfSections all;
  for (const SceneBody& body : scene.bodies) {
    auto made = HalfSection::Of(body);
    if (made) {
      all.bodies.push_back(*std::move(made));
    } else if (made.fault().kind == FaultKind::kSystem) {
      return made.fault();
    } else {
      all.unusable.emplace_back(&body, made.fault());
    }
  }
  return all;
}

const HalfSection* HalfSections::Find(Kind kind, bool isSub) const {
  const auto found = std::ranges::find_if(
      bodies, [&](const HalfSection& each) { return each.body().kind == kind && each.IsSub() == isSub; });
  return found == bodies.end() ? nullptr : &*found;
}

std::vector<const HalfSection*> HalfSections::Jaws(bool isSub) const {
  std::vector<const HalfSection*> jaws;
  for (const HalfSection& each : bodies) {
    if (each.IsJaw() && each.IsSub() == isSub) jaws.push_back(&each);
  }
  return jaws;
}

std::vector<double> AnglesFor(const HalfSection& a, const HalfSection& b) {
  if (a.IsTurned() && b.IsTurned()) return {0};
  if (a.IsJaw()) return {a.Angle()};
  if (b.IsJaw()) return {b.Angle()};
  std::vector<double> angles;
  angles.reserve(kPlanes);
  for (int i = 0; i < kPlanes; ++i) angles.push_back(i * 360.0 / kPlanes);
  return angles;
}

}  // namespace vanzet::check
