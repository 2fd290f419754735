#include "check/pictures.h"

#include <algorithm>
#include <numbers>

#include "modeller/sweep.h"
#include "results/png.h"
#include "scene/model.h"
#include "scene/picture.h"
#include "section/cut.h"
#include "section/picture.h"

namespace vanzet::check {
namespace {

using scene::Kind;
using scene::SceneBody;

constexpr int kAboutX = 1;
constexpr const char* kClash = "clash";  // the name of the bodies in red
constexpr modeller::Colour kRed = {0.83, 0.07, 0.16};
constexpr double kWedge = 6;  // degrees of a red body that is not a ring

bool IsOf(const Finding& finding, const std::string& body) {
  return std::ranges::find(finding.bodies, body) != finding.bodies.end();
}

double AngleOf(const Finding& finding) {
  return finding.area ? finding.area->degrees : 0;
}

/// The scene turned about its axis, so that the plane of the finding is the upright one.
scene::Scene Turned(scene::Scene scene, double degrees) {
  if (degrees == 0) return scene;
  for (SceneBody& body : scene.bodies) body.placement.Rotate(-degrees * std::numbers::pi / 180, kAboutX);
  return scene;
}

/// The jaw of the section, which is the upright one, gets the name of the equal jaw that is in the plane.
void NameJaws(const Finding& finding, section::Section& section) {
  for (section::SectionBody& body : section.bodies) {
    if (body.kind != Kind::kJaw) continue;
    const std::string side = body.isSub ? "sub jaw" : "main jaw";
    const auto jaw =
        std::ranges::find_if(finding.bodies, [&](const std::string& name) { return name.starts_with(side); });
    if (jaw != finding.bodies.end()) body.name = *jaw;
  }
}

/// Cuts what is not turned in the plane of the finding. The dimensions are those of the upright plane.
Result<section::Section> SectionOf(const Finding& finding, const ShownSetup& setup) {
  VANZET_TRY(auto section, section::MakeSection(setup.equipment, setup.scene));
  const scene::Scene turned = Turned(setup.scene, AngleOf(finding));
  for (section::SectionBody& body : section.bodies) {
    const auto own = std::ranges::find(turned.bodies, body.name, &SceneBody::name);
    if (body.kind == Kind::kJaw || own == turned.bodies.end() || own->profile) continue;
    VANZET_TRY(body.region, section::CutOf(*own));
  }
  NameJaws(finding, section);
  return section;
}

Result<std::string> SectionPicture(const Finding& finding, const ShownSetup& setup, const Style& style) {
  VANZET_TRY(const auto section, SectionOf(finding, setup));
  section::PictureOptions options{.unit = style.unit};
  options.alert = {.caption = std::string(finding.rule->id) + ": " + TextOf(finding, style),
                   .bodies = {finding.bodies.begin(), finding.bodies.end()},
                   .area = finding.area ? finding.area->region : geometry::Region(),
                   .place = finding.at};
  return section::PictureSvg(section, options, style.texts);
}

/// Whether what two bodies have in common goes all around the axis.
bool IsRing(const Finding& finding, const scene::Scene& scene) {
  return std::ranges::all_of(scene.bodies, [&](const SceneBody& body) {
    return !IsOf(finding, body.name) || (body.kind != Kind::kJaw && body.profile);
  });
}

/// The area of a finding as red bodies, which are cut in the upright plane: of bodies with a common face the
/// first one is seen.
void AddClash(const Finding& finding, scene::Scene& scene) {
  if (!finding.area) return;
  const double degrees = IsRing(finding, scene) ? 360 : kWedge;
  for (const geometry::RegionLoop& loop : finding.area->region.loops) {
    auto body = modeller::Spin(geometry::Kurve(geometry::ContourOf(loop)), {{0, 0, 0}, {1, 0, 0}}, degrees);
    if (!body) continue;
    geometry::Matrix placement;
    placement.Rotate(-degrees / 2 * std::numbers::pi / 180, kAboutX);
    scene.bodies.insert(scene.bodies.begin(),
                        {.name = kClash, .body = *std::move(body), .placement = placement});
  }
}

/// The bodies of the finding as they are, all others seen through.
Result<scene::Model> ModelOf(const Finding& finding, const ShownSetup& setup) {
  scene::Scene scene = Turned(setup.scene, AngleOf(finding));
  for (SceneBody& body : scene.bodies)
    body.isSeenThrough = !finding.bodies.empty() && !IsOf(finding, body.name);
  AddClash(finding, scene);
  VANZET_TRY(auto model, scene::ModelOf(scene));
  for (scene::ModelBody& body : model.bodies) {
    if (body.name == kClash) body.colour = kRed;
  }
  return scene::CutModel(model, {});
}

Result<std::string> SpacePicture(const Finding& finding, const ShownSetup& setup) {
  VANZET_TRY(const auto model, ModelOf(finding, setup));
  return results::PngOf(scene::Draw(model, {.fitted = {finding.bodies.begin(), finding.bodies.end()}}));
}

/// "EQ-201-spur0-main", with the number of a further finding.
std::string NameOf(const Finding& finding, int number) {
  return std::string(finding.rule->id) + "-spur" + std::to_string(finding.spur) + "-" +
         std::string(WordOf(finding.where)) + (number > 1 ? "-" + std::to_string(number) : "");
}

}  // namespace

Result<std::vector<Picture>> PicturesOf(const Finding& finding, int number, const ShownSetup& setup,
                                        const Style& style) {
  const std::string name = NameOf(finding, number);
  VANZET_TRY(auto section, SectionPicture(finding, setup, style));
  VANZET_TRY(auto space, SpacePicture(finding, setup));
  return std::vector<Picture>{{name + "-section.svg", std::move(section)},
                              {name + "-3d.png", std::move(space)}};
}

}  // namespace vanzet::check
