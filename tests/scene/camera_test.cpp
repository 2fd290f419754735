#include "scene/camera.h"

#include <gtest/gtest.h>

namespace vanzet::scene {
namespace {

using geometry::Point3d;

const std::vector<Point3d> kBrick = {{0, 0, 0},  {40, 0, 0},  {0, 20, 0},  {40, 20, 0},
                                     {0, 0, 10}, {40, 0, 10}, {0, 20, 10}, {40, 20, 10}};

TEST(Cameras, ShowAllPointsWithinThePictureAndAboutItsMiddle) {
  for (const std::string_view word : ViewWords()) {
    for (const bool isPerspective : {false, true}) {
      const Camera camera(*ViewNamed(word), isPerspective, kBrick, 300, 200);
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
  const Camera camera(View::kFront, false, kBrick, 300, 200);
  const auto at = [&](double x, double y, double z) { return camera.Project({x, y, z}); };
  EXPECT_GT(at(40, 0, 0).x, at(0, 0, 0).x);
  EXPECT_LT(at(0, 20, 0).y, at(0, 0, 0).y);
  EXPECT_GT(at(0, 0, 10).nearness, at(0, 0, 0).nearness);
}

TEST(Cameras, MakeWhatIsFartherSmallerInPerspectiveAlone) {
  const auto length = [](const Camera& camera, double z) {
    return camera.Project({40, 0, z}).x - camera.Project({0, 0, z}).x;
  };
  const Camera parallel(View::kFront, false, kBrick, 300, 200), eye(View::kFront, true, kBrick, 300, 200);
  EXPECT_NEAR(length(parallel, 10), length(parallel, 0), 1e-9);
  EXPECT_GT(length(eye, 10), length(eye, 0) * 1.01);
}

TEST(Cameras, KnowTheNearnessOfTheCuttingPlane) {
  for (const bool isPerspective : {false, true}) {
    const Camera camera(View::kIso, isPerspective, kBrick, 300, 200);
    ASSERT_TRUE(camera.SeesTopOfPlane());
    const PicturePoint p = camera.Project({12, 7, 0});
    EXPECT_NEAR(camera.NearnessOfPlane(p.x, p.y), p.nearness, 1e-9);
  }
  EXPECT_FALSE(Camera(View::kBack, false, kBrick, 300, 200).SeesTopOfPlane());
  EXPECT_FALSE(Camera(View::kTop, false, kBrick, 300, 200).SeesTopOfPlane()) << "edge on";
}

}  // namespace
}  // namespace vanzet::scene
