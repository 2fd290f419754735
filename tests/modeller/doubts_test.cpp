#include "modeller/doubts.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace vanzet::modeller {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A block between two corners, as twelve triangles; those of one side can be left out.
Mesh Block(const geometry::Point3d& low, const geometry::Point3d& high, bool isOpen = false) {
  Mesh mesh;
  for (int i = 0; i < 8; ++i) {
    mesh.points.emplace_back((i & 1) != 0 ? high.x : low.x, (i & 2) != 0 ? high.y : low.y,
                             (i & 4) != 0 ? high.z : low.z);
  }
  mesh.triangles = {{0, 2, 1}, {1, 2, 3}, {4, 5, 6}, {5, 7, 6}, {0, 1, 4}, {1, 5, 4},
                    {2, 6, 3}, {3, 6, 7}, {0, 4, 2}, {2, 4, 6}, {1, 3, 5}, {3, 7, 5}};
  if (isOpen) mesh.triangles.resize(10);
  return mesh;
}

std::vector<std::string> Doubts(const Mesh& mesh, Role role = Role::kTurned) {
  return DoubtsAbout(mesh, role, LengthUnit::kMillimetre);
}

TEST(Doubts, AreNoneAboutABodyAsTheyUsuallyAre) {
  EXPECT_THAT(Doubts(Block({-90, -80, -80}, {0, 80, 80})), IsEmpty());
  EXPECT_THAT(Doubts(Block({-90, -80, -80}, {12, 80, 80})), IsEmpty()) << "pins protrude";
  EXPECT_THAT(Doubts(Block({0, -10, 0}, {60, 10, 40}), Role::kJaw), IsEmpty());
}

TEST(Doubts, AreAboutOpenBodies) {
  EXPECT_THAT(Doubts(Block({-90, -80, -80}, {0, 80, 80}, true)),
              ElementsAre("is not closed: it has no volume"));
}

TEST(Doubts, AreAboutUnits) {
  EXPECT_THAT(Doubts(Block({-0.9, -0.4, -0.4}, {0, 0.4, 0.4})),
              ElementsAre("is 0.9 mm long at most; check its unit"));
  EXPECT_THAT(Doubts(Block({-1, -0.4, -0.4}, {0, 0.4, 0.4})), IsEmpty());
  EXPECT_THAT(Doubts(Block({-5000.5, -80, -80}, {0, 80, 80})),
              ElementsAre("is 5000.5 mm long at most; check its unit"));
  EXPECT_THAT(Doubts(Block({-5000, -80, -80}, {0, 80, 80})), IsEmpty());
}

TEST(Doubts, AreAboutBodiesBesideTheAxis) {
  EXPECT_THAT(Doubts(Block({-90, 290, -80}, {0, 310, 80})),
              ElementsAre("is beside the axis: its y is from 290 mm to 310 mm"));
  EXPECT_THAT(Doubts(Block({-90, -80, -310}, {0, 80, -290})),
              ElementsAre("is beside the axis: its z is from -310 mm to -290 mm"));
  EXPECT_THAT(Doubts(Block({-90, -80, 0.04}, {0, 80, 80})), IsEmpty());
}

TEST(Doubts, AreAboutFacesFarFromTheirPlace) {
  EXPECT_THAT(Doubts(Block({-27.8, -10, -10}, {-7.98, 10, 10})),
              ElementsAre("has its face at -7.98 mm, not at 0"));
  EXPECT_THAT(Doubts(Block({-40, -10, -10}, {60, 10, 10})), ElementsAre("has its face at 60 mm, not at 0"));
  EXPECT_THAT(Doubts(Block({8, -10, 0}, {60, 10, 40}), Role::kJaw),
              ElementsAre("has its foot at 8 mm, not at 0"));
}

TEST(Doubts, HaveLengthsInTheUnitOfTheirReader) {
  EXPECT_THAT(DoubtsAbout(Block({-25.4, 254, -80}, {0, 508, 80}), Role::kTurned, LengthUnit::kInch),
              ElementsAre("is beside the axis: its y is from 10 inch to 20 inch"));
}

}  // namespace
}  // namespace vanzet::modeller
