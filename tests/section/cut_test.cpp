#include "section/cut.h"

#include <gmock/gmock.h>

#include <numbers>

#include "contour/library.h"
#include "modeller/sweep.h"
#include "section/section.h"

namespace vanzet::test {
namespace {

using geometry::Kurve;
using geometry::Matrix;
using geometry::Point;
using geometry::Point3d;
using modeller::Mesh;

class MeshCuts : public testing::Test {
 protected:
  MeshCuts() { contour::UseMillimetres(); }

  /// A box with its facets looking out.
  static Mesh Block(const Point3d& low, const Point3d& high) {
    Mesh mesh;
    for (int corner = 0; corner < 8; ++corner) {
      mesh.points.emplace_back((corner & 1) != 0 ? high.x : low.x, (corner & 2) != 0 ? high.y : low.y,
                               (corner & 4) != 0 ? high.z : low.z);
    }
    mesh.triangles = {{0, 2, 1}, {1, 2, 3}, {4, 5, 6}, {5, 7, 6}, {0, 1, 4}, {1, 5, 4},
                      {2, 6, 3}, {3, 6, 7}, {0, 4, 2}, {2, 4, 6}, {1, 3, 5}, {3, 7, 5}};
    return mesh;
  }
  static void Append(const Mesh& more, Mesh& mesh) {
    const int first = static_cast<int>(mesh.points.size());
    mesh.points.insert(mesh.points.end(), more.points.begin(), more.points.end());
    for (const auto& [a, b, c] : more.triangles) mesh.triangles.push_back({a + first, b + first, c + first});
  }
};

TEST_F(MeshCuts, ShowTheUpperHalfOfABlock) {
  const geometry::Region cut = section::CutOf(Block({-10, -4, -5}, {10, 6, 5}), {});
  ASSERT_TRUE(cut.ok);
  ASSERT_EQ(cut.loops.size(), 1U);
  EXPECT_NEAR(cut.Area(), 20 * 6, 1e-9);
  const geometry::Box box = section::BoxOf(cut);
  EXPECT_NEAR(box.min.y, 0, 1e-12);
  EXPECT_NEAR(box.max.y, 6, 1e-12);
}

TEST_F(MeshCuts, OfABlockThatEndsInThePlaneShowItsFace) {
  EXPECT_NEAR(section::CutOf(Block({0, 0, -5}, {10, 6, 0}), {}).Area(), 60, 1e-9);
  EXPECT_NEAR(section::CutOf(Block({0, 0, 0}, {10, 6, 5}), {}).Area(), 0, 1e-9)
      << "only one of two blocks that meet in the plane is cut";
}

TEST_F(MeshCuts, UniteBlocksThatOverlapAndKeepHoles) {
  Mesh mesh = Block({0, 0, -5}, {10, 10, 5});
  Append(Block({5, 0, -5}, {20, 10, 5}), mesh);
  EXPECT_NEAR(section::CutOf(mesh, {}).Area(), 200, 1e-9);
  Mesh hollow = Block({0, 0, -5}, {30, 30, 5});
  Mesh inner = Block({10, 10, -4}, {20, 20, 4});
  for (auto& [a, b, c] : inner.triangles) std::swap(b, c);
  Append(inner, hollow);
  const geometry::Region cut = section::CutOf(hollow, {});
  EXPECT_EQ(cut.loops.size(), 2U);
  EXPECT_NEAR(cut.Area(), 800, 1e-9);
}

TEST_F(MeshCuts, ShowTheOpenContoursOfABodyThatIsNotClosed) {
  Mesh mesh = Block({0, 2, -5}, {10, 6, 5});
  mesh.triangles.resize(10);  // without the side at x = 10
  const geometry::Region cut = section::CutOf(mesh, {});
  EXPECT_TRUE(cut.loops.empty());
  EXPECT_FALSE(cut.loose.empty());
  EXPECT_NEAR(section::BoxOf(cut).max.y, 6, 1e-9);
}

TEST_F(MeshCuts, OfASpunBodyAreItsHalfSection) {
  Kurve half;
  half.Start(Point(0, 10));
  for (const Point& corner : {Point(50, 10), Point(50, 25), Point(0, 25), Point(0, 10)}) half.Add(corner);
  const auto body = modeller::Spin(half, {{0, 0, 0}, {1, 0, 0}}, 360);
  ASSERT_TRUE(body);
  const auto cut = section::CutOf(scene::SceneBody{"ring", scene::Kind::kBillet, *body, Matrix()});
  ASSERT_TRUE(cut);
  EXPECT_NEAR(cut->Area(), 50 * 15, 50 * 0.2) << "facets are within 0.05 of the true surfaces";
  EXPECT_EQ(cut->loops.size(), 1U);
}

TEST_F(MeshCuts, OfABodyWithAProfileAreThatProfileWhereTheBodyIs) {
  geometry::KurveEx half;
  half.Start(Point(0, 0));
  half.Add(0, 10);
  half.Add(geometry::CW, Point(10, 0), Point(0, 0));
  half.Add(0, 0);
  scene::SceneBody body{"ball", scene::Kind::kBillet, modeller::Body(nullptr), Matrix()};
  body.profile = geometry::Clean(half);
  body.placement.Rotate(0, -1, 2);
  body.placement.Translate(100, 0, 0);
  const auto cut = section::CutOf(body);
  ASSERT_TRUE(cut);
  EXPECT_NEAR(cut->Area(), std::numbers::pi * 25, 1e-9) << "it is still on the left of its contour";
  const geometry::Box box = section::BoxOf(*cut);
  EXPECT_NEAR(box.min.x, 90, 1e-9);
  EXPECT_NEAR(box.max.x, 100, 1e-9);
}

}  // namespace
}  // namespace vanzet::test
