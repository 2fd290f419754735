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
// Millimetres between facets and the surface, of a body that has nothing else, and of any other.
constexpr double kFineness = 0.05, kFineFacets = 0.02;

/// Where a point of the scene is in the half plane at an angle.
geometry::Matrix TurnedBack(geometry::Matrix placement, double degrees) {
  if (degrees != 0) placement.Rotate(-degrees * std::numbers::pi / 180, kAboutX);
  return placement;
}

/// The extents of facets in space: along the axis, and away from it. The axis may go through the body where
/// no point is near.
geometry::Box BoxOf(const modeller::Mesh& mesh, const geometry::Matrix& placement) {
  geometry::Box box;
  for (const geometry::Point3d& point : mesh.points) {
    const geometry::Point3d placed = placement.Transform(point);
    box.Insert(geometry::Point(placed.x, 0));
    box.Insert(geometry::Point(placed.x, std::hypot(placed.y, placed.z)));
  }
  return box;
}

Soundness SoundnessOf(const modeller::Mesh& mesh) {
  constexpr double kNothing = 1e-3;  // cubic millimetres
  const modeller::Measures measures = modeller::MeasuresOf(mesh);
  if (!measures.closed) return Soundness::kOpen;
  if (std::fabs(measures.volume) < kNothing) return Soundness::kWithoutVolume;
  return measures.volume < 0 ? Soundness::kInsideOut : Soundness::kSound;
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
    made.soundness_ = SoundnessOf(mesh);
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

double HalfSection::FacetError() const {
  return body_->profile ? kFineFacets : kFineness;
}

Result<const FacetTree*> HalfSection::Facets() const {
  if (facets_) return facets_.get();
  std::shared_ptr<const modeller::Mesh> mesh = mesh_;
  if (!mesh) {
    const modeller::Body& whole = body_->exact ? *body_->exact : body_->body;
    VANZET_TRY(auto made, modeller::MeshOf(whole, {.chord = kFineFacets}));
    mesh = std::make_shared<const modeller::Mesh>(std::move(made));
  }
  facets_ = std::make_shared<const FacetTree>(PlacedFacets(*mesh, body_->placement), IsClosed());
  return facets_.get();
}

double HalfSection::Volume() const {
  if (!mesh_) return SpunVolume(Own());
  return std::fabs(modeller::MeasuresOf(*mesh_).volume);
}

HalfSections HalfSections::Of(const scene::Scene& scene) {
  HalfSections all;
  for (const SceneBody& body : scene.bodies) {
    auto made = HalfSection::Of(body);
    if (made) {
      all.bodies.push_back(*std::move(made));
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

}  // namespace vanzet::check
