#include "scene/surface.h"

#include <gtest/gtest.h>

#include <cmath>

#include "scene/plane_cut.h"
#include "scene/vectors.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;
using geometry::Vector3d;

/// A block from (0, 0, 0) to (4, 2, 1).
modeller::Mesh Block() {
  modeller::Mesh mesh;
  for (int i = 0; i < 8; ++i)
    mesh.points.emplace_back((i & 1) != 0 ? 4 : 0, (i & 2) != 0 ? 2 : 0, (i & 4) != 0 ? 1 : 0);
  mesh.triangles = {{0, 2, 1}, {1, 2, 3}, {4, 5, 6}, {5, 7, 6}, {0, 1, 4}, {1, 5, 4},
                    {2, 6, 3}, {3, 6, 7}, {0, 4, 2}, {2, 4, 6}, {1, 3, 5}, {3, 7, 5}};
  return mesh;
}

/// A tube of flat sides about the x axis, without ends.
modeller::Mesh Tube(int sides) {
  modeller::Mesh mesh;
  for (int i = 0; i < sides; ++i) {
    const double angle = 2 * 3.14159265358979 * i / sides;
    for (const double x : {0.0, 10.0}) mesh.points.emplace_back(x, 5 * std::cos(angle), 5 * std::sin(angle));
    const int a = 2 * i, b = 2 * ((i + 1) % sides);
    mesh.triangles.push_back({a, b, a + 1});
    mesh.triangles.push_back({b, b + 1, a + 1});
  }
  return mesh;
}

TEST(Packing, KeepsADirectionToAFifthOfADegree) {
  for (const Vector3d& v : {Vector3d(1, 0, 0), Vector3d(0, -1, 0), Vector3d(0.6, 0, -0.8),
                            UnitVector(Vector3d(-1, 2, 3)), UnitVector(Vector3d(5, -0.1, 0.01))}) {
    const Vector3d unpacked = UnpackVector(PackVector(v));
    EXPECT_NEAR((unpacked - v).Magnitude(), 0, 2e-3);
  }
}

TEST(Surfaces, OfABlockHaveTwelveSharpEdgesAndThreePointsAtACorner) {
  const Surface surface = SurfaceOf(Block(), geometry::Matrix());
  EXPECT_EQ(surface.facets.size(), 12U);
  EXPECT_EQ(surface.points.size(), 24U);
  EXPECT_EQ(surface.edges.size(), 12U) << "not the diagonals";
  EXPECT_EQ(surface.sharpEdges, 12U);
  EXPECT_TRUE(surface.isClosed);
}

TEST(Surfaces, ThatAreSmoothShareTheirPoints) {
  const Surface surface = SurfaceOf(Tube(36), geometry::Matrix());
  EXPECT_EQ(surface.points.size(), 72U);
  EXPECT_EQ(surface.sharpEdges, 72U) << "its two ends";
  EXPECT_EQ(surface.edges.size(), 108U);
  EXPECT_FALSE(surface.isClosed);
}

TEST(Surfaces, ThatFaceInwardsAreNotTakenForClosedOnes) {
  modeller::Mesh mesh = Block();
  for (auto& triangle : mesh.triangles) std::swap(triangle[0], triangle[1]);
  EXPECT_FALSE(SurfaceOf(mesh, geometry::Matrix()).isClosed);
}

TEST(Surfaces, HaveBoxesAboutAllTheirFacets) {
  const Surface surface = SurfaceOf(Tube(500), geometry::Matrix());
  std::uint32_t next = 0;
  for (const FacetGroup& group : surface.groups) {
    EXPECT_EQ(group.first, next);
    next += group.count;
    for (std::uint32_t i = group.first; i < next; ++i) {
      for (const std::uint32_t point : surface.facets[i])
        EXPECT_FALSE(group.box.Outside(surface.points[point].Place()));
    }
  }
  EXPECT_EQ(next, surface.facets.size());
}

TEST(Cuts, TakeAwayWhatIsInFrontOfThePlane) {
  const Surface whole = SurfaceOf(Block(), geometry::Matrix());
  const PlaneCut cut = CutByPlane(whole, {{1, 0, 0}, 3});
  geometry::Box3d box;
  for (const Facet& facet : cut.left.facets) {
    for (const std::uint32_t point : facet) box.Insert(cut.left.points[point].Place());
  }
  EXPECT_NEAR(box.max.x, 3, 1e-6);
  EXPECT_NEAR(box.min.x, 0, 1e-6);
  double length = 0;
  for (const Stroke& stroke : cut.strokes) length += Dist(stroke.from, stroke.to);
  EXPECT_NEAR(length, 6, 1e-6) << "around the cut face";
  EXPECT_FALSE(cut.left.isClosed);
  EXPECT_EQ(cut.left.sharpEdges, 8U);
}

TEST(Cuts, BesideABodyLeaveAllOrNothing) {
  const Surface whole = SurfaceOf(Block(), geometry::Matrix());
  const PlaneCut all = CutByPlane(whole, {{0, 0, 1}, 5}), nothing = CutByPlane(whole, {{0, 0, 1}, -5});
  EXPECT_EQ(all.left.facets, whole.facets);
  EXPECT_TRUE(all.left.isClosed);
  EXPECT_TRUE(nothing.left.facets.empty());
  EXPECT_TRUE(nothing.left.edges.empty());
}

}  // namespace
}  // namespace vanzet::scene
