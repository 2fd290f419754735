#include "devices/outline.h"

#include <gtest/gtest.h>

#include "devices/kinds.h"
#include "modeller/contours.h"
#include "modeller/measures.h"
#include "modeller/mesh.h"
#include "modeller/solids.h"
#include "modeller/sweep.h"
#include "support/vdm_values.h"

namespace vanzet {

static void PrintTo(const DeviceParams& device, std::ostream* out) {
  *out << "type " << device.type;
}

}  // namespace vanzet

namespace vanzet::modeller {
namespace {

using namespace test;

/// An example of every type, for each of its outlines.
std::vector<DeviceParams> Examples() {
  std::vector<DeviceParams> examples;
  for (const devices::Device* const device : devices::Devices()) {
    for (const devices::Outline& outline : device->outlines) {
      examples.push_back(device->example);
      if (outline.bore == devices::Bore::kNone) examples.back().C = 0;
    }
  }
  return examples;
}

/// Area and its first moment about the x axis of a closed polygon.
struct PolygonSums {
  double area = 0;
  double moment = 0;
};
PolygonSums SumsOf(const std::vector<OutlineVertex>& polygon) {
  PolygonSums sums;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const OutlineVertex& a = polygon[i];
    const OutlineVertex& b = polygon[(i + 1) % polygon.size()];
    const double cross = a.x * b.y - b.x * a.y;
    sums.area += cross / 2;
    sums.moment += cross * (a.y + b.y) / 6;
  }
  return sums;
}

geometry::Kurve ContourOf(const std::vector<OutlineVertex>& polygon) {
  std::vector<Corner> corners;
  for (const OutlineVertex& vertex : polygon) corners.push_back({vertex.x, vertex.y});
  corners.push_back(corners.front());
  return Through(corners);
}

class DeviceBodies : public testing::TestWithParam<DeviceParams> {
 protected:
  Millimetres millimetres_;
};

TEST_P(DeviceBodies, AreSoundWithTheVolumeOfTheirOutline) {
  const auto outline = OutlineOf(GetParam());
  ASSERT_FALSE(outline.empty());
  const PolygonSums sums = SumsOf(outline);
  const bool isJaw = devices::IsJaw(GetParam().type);
  const auto made =
      isJaw ? Extrude(ContourOf(outline), 30) : Spin(ContourOf(outline), {{0, 0, 0}, {1, 0, 0}}, 360);
  ASSERT_TRUE(made) << made.fault().Message();
  const double volume = isJaw ? std::abs(sums.area) * 30 : 2 * std::numbers::pi * std::abs(sums.moment);
  EXPECT_TRUE(IsSound(*made));
  EXPECT_TRUE(Measured(*made).closed);
  EXPECT_NEAR(Measured(*made).volume, volume, volume * 1e-6);
  const Mesh mesh = Get(MeshOf(*made, {}));
  EXPECT_TRUE(IsClosed(mesh));
  EXPECT_NEAR(MeasuresOf(mesh).volume, volume, volume * 0.02);
}

INSTANTIATE_TEST_SUITE_P(OfTheTables, DeviceBodies, testing::ValuesIn(Examples()), [](const auto& device) {
  return "Type" + std::to_string(device.param.type) + "Row" + std::to_string(device.index);
});

}  // namespace
}  // namespace vanzet::modeller
