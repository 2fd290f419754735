#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <TopoDS_Iterator.hxx>

#include "modeller/body.h"
#include "modeller/contours.h"
#include "modeller/mesh.h"
#include "modeller/solids.h"
#include "modeller/sweep.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;
using testing::DoubleNear;
using testing::Pointwise;

/// 0.001 mm, as promised.
void ExpectBox(const Body& body, const std::array<double, 6>& box) {
  EXPECT_THAT(Box(body), Pointwise(DoubleNear(1e-3), box));
}

/// The box of a fine mesh, which lies inside and reaches nearly as far.
void ExpectBoxOfItsMesh(const Body& body) {
  geometry::Box3d inner;
  for (const auto& point : Get(MeshOf(body, {0.02, 6})).points) inner.Insert(point);
  ExpectBox(body, Box(body));
  const std::array<double, 6> mesh = {inner.min.x, inner.min.y, inner.min.z,
                                      inner.max.x, inner.max.y, inner.max.z};
  EXPECT_THAT(Box(body), Pointwise(DoubleNear(0.03), mesh));
}

const Axis kOblique = {{0, 0, 0}, {1, 2, 3}};

TEST(Extents, OfABrick) {
  ExpectBox(BodyOf(Brick(10, 20, 30)), {0, 0, 0, 10, 20, 30});
}

TEST(Extents, OfASphereHoweverTurned) {
  const Body sphere = BodyOf(Sphere(10));
  ExpectBox(sphere, {-10, -10, -10, 10, 10, 10});
  ExpectBox(Get(TurnBody(sphere, kOblique, 40)), {-10, -10, -10, 10, 10, 10});
}

TEST(Extents, OfATorusHoweverTurned) {
  const Body torus = BodyOf(Torus(20, 5));
  ExpectBox(torus, {-25, -25, -5, 25, 25, 5});
  // Across an axis at an angle to the torus's own, its circle reaches R times the sine of that angle.
  const Body tilted = Get(TurnBody(torus, {{0, 0, 0}, {1, 0, 0}}, 30));
  const double y = 20 * std::sqrt(3.0) / 2 + 5, z = 20 * 0.5 + 5;
  ExpectBox(tilted, {-25, -y, -z, 25, y, z});
}

TEST(Extents, OfSplinesAreNotThoseOfTheirPoles) {
  ExpectBox(BodyOf(AsSplines(Sphere(10))), {-10, -10, -10, 10, 10, 10});
  ExpectBox(Get(TurnBody(BodyOf(AsSplines(Sphere(10))), kOblique, 40)), {-10, -10, -10, 10, 10, 10});
  ExpectBox(BodyOf(AsSplines(Torus(20, 5))), {-25, -25, -5, 25, 25, 5});
}

TEST(Extents, OfWhatIsLeftOfACutBody) {
  for (const auto& shape : {Sphere(10), Torus(20, 5), AsSplines(Sphere(10))}) {
    ExpectBoxOfItsMesh(BodyOf(CutObliquely(shape)));
  }
}

TEST(Extents, OfRoundedEdges) {
  const Body casting = BodyOf(Casting());
  ExpectBox(casting, {0, 0, 0, 60, 40, 30});
  ExpectBoxOfItsMesh(Get(TurnBody(casting, kOblique, 40)));
}

TEST(Extents, OfWhatWasSpun) {
  const Millimetres millimetres;
  const Body tongue = Get(Spin(Tongue(0), {{0, 0, 0}, {1, 0, 0}}, 360));
  ExpectBox(tongue, {0, -20, -20, 60, 20, 20});
}

TEST(Extents, DoNotChangeWhenABodyWasMeshed) {
  const Body sphere = BodyOf(Sphere(10));
  static_cast<void>(Get(MeshOf(sphere, {5, 60})));
  ExpectBox(sphere, {-10, -10, -10, 10, 10, 10});
}

TEST(Extents, AreReturnedInMetres) {
  const auto metres = InMetres(Get(Extents(BodyOf(Brick(10, 20, 30)))));
  EXPECT_THAT(metres, Pointwise(DoubleNear(1e-9), {0.0, 0.0, 0.0, 0.01, 0.02, 0.03}));
}

TEST(Measures, OfASphere) {
  const Measures measures = Measured(Get(MoveBody(BodyOf(Sphere(10)), {5, 0, 0})));
  EXPECT_NEAR(measures.volume, 4000 * std::numbers::pi / 3, 1e-6);
  EXPECT_NEAR(measures.area, 400 * std::numbers::pi, 1e-6);
  EXPECT_NEAR(measures.centroid.x, 5, 1e-9);
  EXPECT_TRUE(measures.closed);
}

TEST(Measures, OfAFaceAlone) {
  TopoDS_Shape face = Brick(10, 20, 30);
  while (face.ShapeType() != TopAbs_FACE) face = TopoDS_Iterator(face).Value();
  const Measures measures = Measured(BodyOf(face));
  EXPECT_FALSE(measures.closed);
  EXPECT_EQ(measures.volume, 0);
  EXPECT_NEAR(measures.area, 600, 1e-6);
  EXPECT_NEAR(measures.centroid.z, 15, 1e-6);
}

}  // namespace
}  // namespace vanzet::modeller
