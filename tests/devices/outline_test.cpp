#include "devices/outline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace vanzet {
namespace {

/// The vertices in thousandths.
std::string Shown(const std::vector<OutlineVertex>& outline) {
  std::string text;
  for (const auto& [x, y] : outline) {
    const auto shown = [](double value) {
      return std::to_string(static_cast<int>(std::lround(value * 1000)));
    };
    text += "(" + shown(x) + ", " + shown(y) + ") ";
  }
  return text;
}

TEST(OutlineOf, GivesAChuckItsBore) {
  EXPECT_EQ(Shown(OutlineOf({.type = 1, .A = 100, .B = 50, .C = 20})),
            "(0, 20000) (-50000, 20000) (-50000, 100000) (0, 100000) ");
  EXPECT_EQ(Shown(OutlineOf({.type = 1, .A = 100, .B = 50, .C = -3})),
            "(0, 0) (-50000, 0) (-50000, 100000) (0, 100000) ");
}

TEST(OutlineOf, LaysAChuckBehindItsFaceWhateverTheSignOfB) {
  EXPECT_EQ(Shown(OutlineOf({.type = 1, .A = 100, .B = -50})),
            "(0, 0) (-50000, 0) (-50000, 100000) (0, 100000) ");
}

TEST(OutlineOf, CutsTheChamferOfACollet) {
  const DeviceParams collet = {.type = 2, .A = 40, .B = 60, .C = 10, .D = 15, .E = 30, .F = 2};
  EXPECT_EQ(Shown(OutlineOf(collet)),
            "(0, 15000) (-60000, 15000) (-60000, 40000) (-10000, 40000) (-10000, 30000) (-2000, 30000) (0, "
            "28000) ");
}

TEST(OutlineOf, LeavesACornerWhoseChamferDoesNotFit) {
  for (const double chamfer : {0.0, -1.0, 10.5}) {
    const DeviceParams collet = {.type = 2, .A = 40, .B = 60, .C = 10, .D = 15, .E = 30, .F = chamfer};
    EXPECT_EQ(OutlineOf(collet).size(), 6U) << chamfer;
  }
}

TEST(OutlineOf, BringsTheConesOfACenterToItsPoint) {
  const DeviceParams center = {.type = 13, .A = 120, .B = 80, .C = 100, .D = 10, .E = 60, .F = 20, .G = 90};
  const std::vector<OutlineVertex> outline = OutlineOf(center);
  ASSERT_EQ(outline.size(), 7U);
  EXPECT_NEAR(outline[3].x, -100, 1e-12);
  EXPECT_NEAR(outline[3].y, 20 + 20 * std::tan(std::acos(-1.0) / 6), 1e-12) << "half the angle E upwards";
  EXPECT_NEAR(outline[5].x, -10, 1e-12) << "a cone of 90 degrees is as long as its radius";
  EXPECT_EQ(outline[6].x, 0);
}

TEST(OutlineOf, IsEmptyForATypeWithoutOutline) {
  for (const std::int32_t type : {-1, 0, 15, 103, 115})
    EXPECT_TRUE(OutlineOf({.type = type}).empty()) << type;
}

}  // namespace
}  // namespace vanzet
