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

class Extrudes : public testing::Test {
 protected:
  void Expect(const Kurve& contour, double area, double thickness) {
    for (const Kurve& either : {contour, Backwards(contour)}) {
      const Body body = Get(Extrude(either, thickness));
      EXPECT_TRUE(IsSound(body));
      EXPECT_TRUE(Measured(body).closed);
      EXPECT_NEAR(Measured(body).volume, area * std::abs(thickness), area * std::abs(thickness) * 1e-7);
    }
  }

  Millimetres millimetres_;
};

TEST_F(Extrudes, AContourByItsThickness) {
  Expect(Rectangle(-3, 4, 7, 9), 50, 2.05);
  Expect(Tongue(0), kTongueArea, 20);
  Expect(Kurve({0, 0}, 5, geometry::CW), 25 * std::numbers::pi, 1);
}

TEST_F(Extrudes, UpwardsFromThePlane) {
  EXPECT_THAT(Box(Get(Extrude(Rectangle(-3, 4, 7, 9), 2.5))),
              testing::Pointwise(testing::DoubleNear(1e-6), {-3.0, 4.0, 0.0, 7.0, 9.0, 2.5}));
}

TEST_F(Extrudes, DownwardsWhenNegative) {
  Expect(Tongue(0), kTongueArea, -20);
  EXPECT_THAT(Box(Get(Extrude(Rectangle(-3, 4, 7, 9), -2.5))),
              testing::Pointwise(testing::DoubleNear(1e-6), {-3.0, 4.0, -2.5, 7.0, 9.0, 0.0}));
}

TEST_F(Extrudes, NotByNothing) {
  EXPECT_EQ(Told(Extrude(Tongue(0), 0)), "the thickness is 0 mm; it must be at most 1e+07 and not 0");
  EXPECT_EQ(Told(Extrude(Tongue(0), std::nan(""))),
            "the thickness is nan mm; it must be at most 1e+07 and not 0");
}

TEST_F(Extrudes, NotWhatIsOpen) {
  EXPECT_THAT(Told(Extrude(Through({{0, 0}, {1, 0}, {1, 1}}), 5)),
              testing::StartsWith("the contour is open"));
}

TEST_F(Extrudes, AContourOfManySpans) {
  Kurve wheel;
  constexpr int kTeeth = 1000;
  for (int i = 0; i <= 2 * kTeeth; ++i) {
    const double angle = std::numbers::pi * (i % (2 * kTeeth)) / kTeeth;
    const double radius = i % 2 == 0 ? 500 : 490;
    const geometry::Point p(radius * std::cos(angle), radius * std::sin(angle));
    if (i == 0) wheel.Start(p);
    if (i > 0) wheel.Add(p);
  }
  const double area = kTeeth * 500 * 490 * std::sin(std::numbers::pi / kTeeth);
  EXPECT_NEAR(Measured(Get(Extrude(wheel, 10))).volume, area * 10, 1);
}

}  // namespace
}  // namespace vanzet::modeller
