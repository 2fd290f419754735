#include "modeller/mesh.h"

#include <gtest/gtest.h>

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Standard_NullObject.hxx>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "modeller/body.h"
#include "modeller/contours.h"
#include "modeller/facets.h"
#include "modeller/kernel.h"
#include "modeller/measures.h"
#include "modeller/solids.h"
#include "modeller/sweep.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;

/// A closed mesh with its outside outwards and about the volume of its body.
Mesh Expect(const Body& body, const MeshTolerance& tolerance = {}, double relative = 0.02) {
  const Mesh mesh = Get(MeshOf(body, tolerance));
  EXPECT_TRUE(IsClosed(mesh));
  const double volume = Measured(body).volume;
  EXPECT_NEAR(MeasuresOf(mesh).volume, volume, volume * relative);
  return mesh;
}

TEST(Meshes, OfABrickHaveItsCorners) {
  const Mesh mesh = Expect(BodyOf(Brick(10, 20, 30)), {}, 1e-12);
  EXPECT_EQ(mesh.points.size(), 8U);
  EXPECT_EQ(mesh.triangles.size(), 12U);
}

TEST(Meshes, AreClosedWherePolesAndSeamsAre) {
  Expect(BodyOf(Sphere(10)));
  Expect(BodyOf(Torus(20, 5)));
  Expect(BodyOf(CutObliquely(Sphere(10))));
  Expect(BodyOf(Casting()));
  Expect(BodyOf(AsSplines(Casting())));
}

TEST(Meshes, OfSpunBodiesAreClosed) {
  const Millimetres millimetres;
  const Axis axis = {{0, 0, 0}, {1, 0, 0}};
  for (const double degrees : {360.0, 90.0, -200.0}) {
    Expect(Get(Spin(Rectangle(0, 20, 30, 50), axis, degrees)));
    Expect(Get(Spin(Rectangle(0, 0, 30, 50), axis, degrees)));
    Expect(Get(Spin(Tongue(0), axis, degrees)));
    Expect(Get(Spin(Through({{0, 0}, {30, 0}, {0, 12}, {0, 0}}), axis, degrees)));
  }
}

// At 0.05 mm Open CASCADE leaves out the ring between these two circles.
TEST(Meshes, OfStepsLowerThanTheirToleranceAreClosed) {
  const Millimetres millimetres;
  const Axis axis = {{0, 0, 0}, {1, 0, 0}};
  const double bore = 17.692057147938254, low = 38.34735513497283, high = 38.365787809899629;
  const double rear = -162.42366334823299, step = -98.231828290827693;
  Expect(Get(Spin(
      Through({{rear, bore}, {0, bore}, {0, low}, {step, low}, {step, high}, {rear, high}, {rear, bore}}),
      axis, 360)));
}

TEST(Meshes, OfMovedBodiesAreMoved) {
  const Body brick =
      Get(TurnBody(Get(MoveBody(BodyOf(Brick(10, 20, 30)), {1, 2, 3})), {{0, 0, 0}, {0, 0, 1}}, 90));
  geometry::Box3d box;
  for (const auto& point : Expect(brick, {}, 1e-12).points) box.Insert(point);
  EXPECT_EQ(box.min, geometry::Point3d(-22, 1, 3));
  EXPECT_EQ(box.max, geometry::Point3d(-2, 11, 33));
}

TEST(Meshes, KeepTheirTolerance) {
  // A chord of that angle is the farthest from its sphere in its middle.
  for (const double chord : {1.0, 0.1, 0.01}) {
    const Mesh mesh = Get(MeshOf(BodyOf(Sphere(10)), {chord, 90}));
    for (const auto& [a, b, c] : mesh.triangles) {
      const auto at = [&](int i) { return mesh.points[static_cast<std::size_t>(i)]; };
      const geometry::Vector3d middle =
          (geometry::Vector3d({}, at(a)) + geometry::Vector3d({}, at(b)) + geometry::Vector3d({}, at(c))) *
          (1.0 / 3);
      EXPECT_GT(middle.Magnitude(), 10 - 2 * chord);
    }
  }
}

TEST(Meshes, GetCoarserAgainWhenAsked) {
  const Body sphere = BodyOf(Sphere(10));
  const std::size_t coarse = Get(MeshOf(sphere, {1, 45})).triangles.size();
  const std::size_t fine = Get(MeshOf(sphere, {0.02, 5})).triangles.size();
  EXPECT_GT(fine, 5 * coarse);
  EXPECT_EQ(Get(MeshOf(sphere, {1, 45})).triangles.size(), coarse);
}

TEST(Meshes, AreNotMadeWithAToleranceThatIsNone) {
  const Body brick = BodyOf(Brick(1, 1, 1));
  for (const MeshTolerance& tolerance : {MeshTolerance{0, 10},
                                         {-1, 10},
                                         {1e-9, 10},
                                         {std::nan(""), 10},
                                         {0.05, 0},
                                         {0.05, 1e-3},
                                         {0.05, 91}}) {
    EXPECT_NE(Told(MeshOf(brick, tolerance)), "") << tolerance.chord << " " << tolerance.angle;
  }
}

TEST(Meshes, OfOneSolidAreMadeOnceForAPlaceAndATolerance) {
  const Body solid = Get(Extrude(Tongue(10), 5));
  const Mesh first = Get(MeshOf(solid, {}));
  EXPECT_EQ(solid.shape().meshes->size(), 1U);
  const Body there = Get(MoveBody(solid, {1, 2, 3}));
  const Body back = Get(MoveBody(there, {-1, -2, -3}));
  EXPECT_NEAR(Get(MeshOf(there, {})).points[0].x, first.points[0].x + 1, 1e-9);
  EXPECT_EQ(solid.shape().meshes->size(), 2U);
  EXPECT_EQ(Get(MeshOf(back, {})).triangles, first.triangles);
  EXPECT_EQ(solid.shape().meshes->size(), 2U);
  EXPECT_GT(Get(MeshOf(solid, {0.01, 10})).triangles.size(), first.triangles.size());
}

TEST(Kernel, SaysNothingOnStandardOutput) {
  testing::internal::CaptureStdout();
  static_cast<void>(Get(MeshOf(BodyOf(Brick(1, 1, 1)), {})));
  Message::DefaultMessenger()->Send("said by the kernel", Message_Alarm);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(Kernel, FailuresBecomeFaults) {
  const auto failed = CatchKernelFailures([]() -> Result<void> { throw Standard_Failure("the reason"); });
  EXPECT_EQ(Told(failed), "Open CASCADE: the reason");
  const auto nameless = CatchKernelFailures([]() -> Result<void> { throw Standard_NullObject(); });
  EXPECT_EQ(Told(nameless), "Open CASCADE: Standard_NullObject");
  const auto memory = CatchKernelFailures([]() -> Result<void> { throw std::bad_alloc(); });
  EXPECT_EQ(Told(memory), "out of memory");
}

TEST(MeasuresOfMeshes, KnowAnOpenOne) {
  Mesh mesh = Get(MeshOf(BodyOf(Brick(10, 20, 30)), {}));
  EXPECT_NEAR(MeasuresOf(mesh).area, 2200, 1e-9);
  EXPECT_NEAR(MeasuresOf(mesh).centroid.z, 15, 1e-9);
  mesh.triangles.pop_back();
  EXPECT_FALSE(IsClosed(mesh));
  EXPECT_EQ(MeasuresOf(mesh).volume, 0);
}

TEST(MeasuresOfMeshes, KnowSolidsThatTouchInAnEdge) {
  Mesh mesh = Get(MeshOf(BodyOf(Brick(10, 20, 30)), {}));
  EXPECT_TRUE(IsManifold(mesh));
  const std::vector<geometry::Point3d> points = mesh.points;
  std::vector<int> numbers;
  for (const geometry::Point3d& point : points) {
    const geometry::Point3d beside(point.x + 10, point.y + 20, point.z);
    const auto same = std::ranges::find(points, beside);
    const bool isNew = same == points.end();
    numbers.push_back(static_cast<int>(isNew ? std::ssize(mesh.points) : same - points.begin()));
    if (isNew) mesh.points.push_back(beside);
  }
  EXPECT_EQ(mesh.points.size(), 14U) << "the edge at x 10, y 20 is that of both";
  for (auto triangle : std::vector(mesh.triangles)) {
    for (int& corner : triangle) corner = numbers[static_cast<std::size_t>(corner)];
    mesh.triangles.push_back(triangle);
  }
  EXPECT_TRUE(IsClosed(mesh));
  EXPECT_FALSE(IsManifold(mesh));
  EXPECT_NEAR(MeasuresOf(mesh).volume, 12000, 1e-9);
}

TEST(MeasuresOfMeshes, KnowATriangleTheWrongWayRound) {
  Mesh mesh = Get(MeshOf(BodyOf(Brick(10, 20, 30)), {}));
  std::swap(mesh.triangles[0][0], mesh.triangles[0][1]);
  EXPECT_FALSE(IsClosed(mesh));
}

}  // namespace
}  // namespace vanzet::modeller
