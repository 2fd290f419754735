#include "scene/device_text.h"

#include <cmath>
#include <numbers>

#include "devices/outline.h"
#include "scene/scene_fixture.h"

namespace vanzet::test {
namespace {

/// Area and first moment about the x axis.
struct Sums {
  double area = 0, moment = 0;
};
Sums SumsOf(const DeviceParams& device) {
  const std::vector<OutlineVertex> outline = OutlineOf(device);
  Sums sums;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const OutlineVertex &a = outline[i], &b = outline[(i + 1) % outline.size()];
    const double cross = a.x * b.y - b.x * a.y;
    sums.area += cross / 2;
    sums.moment += cross * (a.y + b.y) / 6;
  }
  return {std::abs(sums.area), std::abs(sums.moment)};
}

class DeviceTexts : public SceneTest {
 protected:
  scene::DeviceText Read(std::size_t operation) {
    const auto text = scene::ReadDeviceText(Stored(), operation, Reader());
    if (text && *text) return **text;
    ADD_FAILURE() << (text ? "nothing there" : text.fault().Message());
    return {modeller::Body(nullptr), {}, {}, 0};
  }
};

TEST_F(DeviceTexts, OfWhatIsSpunHaveTheVolumeOfPappus) {
  const DeviceParams devices[] = {
      kChuck,
      {.type = 1, .A = 100, .B = 50},
      kCollet,
      {.type = 3, .A = 40, .B = 120, .C = 20, .D = 40, .E = 60, .F = 15, .G = 20, .H = 30},
      {.type = 4, .A = 40, .B = 60, .C = 20, .D = 5, .F = 15, .I = 45},
  };
  for (const DeviceParams& device : devices) {
    Clamp(0, device, {});
    const scene::DeviceText text = Read(5);
    const auto measures = *modeller::MeasuresOf(text.body);
    const double volume = 2 * std::numbers::pi * SumsOf(device).moment;
    EXPECT_TRUE(measures.closed) << device.type;
    EXPECT_NEAR(measures.volume, volume, volume * 0.01) << device.type;
    const auto box = *modeller::Extents(text.body);
    EXPECT_NEAR(box.min.x, -device.B, 1e-3) << device.type;
    EXPECT_NEAR(box.max.y, device.A, 0.06) << device.type;
    EXPECT_NEAR(text.plug.x, -device.B, 1e-6) << device.type;
    EXPECT_NEAR(text.socket.x, 0, 1e-6) << device.type;
    EXPECT_NEAR(text.reach, device.B, 1e-6) << device.type;
  }
}

TEST_F(DeviceTexts, OfJawsHaveTheVolumeOfTheirAreaTimesTheirThickness) {
  const DeviceParams jaws[] = {
      {.type = 5, .A = 60, .B = 50, .C = 20, .D = 35, .E = 20, .F = 40, .H = 25},
      kHardJaw,
      {.type = 7, .A = 60, .B = 20, .C = 50, .D = 30, .F = 25},
      {.type = 9, .A = 60, .B = 50, .D = 25},
  };
  for (const DeviceParams& jaw : jaws) {
    Clamp(0, kChuck, jaw);
    const scene::DeviceText text = Read(6);
    const double thickness = jaw.type == 7 ? jaw.F : jaw.type == 9 ? jaw.D : jaw.H;
    const double volume = SumsOf(jaw).area * thickness;
    EXPECT_NEAR(modeller::MeasuresOf(text.body)->volume, volume, volume * 1e-5) << jaw.type;
    const auto box = *modeller::Extents(text.body);
    EXPECT_NEAR(box.min.y, -thickness / 2, 1e-5) << jaw.type;
    EXPECT_NEAR(box.max.z, jaw.A, 1e-5) << jaw.type;
    EXPECT_NEAR(text.plug.x, 0, 1e-6) << jaw.type;
  }
}

TEST_F(DeviceTexts, OfACenterHaveItsTipAtTheOriginAndItsFootBehindByA) {
  PutCenter(kCenter, true);
  const scene::DeviceText text = Read(9);
  const auto box = *modeller::Extents(text.body);
  EXPECT_NEAR(box.max.x, 0, 1e-6);
  EXPECT_NEAR(box.min.x, -kCenter.A, 1e-3);
  EXPECT_NEAR(text.plug.x, -kCenter.A, 1e-6);
  const double volume = 2 * std::numbers::pi * SumsOf(kCenter).moment;
  EXPECT_NEAR(modeller::MeasuresOf(text.body)->volume, volume, volume * 0.01);
}

TEST_F(DeviceTexts, ThatAreNotThereAreNone) {
  const auto text = scene::ReadDeviceText(Stored(), 5, Reader());
  ASSERT_TRUE(text);
  EXPECT_FALSE(*text);
}

TEST_F(DeviceTexts, ThatAreNoVrmlAreToldWithTheirOperation) {
  project::Definition definition = Stored();
  definition.operations[5].sections[1] = {"#VRML V2.0 utf8\n", "Shape {\n",
                                          "geometry IndexedFaceSet { nonsense }\n"};
  const auto text = scene::ReadDeviceText(definition, 5, Reader());
  ASSERT_FALSE(text);
  EXPECT_THAT(text.fault().text,
              testing::StartsWith("operation 5, VRML Main Clampdevice: not a readable VRML text"));
}

TEST_F(DeviceTexts, WithAFaceWithoutItsPointAreRefused) {
  project::Definition definition = Stored();
  definition.operations[5].sections[1] = {
      "#VRML V2.0 utf8\n",
      "Shape { geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } "
      "coordIndex [ 0 1 7 -1 ] } }\n"};
  const auto text = scene::ReadDeviceText(definition, 5, Reader());
  ASSERT_FALSE(text);
  EXPECT_THAT(text.fault().text, testing::HasSubstr("a point that does not exist"));
}

}  // namespace
}  // namespace vanzet::test
