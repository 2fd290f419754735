#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "modeller/contours.h"
#include "modeller/solids.h"
#include "modeller/sweep.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;
using geometry::Kurve;
using std::numbers::pi;

const Axis kAlongX = {{0, 0, 0}, {1, 0, 0}};

class Spins : public testing::Test {
 protected:
  /// Spins, and expects a closed and sound solid with the volume that the area makes on its centroid's way.
  Body Expect(const Kurve& contour, double area, double centroidRadius, double degrees = 360,
              const Axis& axis = kAlongX) {
    const double volume = area * 2 * pi * centroidRadius * std::abs(degrees) / 360;
    for (const Kurve& either : {contour, Backwards(contour)}) {
      const Body body = Get(Spin(either, axis, degrees));
      EXPECT_TRUE(IsSound(body));
      EXPECT_TRUE(Measured(body).closed);
      EXPECT_NEAR(Measured(body).volume, volume, volume * 1e-6);
    }
    return Get(Spin(contour, axis, degrees));
  }

  std::string Refusal(const Kurve& contour, double degrees = 360, const Axis& axis = kAlongX) {
    return Told(Spin(contour, axis, degrees));
  }

  Millimetres millimetres_;
};

TEST_F(Spins, ARectangleBesideTheAxisIntoARing) {
  const Body ring = Expect(Rectangle(0, 20, 30, 50), 900, 35);
  EXPECT_NEAR(Measured(ring).centroid.x, 15, 1e-6);
  EXPECT_NEAR(Measured(ring).centroid.y, 0, 1e-6);
}

TEST_F(Spins, ARectangleOnTheAxisIntoACylinder) {
  const Body cylinder = Expect(Rectangle(-40, 0, 0, 25), 1000, 12.5);
  EXPECT_NEAR(Measured(cylinder).area, 2 * pi * 25 * (25 + 40), 1e-4);
}

TEST_F(Spins, BelowTheAxisAsWellAsAboveIt) {
  Expect(Rectangle(0, -50, 30, -20), 900, 35);
  Expect(Rectangle(0, -25, 40, 0), 1000, 12.5);
}

TEST_F(Spins, AContourThatTouchesTheAxisAtACorner) {
  Expect(Through({{0, 0}, {10, 5}, {0, 10}, {-10, 5}, {0, 0}}), 100, 5);
}

TEST_F(Spins, ATriangleIntoACone) {
  Expect(Through({{0, 0}, {30, 0}, {0, 12}, {0, 0}}), 180, 4);
}

TEST_F(Spins, AContourWithArcs) {
  Expect(Tongue(30), kTongueArea, 40);
  Expect(Tongue(0), kTongueArea, 10);
}

TEST_F(Spins, AHalfDiskIntoASphere) {
  const Kurve disk = Through({{-10, 0}, {10, 0}, {-10, 0, geometry::ACW, 0, 0}});
  const Body sphere = Expect(disk, pi * 50, 4 * 10 / (3 * pi));
  EXPECT_NEAR(Measured(sphere).area, 400 * pi, 1e-4);
}

TEST_F(Spins, ACircleIntoATorus) {
  const Kurve circle({0, 30}, 5, geometry::ACW);
  Expect(circle, 25 * pi, 30);
}

TEST_F(Spins, AnArcThatTouchesTheAxisBetweenItsEnds) {
  const Kurve ends = Through({{-5, 5}, {5, 5, geometry::ACW, 0, 5}, {5, 10}, {-5, 10}, {-5, 5}});
  const double half = pi * 25 / 2;
  Expect(ends, 50 + half, (50 * 7.5 + half * (5 - 20 / (3 * pi))) / (50 + half));
}

TEST_F(Spins, ByPartsOfATurn) {
  for (const double degrees : {1.0, 90.0, 180.0, 270.0, 359.0, -90.0, -300.0}) {
    Expect(Rectangle(0, 20, 30, 50), 900, 35, degrees);
    Expect(Rectangle(-40, 0, 0, 25), 1000, 12.5, degrees);
    Expect(Tongue(0), kTongueArea, 10, degrees);
  }
}

TEST_F(Spins, APositiveAngleByTheRightHandsRule) {
  const auto box = Box(Get(Spin(Rectangle(0, 20, 30, 50), kAlongX, 90)));
  EXPECT_NEAR(box[2], 0, 1e-6);
  EXPECT_NEAR(box[5], 50, 1e-6);
  EXPECT_NEAR(Box(Get(Spin(Rectangle(0, 20, 30, 50), kAlongX, -90)))[2], -50, 1e-6);
}

TEST_F(Spins, AFullTurnEitherWay) {
  Expect(Rectangle(0, 20, 30, 50), 900, 35, -360);
}

TEST_F(Spins, AboutAnAxisAnywhereInThePlane) {
  Expect(Rectangle(0, 20, 30, 50), 900, 35, 360, {{-7, 70, 0}, {-3, 0, 0}});
  Expect(Rectangle(0, 20, 30, 50), 900, 15, 360, {{0, 9, 0}, {0, 1, 0}});
  Expect(Rectangle(0, 0, 10, 10), 100, std::sqrt(2.0) * 5, 360, {{0, 0, 0}, {1, -1, 0}});
}

TEST_F(Spins, WhatIsAHairOffTheAxisOnIt) {
  for (const double hair : {1e-9, 1e-6, -1e-6, 9e-4, -9e-4}) {
    const Kurve contour = Through({{-40, hair}, {0, -hair}, {0, 25}, {-40, 25}, {-40, hair}});
    EXPECT_TRUE(IsSound(Get(Spin(contour, kAlongX, 360)))) << hair;
  }
}

TEST_F(Spins, ContoursWhoseEndsAreNearlyTogether) {
  const Kurve contour = Through({{0, 20}, {30, 20}, {30, 50}, {0, 50}, {0.01, 20.01}});
  EXPECT_TRUE(Measured(Get(Spin(contour, kAlongX, 360))).closed);
}

TEST_F(Spins, NothingThatIsOpen) {
  EXPECT_EQ(Refusal(Through({{0, 20}, {30, 20}, {30, 50}})),
            "the contour is open: it begins at x 0, y 20 and ends at x 30, y 50");
}

TEST_F(Spins, NothingWithoutSpans) {
  EXPECT_EQ(Refusal(Kurve()), "the contour has no spans");
  EXPECT_EQ(Refusal(Through({{1, 1}})), "the contour has no spans");
}

TEST_F(Spins, NothingWithoutArea) {
  EXPECT_EQ(Refusal(Through({{0, 20}, {30, 20}, {0, 20}})), "the contour has no area");
}

TEST_F(Spins, NothingThatCrossesItself) {
  EXPECT_EQ(Refusal(Through({{0, 20}, {30, 50}, {30, 20}, {0, 40}, {0, 20}})),
            "the contour crosses or touches itself at x 12, y 32");
}

TEST_F(Spins, NothingThatTouchesItself) {
  // A spike, a corner on another line, and two parts that meet in a corner.
  const Kurve spike = Through({{0, 20}, {30, 20}, {30, 50}, {15, 50}, {15, 60}, {15, 50}, {0, 50}, {0, 20}});
  const Kurve corner = Through({{0, 20}, {30, 20}, {30, 50}, {15, 20}, {0, 50}, {0, 20}});
  const Kurve hourglass = Through({{0, 20}, {10, 30}, {0, 40}, {20, 40}, {10, 30}, {20, 20}, {0, 20}});
  for (const Kurve& contour : {spike, corner, hourglass}) {
    EXPECT_THAT(Refusal(contour), testing::StartsWith("the contour crosses or touches itself"));
  }
}

TEST_F(Spins, NothingAcrossTheAxis) {
  EXPECT_EQ(Refusal(Rectangle(0, -10, 30, 50)),
            "the contour crosses the axis: it reaches 50 mm to its left and 10 mm to its right");
  // Only the middle of an arc is on the other side.
  const Kurve bulge = Through({{-5, 3}, {5, 3, geometry::ACW, 0, 4}, {5, 10}, {-5, 10}, {-5, 3}});
  EXPECT_THAT(Refusal(bulge), testing::StartsWith("the contour crosses the axis"));
}

TEST_F(Spins, NothingAboutAnAxisElsewhere) {
  const Kurve square = Rectangle(0, 20, 30, 50);
  EXPECT_EQ(Refusal(square, 360, {{0, 0, 0}, {0, 0, 0}}), "the axis has no direction");
  EXPECT_EQ(Refusal(square, 360, {{0, 0, 0}, {1, 0, 0.1}}), "the axis is not in the plane of the contour");
  EXPECT_EQ(Refusal(square, 360, {{0, 0, 1}, {1, 0, 0}}), "the axis is not in the plane of the contour");
}

TEST_F(Spins, NothingByAnAngleThatIsNone) {
  const Kurve square = Rectangle(0, 20, 30, 50);
  EXPECT_EQ(Refusal(square, 0), "the angle is 0 degrees; it must be at most 360 and not 0");
  EXPECT_EQ(Refusal(square, 361), "the angle is 361 degrees; it must be at most 360 and not 0");
  EXPECT_EQ(Refusal(square, -400), "the angle is -400 degrees; it must be at most 360 and not 0");
  EXPECT_EQ(Refusal(square, std::nan("")), "the angle is nan degrees; it must be at most 360 and not 0");
}

TEST_F(Spins, NothingOutOfReach) {
  EXPECT_EQ(Refusal(Rectangle(0, 20, 2e7, 50)), "the contour has a point that is not within 1e+07 mm");
  EXPECT_THAT(Refusal(Rectangle(0, 20, std::nan(""), 50)), testing::StartsWith("the contour "));
}

}  // namespace
}  // namespace vanzet::modeller
