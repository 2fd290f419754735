#include "scene/coarse.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vanzet::scene {
namespace {

using geometry::Point3d;

constexpr double kRadius = 50;

/// A ball of nearly `facets` facets about a place.
Surface Ball(int facets, double x = 0) {
  const int rings = static_cast<int>(std::sqrt(facets / 4.0)), around = 2 * rings;
  modeller::Mesh mesh;
  for (int ring = 0; ring <= rings; ++ring) {
    for (int i = 0; i < around; ++i) {
      const double high = geometry::PI * ring / rings, wide = 2 * geometry::PI * i / around;
      mesh.points.emplace_back(x + kRadius * std::cos(high), kRadius * std::sin(high) * std::cos(wide),
                               kRadius * std::sin(high) * std::sin(wide));
    }
  }
  for (int a = 0; a < rings * around; ++a) {
    const int b = a / around * around + (a + 1) % around;
    mesh.triangles.push_back({a, a + around, b});
    mesh.triangles.push_back({b, a + around, b + around});
  }
  return SurfaceOf(mesh, geometry::Matrix());
}

/// A cube from (0, 0, 0) to (40, 40, 40), with so many squares along an edge.
Surface Cube(int squares) {
  modeller::Mesh mesh;
  const auto add = [&](auto place) {
    const int first = static_cast<int>(mesh.points.size()), row = squares + 1;
    for (int i = 0; i < row * row; ++i)
      mesh.points.push_back(place(40.0 * (i % row) / squares, 40.0 * (i / row) / squares));
    for (int i = 0; i < squares * squares; ++i) {
      const int a = first + i / squares * row + i % squares;
      mesh.triangles.push_back({a, a + 1, a + row});
      mesh.triangles.push_back({a + 1, a + row + 1, a + row});
    }
  };
  add([](double u, double v) { return Point3d(v, u, 0); });
  add([](double u, double v) { return Point3d(u, v, 40); });
  add([](double u, double v) { return Point3d(0, v, u); });
  add([](double u, double v) { return Point3d(40, u, v); });
  add([](double u, double v) { return Point3d(u, 0, v); });
  add([](double u, double v) { return Point3d(v, 40, u); });
  return SurfaceOf(mesh, geometry::Matrix());
}

/// A ring with a round section, of so many squares along each of its circles.
Surface Ring(int squares) {
  modeller::Mesh mesh;
  for (int i = 0; i < squares * squares; ++i) {
    const double along = 2 * geometry::PI * (i / squares) / squares;
    const double about = 2 * geometry::PI * (i % squares) / squares, radius = 40 + 15 * std::cos(about);
    mesh.points.emplace_back(radius * std::cos(along), radius * std::sin(along), 15 * std::sin(about));
    const int row = i / squares * squares, next = (row + squares) % (squares * squares);
    const int a = i % squares, b = (a + 1) % squares;
    mesh.triangles.push_back({row + a, next + a, row + b});
    mesh.triangles.push_back({row + b, next + a, next + b});
  }
  return SurfaceOf(mesh, geometry::Matrix());
}

ModelBody BodyOf(const std::string& name, Surface surface) {
  ModelBody body;
  body.name = name;
  body.surface = std::move(surface);
  return body;
}

geometry::Box3d BoxOf(const Surface& surface) {
  geometry::Box3d box;
  for (const FacetGroup& group : surface.groups) box.Insert(group.box);
  return box;
}

TEST(CoarseSurfaces, HaveNoMoreFacetsThanWantedAndNotManyFewer) {
  const Surface fine = Ball(40'000);
  for (const std::size_t most : {20'000U, 5000U, 500U}) {
    const Surface coarse = CoarseSurface(fine, most);
    EXPECT_LE(coarse.facets.size(), most);
    EXPECT_GE(coarse.facets.size(), most / 4);
  }
}

TEST(CoarseSurfaces, StayAtTheirPlace) {
  const Surface coarse = CoarseSurface(Ball(40'000), 4000);
  for (const SurfacePoint& point : coarse.points)
    EXPECT_NEAR(std::hypot(point.x, point.y, point.z), kRadius, 1);
  EXPECT_NEAR(BoxOf(coarse).max.x, kRadius, 1);
  EXPECT_NEAR(BoxOf(coarse).min.z, -kRadius, 1);
}

TEST(CoarseSurfaces, KeepTheirSharpEdges) {
  const Surface fine = Cube(60);
  ASSERT_TRUE(fine.isClosed);
  const Surface coarse = CoarseSurface(fine, 2000);
  EXPECT_LE(coarse.facets.size(), 2000U);
  const geometry::Box3d box = BoxOf(coarse);
  EXPECT_NEAR(box.min.x, 0, 0.1);
  EXPECT_NEAR(box.max.z, 40, 0.1);
  EXPECT_GT(coarse.sharpEdges, 0U);
}

TEST(CoarseSurfaces, HaveNoSharpEdgesOfTheirOwn) {
  const Surface fine = Ring(100);
  ASSERT_EQ(fine.sharpEdges, 0U);
  ASSERT_GT(Ring(6).sharpEdges, 0U) << "large facets meet at large angles";
  EXPECT_EQ(CoarseSurface(fine, 100).sharpEdges, 0U);
}

TEST(CoarseSurfaces, OfFewFacetsStayAsTheyAre) {
  const Surface ball = Ball(1000);
  const Surface same = CoarseSurface(ball, 1000);
  EXPECT_EQ(same.facets, ball.facets);
  EXPECT_EQ(same.edges, ball.edges);
}

TEST(CoarseModels, TakeFacetsFromTheLargeBodiesFirst) {
  const Model whole{{BodyOf("scan", Ball(40'000)), BodyOf("chuck", Ball(1500, 200))}, {}};
  const Model coarse = CoarseModel(whole, 10'000);
  EXPECT_LE(CountFacets(coarse), 10'000U);
  ASSERT_EQ(coarse.bodies.size(), 2U);
  EXPECT_EQ(coarse.bodies[0].name, "scan");
  EXPECT_LT(coarse.bodies[0].surface.facets.size(), whole.bodies[0].surface.facets.size());
  EXPECT_EQ(coarse.bodies[1].surface.facets, whole.bodies[1].surface.facets);
}

TEST(CoarseModels, OfNothingAreEmpty) {
  EXPECT_TRUE(CoarseModel({}, 100).bodies.empty());
}

}  // namespace
}  // namespace vanzet::scene
