#include "drawing/placement.h"

#include <cmath>

#include "drawing_fixture.h"

namespace vanzet::drawing {
namespace {

TEST(Placement, DirectionsAreExactAtQuarterTurns) {
  for (const double turns : {0.0, 360.0, -360.0, 3600.0}) {
    EXPECT_EQ(DirectionOf(turns).dx, 1);
    EXPECT_EQ(DirectionOf(turns + 90).dx, 0);
    EXPECT_EQ(DirectionOf(turns + 90).dy, 1);
    EXPECT_EQ(DirectionOf(turns + 180).dx, -1);
    EXPECT_EQ(DirectionOf(turns + 180).dy, 0);
    EXPECT_EQ(DirectionOf(turns - 90).dy, -1);
  }
  EXPECT_DOUBLE_EQ(DirectionOf(30).dy, 0.5);
}

TEST(Placement, FollowsTurnsInSpace) {
  geometry::Matrix matrix;
  TurnExactly(matrix, 180, 1);
  TurnExactly(matrix, 90, 3);
  const auto placement = PlacementOf(matrix);
  ASSERT_TRUE(placement);
  EXPECT_TRUE(placement->IsMirrored());
  const geometry::Point image = PlacePoint(geometry::Point(3, 7), *placement);
  EXPECT_EQ(image.x, 7);
  EXPECT_EQ(image.y, 3);
}

TEST(Placement, TiltsNothing) {
  geometry::Matrix matrix;
  TurnExactly(matrix, 30, 1);
  EXPECT_FALSE(PlacementOf(matrix));
}

TEST(Placement, KeepsArcsValid) {
  const geometry::Kurve circle(geometry::Point(5, 1), 2, geometry::ACW);
  geometry::Matrix matrix;
  TurnExactly(matrix, 33.3, 3);
  matrix.Translate(1, 2);
  const geometry::Kurve placed = PlaceCurve(circle, *PlacementOf(matrix));
  EXPECT_TRUE(CheckCurve(placed));
  EXPECT_NEAR(placed.Perim(), circle.Perim(), 1e-9);
  EXPECT_NEAR(placed.Area(), circle.Area(), 1e-9);
}

}  // namespace
}  // namespace vanzet::drawing
