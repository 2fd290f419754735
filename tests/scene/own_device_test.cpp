#include "scene/own_device.h"

#include "modeller/sweep.h"
#include "scene/device_text.h"
#include "scene/scene_fixture.h"
#include "store/clamp_records.h"
#include "store/device_import.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

constexpr std::uint32_t kCollector = 1900;

class OwnDevices : public SceneTest {
 protected:
  static geometry::Kurve Outline() {
    geometry::Kurve outline;
    outline.Start({0, 20});
    outline.Add(geometry::Point(-40, 20));
    outline.Add(geometry::CW, {-40, 60}, {-40, 40});
    outline.Add(geometry::Point(0, 60));
    outline.Add(geometry::Point(0, 20));
    return outline;
  }

  static modeller::Body Ring() { return *modeller::Spin(Outline(), {{0, 0, 0}, {1, 0, 0}}, 360); }

  /// Imports a device as the dialog does, into operation 5, 6 or 9.
  void Import(scene::DeviceClass deviceClass, double first, double second) {
    const auto content = scene::MakeOwnDevice({deviceClass, first, second, Ring(), Outline()});
    ASSERT_TRUE(content) << content.fault().Message();
    ASSERT_TRUE(host->store.Replace(kCollector, *content));
    ASSERT_EQ(ImportDevice(0, 0, true, kCollector), 0);
    ASSERT_THAT(panel.lines, testing::IsEmpty());
  }
};

TEST_F(OwnDevices, ReachTheDefinitionAndTheScene) {
  Import(scene::DeviceClass::kChuck, 50, 0);
  WriteClampDevice(0, 0, "/own.vdm", {.type = 103, .B = 50});
  PutDatum({.outMain = 10});
  const scene::Scene shown = Shown();
  ASSERT_THAT(NamesOf(shown), ElementsAre("main chuck"));
  const double volume = modeller::MeasuresOf(Ring())->volume;
  EXPECT_NEAR(modeller::MeasuresOf(shown.bodies[0].body)->volume, volume, volume * 0.01);
  EXPECT_NEAR(BoxOf(shown, "main chuck").max.x, -10, 0.06);
  EXPECT_FALSE(shown.bodies[0].exact);
}

TEST_F(OwnDevices, HaveTheirPlugWhereTheyAreHeld) {
  struct Case {
    scene::DeviceClass deviceClass;
    std::size_t operation;
    double plug;
  };
  for (const auto& [deviceClass, operation, plug] :
       {Case{scene::DeviceClass::kChuck, 5, -50}, Case{scene::DeviceClass::kJaw, 6, 0},
        Case{scene::DeviceClass::kCenter, 9, -70}}) {
    Import(deviceClass, -50, 70);
    const auto text = scene::ReadDeviceText(Stored(), operation, Reader());
    ASSERT_TRUE(text && *text);
    EXPECT_NEAR((*text)->plug.x, plug, 1e-6) << operation;
  }
}

TEST_F(OwnDevices, HaveTheirOutlineAsD2t) {
  Import(scene::DeviceClass::kJaw, 0, 0);
  const std::vector<std::string> d2t = Stored().operations[6].sections[2];
  ASSERT_EQ(d2t.size(), 10U);
  EXPECT_EQ(d2t[5], "Contour=G0 X0.000000 Y20.000000 \\\n");
  EXPECT_EQ(d2t[7], "        G2 X-40.000000 Y60.000000 R20.000000 \\\n");
  EXPECT_EQ(d2t[9], "        G1 X0.000000 Y20.000000\n");
}

TEST_F(OwnDevices, HaveALayoutLikeThis) {
  const auto content = scene::MakeOwnDevice({scene::DeviceClass::kCenter, 1, 2.5, Ring(), Outline()});
  ASSERT_TRUE(content);
  const auto definition = *project::ReadDefinition(*content);
  ASSERT_EQ(definition.operations.size(), 2U);
  const auto& sections = definition.operations[1].sections;
  ASSERT_EQ(sections.size(), 4U);
  EXPECT_THAT(sections[0], ElementsAre("Own center"));
  EXPECT_EQ(sections[1].front(), "#VRML V2.0 utf8\n");
  EXPECT_THAT(sections[2], ElementsAre("3 3 1.000000 2.500000"));
  EXPECT_THAT(sections[3][2], StartsWith("2 -40.000000 60.000000 0 0 0 20.000000"));
}

}  // namespace
}  // namespace vanzet::test
