#include "scene/camera.h"

#include <gtest/gtest.h>

namespace vanzet::scene {
namespace {

using geometry::Point3d;

const std::vector<Point3d> kBrick = {{0, 0, 0},  {40, 0, 0},  {0, 20, 0},  {40, 20, 0},
                                     {0, 0, 10}, {40, 0, 10}, {0, 20, 10}, {40, 20, 10}};

Camera From(View view, bool isPerspective) {
  return Camera(LookFrom(view, isPerspective, kBrick, 300, 200));
}

TEST(Cameras, ShowAllPointsWithinThePictureAndAboutItsMiddle) {
  for (const std::string_view word : ViewWords()) {
    for (const bool isPerspective : {false, true}) {
      const Camera camera = From(*ViewNamed(word), isPerspective);
      double left = 300, right = 0, top = 200, bottom = 0;
      for (const Point3d& point : kBrick) {
        const PicturePoint p = camera.Project(point);
        left = std::min(left, p.x), right = std::max(right, p.x);
        top = std::min(top, p.y), bottom = std::max(bottom, p.y);
      }
      EXPECT_GE(left, 0) << word;
      EXPECT_LE(bottom, 200) << word;
      EXPECT_NEAR(left + right, 300, 1e-6) << word;
      EXPECT_NEAR(top + bottom, 200, 1e-6) << word;
      EXPECT_TRUE(right - left > 260 || bottom - top > 170) << word;
    }
  }
}

TEST(Cameras, HaveXToTheRightAndYUpInTheFrontView) {
  const Camera camera = From(View::kFront, false);
  const auto at = [&](double x, double y, double z) { return camera.Project({x, y, z}); };
  EXPECT_GT(at(40, 0, 0).x, at(0, 0, 0).x);
  EXPECT_LT(at(0, 20, 0).y, at(0, 0, 0).y);
  EXPECT_GT(at(0, 0, 10).nearness, at(0, 0, 0).nearness);
}

TEST(Cameras, MakeWhatIsFartherSmallerInPerspectiveAlone) {
  const auto length = [](const Camera& camera, double z) {
    return camera.Project({40, 0, z}).x - camera.Project({0, 0, z}).x;
  };
  const Camera parallel = From(View::kFront, false), eye = From(View::kFront, true);
  EXPECT_NEAR(length(parallel, 10), length(parallel, 0), 1e-9);
  EXPECT_GT(length(eye, 10), length(eye, 0) * 1.01);
}

TEST(Cameras, KnowTheNearnessOfTheCuttingPlane) {
  for (const bool isPerspective : {false, true}) {
    const Camera camera = From(View::kIso, isPerspective);
    ASSERT_TRUE(camera.SeesFrontOf({}));
    const PicturePoint p = camera.Project({12, 7, 0});
    EXPECT_NEAR(camera.NearnessOf({}, p.x, p.y), p.nearness, 1e-9);
  }
  EXPECT_FALSE(From(View::kBack, false).SeesFrontOf({}));
  EXPECT_FALSE(From(View::kTop, false).SeesFrontOf({})) << "edge on";
}

TEST(Looks, KeepThePlaceThatIsZoomedAt) {
  const Look look = LookFrom(View::kIso, false, kBrick, 300, 200);
  const PicturePoint before = Camera(look).Project({12, 7, 3});
  const PicturePoint after = Camera(ZoomAt(look, 2.5, before.x, before.y)).Project({12, 7, 3});
  EXPECT_NEAR(before.x, after.x, 1e-9);
  EXPECT_NEAR(before.y, after.y, 1e-9);
}

TEST(Looks, TurnAboutTheMiddleAndKeepUpUp) {
  Look look = LookFrom(View::kFront, false, kBrick, 300, 200);
  const PicturePoint middle = Camera(look).Project(look.middle);
  for (int i = 0; i < 40; ++i) {
    look = TurnEye(look, 0.2, 0.3);
    EXPECT_GE(look.up.dy, -1e-9);
    EXPECT_NEAR(look.up.Magnitude(), 1, 1e-9);
    EXPECT_NEAR(Dot(look.up, look.toward), 0, 1e-9);
  }
  EXPECT_NEAR(Camera(look).Project(look.middle).x, middle.x, 1e-9);
}

TEST(Looks, ByAQuarterTurnFromTheFrontAreFromTheRight) {
  const Look turned = TurnEye(LookFrom(View::kFront, false, kBrick, 300, 200), geometry::PI / 2, 0);
  const Look right = LookFrom(View::kRight, false, kBrick, 300, 200);
  EXPECT_NEAR(Dot(turned.toward, right.toward), 1, 1e-9);
  EXPECT_NEAR(Dot(turned.up, right.up), 1, 1e-9);
}

}  // namespace
}  // namespace vanzet::scene
