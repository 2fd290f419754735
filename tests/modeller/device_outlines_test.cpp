#include "devices/outline.h"

#include <gtest/gtest.h>

#include <algorithm>

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

/// Devices of each type whose values make sense, with a bore and without.
const DeviceParams kDevices[] = {
    {.type = 1, .A = 200, .B = 80, .C = 50},
    {.type = 1, .A = 200, .B = 80},
    {.type = 2, .A = 40, .B = 60, .C = 10, .D = 15, .E = 30, .F = 2},
    {.type = 3, .A = 40, .B = 120, .C = 20, .D = 40, .E = 60, .F = 15, .G = 20, .H = 30},
    {.type = 4, .A = 40, .B = 60, .C = 20, .D = 5, .F = 15, .I = 45},
    {.type = 5, .A = 60, .B = 50, .C = 20, .D = 35, .E = 20, .F = 40},
    {.type = 6, .A = 60, .B = 20, .C = 50, .D = 35, .E = 15, .F = 30},
    {.type = 7, .A = 60, .B = 20, .C = 50, .D = 30},
    {.type = 8, .A = 60, .B = 50, .C = 20, .D = 30},
    {.type = 9, .A = 60, .B = 50},
    {.type = 10, .A = 60, .B = 50, .C = 20, .D = 30},
    {.type = 11, .A = 60, .B = 50, .C = 20, .D = 30, .E = 10, .F = 8},
    {.type = 12, .A = 60, .B = 50, .C = 20, .D = 30, .E = 10, .F = 8},
    {.type = 13, .A = 120, .B = 80, .C = 40, .D = 10, .E = 60, .F = 40, .G = 90},
    {.type = 14, .A = 120, .B = 80, .C = 40, .D = 10, .E = 60, .F = 40, .G = 90, .H = 50, .I = 15},
};

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
  const bool isJaw = GetParam().type >= 5 && GetParam().type <= 12;
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

INSTANTIATE_TEST_SUITE_P(OfTheTables, DeviceBodies, testing::ValuesIn(kDevices), [](const auto& device) {
  return "Type" + std::to_string(device.param.type) + "Row" + std::to_string(device.index);
});

TEST(DeviceBodies, CoverEveryOutlineOfTheTables) {
  for (const devices::Device* const type : devices::Devices()) {
    for (const devices::Outline& outline : type->outlines) {
      EXPECT_TRUE(std::ranges::any_of(kDevices, [&](const DeviceParams& device) {
        return device.type == type->code && Holds(outline.bore, device);
      })) << type->code;
    }
  }
}

}  // namespace
}  // namespace vanzet::modeller
