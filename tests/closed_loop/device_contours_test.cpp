#include <cmath>

#include "api/host_fixture.h"
#include "closed_loop/sensible_devices.h"
#include "devices/kinds.h"
#include "devices/outline.h"
#include "devices/solid_check.h"
#include "host/bridge.h"
#include "host/host_functions.h"
#include "host/macro_variables.h"
#include "macro/device_contour.h"
#include "macro/device_record.h"

namespace vanzet::test {
namespace {

using testing::IsEmpty;

/// How far a vertex may lie from where the table puts it, in millimetres.
constexpr double kTolerance = 1e-9;

class DeviceContours : public HostTest {
 protected:
  /// The vertices of a contour, the closing one left out.
  std::vector<OutlineVertex> VerticesOf(int contour) {
    const geometry::Kurve* const curve = host->board.FindContour(contour);
    if (curve == nullptr || !curve->Closed()) return {};
    std::vector<OutlineVertex> vertices;
    for (int i = 0; i + 1 < curve->nVertices; ++i) {
      geometry::Point end, centre;
      EXPECT_EQ(curve->Get(i, end, centre), 0) << "a straight span";
      vertices.push_back({end.x, end.y});
    }
    return vertices;
  }

  /// Whether the lines that are sent for a device give its outline.
  testing::AssertionResult GivesItsOutline(const DeviceParams& device, int contour) {
    if (!BuildDeviceContour(device, contour)) return testing::AssertionFailure() << "nothing was made";
    const std::vector<OutlineVertex> made = VerticesOf(contour);
    const std::vector<OutlineVertex> expected = OutlineOf(device);
    if (made.size() != expected.size()) {
      return testing::AssertionFailure() << made.size() << " vertices, not " << expected.size();
    }
    for (std::size_t i = 0; i < made.size(); ++i) {
      if (std::hypot(made[i].x - expected[i].x, made[i].y - expected[i].y) > kTolerance) {
        return testing::AssertionFailure() << "vertex " << i << " lies at " << made[i].x << ", " << made[i].y
                                           << ", not " << expected[i].x << ", " << expected[i].y;
      }
    }
    return testing::AssertionSuccess();
  }

  /// Whether the host makes a solid of the contour of a device, without a message.
  bool MakesItsSolid(const DeviceParams& device) {
    if (!BuildDeviceContour(device, kDeviceContour)) return false;
    const std::string contour = "kur k" + std::to_string(kDeviceContour);
    host::SendCommand(devices::IsJaw(device.type)
                          ? "sld ext " + contour + " " + std::to_string(devices::ThicknessOf(device)) +
                                " i_return"
                          : "sld spu " + contour + " 0 0 0 1 0 0 360 i_return");
    host::hostFunctions.OrvoPsDeleteBody(OrvoApi::GetGlobalIntVar("i_return"));
    return panel.lines.empty();
  }

  /// Whether only contours are left of what was constructed.
  bool IsCleanedUp() const {
    const auto& left = host->board.workpieces;
    return left.lines.empty() && left.points.empty() && left.circles.empty() && left.transforms.empty();
  }
};

class DeviceContoursOfType : public DeviceContours, public testing::WithParamInterface<std::int32_t> {};

TEST_P(DeviceContoursOfType, AreTheOutlinesOfTheTable) {
  SensibleDevices devices(20260901U + static_cast<unsigned>(GetParam()));
  for (int i = 0; i < 1000; ++i) {
    const DeviceParams device = devices.Next(GetParam());
    std::string text;
    PackDeviceParams(device, text);
    ASSERT_TRUE(GivesItsOutline(device, i % 2 == 0 ? kDeviceContour : kJawContour)) << text;
    ASSERT_THAT(panel.lines, IsEmpty()) << text;
    ASSERT_TRUE(IsCleanedUp()) << text;
  }
}

TEST_P(DeviceContoursOfType, OfValuesWithoutAFaultMakeSolids) {
  SensibleDevices devices(20261122U + static_cast<unsigned>(GetParam()));
  int sound = 0, odd = 0;
  for (int i = 0; i < 400; ++i) {
    const DeviceParams device = i % 8 == 0 ? devices.Next(GetParam()) : devices.NextOdd(GetParam());
    std::string text;
    PackDeviceParams(device, text);
    const auto fault = devices::FindSolidFault(device);
    ASSERT_TRUE(!fault || i % 8 != 0) << text << ": " << fault->reason;
    ++(fault ? odd : sound);
    if (fault) continue;
    ASSERT_TRUE(MakesItsSolid(device)) << text << "\n" << testing::PrintToString(panel.lines);
  }
  EXPECT_GT(sound, 60);
  EXPECT_GT(odd, 60);
}

INSTANTIATE_TEST_SUITE_P(Types, DeviceContoursOfType, testing::Range(1, 15),
                         [](const auto& type) { return "Type" + std::to_string(type.param); });

TEST_F(DeviceContours, OfAPlaceholderAreBlocksOnTheirSide) {
  ASSERT_TRUE(BuildPlaceholderJaw({.type = 1}));
  const std::vector<OutlineVertex> thin = VerticesOf(kJawContour);
  ASSERT_EQ(thin.size(), 4U);
  EXPECT_NEAR(thin[2].x, 2.05, kTolerance);
  EXPECT_NEAR(thin[2].y, 4.1, kTolerance);
  ASSERT_TRUE(BuildPlaceholderJaw({.type = 2, .C = 12}));
  EXPECT_NEAR(VerticesOf(kJawContour).at(2).x, -12, kTolerance);
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(DeviceContours, OfATypeThatNobodyKnowsLeaveNothingBehind) {
  EXPECT_FALSE(BuildDeviceContour({.type = 108, .A = 5}, kDeviceContour));
  EXPECT_TRUE(IsCleanedUp());
  EXPECT_EQ(host->board.FindContour(kDeviceContour), nullptr);
}

TEST_F(DeviceContours, ThatCannotBeMadeAreToldAndLeaveTheFormerOne) {
  ASSERT_TRUE(BuildDeviceContour({.type = 9, .A = 5, .B = 4}, kDeviceContour));
  // Without a length every line of the jaw is the same.
  BuildDeviceContour({.type = 10, .A = 5}, kDeviceContour);
  EXPECT_FALSE(panel.lines.empty());
  EXPECT_EQ(VerticesOf(kDeviceContour).size(), 4U);
}

}  // namespace
}  // namespace vanzet::test
