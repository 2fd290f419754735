#pragma once

#include <gmock/gmock.h>

#include "check/check.h"
#include "contour/library.h"
#include "modeller/booleans.h"
#include "modeller/sweep.h"
#include "scene/equipment.h"

namespace vanzet::test {

/// A set-up that is possible on both spindles, to be spoilt: a chuck with three soft jaws, a billet of 42 mm
/// that is clamped along 60 mm and reaches 42 mm out.
class SetupTest : public testing::TestWithParam<bool> {
 protected:
  SetupTest() {
    contour::UseMillimetres();
    definition.version = 100;
    Side(false);
    Side(true);
    equipment.spindles[0].origin = 100;
    equipment.spindles[1].origin = 400;
  }

  static constexpr DeviceParams kChuck = {1, 80, 90, 22.5}, kSoftJaw = {9, 38, 62, 12, 24},
                                kCollet = {2, 33, 94, 12, 21, 38, 2.5},
                                kFaceDriver = {4, 50, 110, 80, 22, 10, 26, 5, 5, 35},
                                kCenter = {13, 110, 55, 32, 10, 30, 22, 60};

  void Side(bool isSub) {
    scene::Spindle& spindle = equipment.spindles[isSub ? 1 : 0];
    spindle = {};
    spindle.clamp = {"Chuck 160", kChuck};
    spindle.jaw = {"Soft jaw 160", kSoftJaw};
    spindle.billet = {.type = scene::billet_type::kCylinder,
                      .partLength = 100,
                      .outerDiameter = 42,
                      .frontAllowance = 2,
                      .clampDiameter = 42};
    spindle.clampingOut = 40;
  }

  /// The spindle that a test of both is about.
  scene::Spindle& Spoilt() { return equipment.spindles[GetParam() ? 1 : 0]; }
  static std::string Place() { return GetParam() ? "sub" : "main"; }

  /// The half section of a rectangle.
  static geometry::Kurve Rectangle(double fromX, double fromY, double toX, double toY) {
    geometry::Kurve curve;
    curve.Start(geometry::Point(fromX, fromY));
    for (const auto& [x, y] :
         {std::pair(toX, fromY), std::pair(toX, toY), std::pair(fromX, toY), std::pair(fromX, fromY)})
      curve.Add(geometry::Point(x, y));
    return curve;
  }

  /// A solid that is made by turning such a rectangle.
  void AddSolid(const std::string& name, const geometry::Kurve& section) {
    const auto body = modeller::Spin(section, {{0, 0, 0}, {1, 0, 0}}, 360);
    ASSERT_TRUE(body) << body.fault().text;
    solids.emplace(name, *body);
  }

  /// The same with a rib on it, a part of a turn from an angle on.
  void AddRibbed(const std::string& name, const geometry::Kurve& section, const geometry::Kurve& rib,
                 double from, double degrees) {
    const modeller::Axis spindle = {{0, 0, 0}, {1, 0, 0}};
    const auto body = modeller::Spin(section, spindle, 360), part = modeller::Spin(rib, spindle, degrees);
    ASSERT_TRUE(body && part);
    const auto turned = modeller::TurnBody(*part, spindle, from);
    ASSERT_TRUE(turned);
    const auto both = modeller::JoinBodies({*body, *turned});
    ASSERT_TRUE(both) << both.fault().text;
    solids.insert_or_assign(name, *both);
  }

  void UseSolid(const std::string& name, double length, double clampDiameter) {
    Spoilt().billet = {.type = scene::billet_type::kSolid,
                       .partLength = length,
                       .clampDiameter = clampDiameter,
                       .solid = name};
  }
  void UseFigure(const std::string& name, double length) {
    Spoilt().billet = {.type = scene::billet_type::kFigures, .partLength = length, .outside = name};
  }
  void UsePart(const std::string& figure) {
    Spoilt().finishPart = {.type = scene::finish_part_type::kFigures, .outside = figure};
  }

  scene::Scene Scene() const {
    const scene::Sources sources = {.figure = [&](const std::string& name) { return Figure(name); },
                                    .body = [&](const std::string& name) { return Solid(name); },
                                    .exchange = {},
                                    .hasDevicesByValues = true};
    auto scene = scene::MakeScene(equipment, definition, sources);
    EXPECT_TRUE(scene) << scene.fault().text;
    return scene ? *std::move(scene) : scene::Scene();
  }

  std::vector<check::Finding> FindingsIn(const scene::Scene& scene) const {
    const auto found = check::Check({.spur = 0,
                                     .definition = definition,
                                     .equipment = equipment,
                                     .scene = scene,
                                     .shop = shop,
                                     .job = job,
                                     .severities = severities});
    EXPECT_TRUE(found) << found.fault().text;
    if (!found) return {};
    for (const check::Finding& finding : *found) {
      EXPECT_TRUE(!finding.change || !check::KeyOf(*finding.change).empty()) << finding.change->value;
    }
    return *found;
  }

  std::vector<check::Finding> Findings() const { return FindingsIn(Scene()); }

  /// The findings but those about simulation data, of which a set-up made from values alone has none.
  std::vector<check::Finding> Found() const {
    std::vector<check::Finding> found = Findings();
    std::erase_if(found, [](const check::Finding& finding) { return finding.rule->id == "EQ-105"; });
    return found;
  }

  /// "EQ-201 main"
  static std::string RuleAndPlace(const check::Finding& finding) {
    return std::string(finding.rule->id) + " " + std::string(check::WordOf(finding.where));
  }
  std::vector<std::string> Rules() const {
    std::vector<std::string> rules;
    for (const check::Finding& finding : Found()) rules.push_back(RuleAndPlace(finding));
    return rules;
  }

  static double ValueOf(const check::Finding& finding, const std::string& name) {
    const auto value = std::ranges::find(finding.values, name, &check::Value::name);
    return value == finding.values.end() ? -1 : value->number;
  }

  scene::Equipment equipment;
  project::Definition definition;
  catalogue::Shop shop;
  check::Job job;
  check::Severities severities;
  std::map<std::string, geometry::Kurve> figures;
  std::map<std::string, modeller::Body> solids;

 private:
  Result<std::vector<geometry::Kurve>> Figure(const std::string& name) const {
    const auto found = figures.find(name);
    if (found == figures.end()) return Fault{name + " does not exist"};
    return std::vector<geometry::Kurve>{found->second};
  }
  Result<modeller::Body> Solid(const std::string& name) const {
    const auto found = solids.find(name);
    if (found == solids.end()) return Fault{name + " does not exist"};
    return found->second;
  }
};

inline std::string SpindleName(const testing::TestParamInfo<bool>& info) {
  return info.param ? "Sub" : "Main";
}

}  // namespace vanzet::test
