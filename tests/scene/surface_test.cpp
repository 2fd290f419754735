#include "scene/surface.h"

#include <gtest/gtest.h>

namespace vanzet::scene {
namespace {

Facet Upright(double low, double high) {
  return {{{{0, 0, low}, {10, 0, low}, {0, 0, high}}}, {{{0, 1, 0}, {0, 1, 0}, {0, 1, 0}}}};
}

TEST(Clip, LeavesWhatIsBelowThePlane) {
  EXPECT_EQ(Below(Upright(-2, -1)).size(), 1U);
  EXPECT_TRUE(Below(Upright(1, 2)).empty());
}

TEST(Clip, CutsAcrossThePlane) {
  const auto below = Below(Upright(-1, 1));
  ASSERT_EQ(below.size(), 2U) << "a trapezium";
  for (const Facet& facet : below) {
    for (const auto& corner : facet.corners) EXPECT_LE(corner.z, 0);
  }
  EXPECT_EQ(Below(Upright(1, -1)).size(), 1U) << "a tip";
}

TEST(Clip, TellsWhereItCuts) {
  const auto cut = CutOf(Upright(-1, 1));
  ASSERT_TRUE(cut);
  EXPECT_DOUBLE_EQ(std::abs(cut->from.x - cut->to.x), 5);
  EXPECT_DOUBLE_EQ(cut->from.z, 0);
  EXPECT_FALSE(CutOf(Upright(1, 2)));
}

TEST(Clip, ShortensLines) {
  const auto left = Below(Stroke{{0, 0, -3}, {4, 0, 1}});
  ASSERT_TRUE(left);
  EXPECT_DOUBLE_EQ(left->to.x, 3);
  EXPECT_FALSE(Below(Stroke{{0, 0, 3}, {4, 0, 1}}));
}

}  // namespace
}  // namespace vanzet::scene
