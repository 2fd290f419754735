#include "scene/body_names.h"

#include <gmock/gmock.h>

namespace vanzet::scene {
namespace {

using testing::ElementsAre;

Scene SceneOf(const std::vector<std::string>& names) {
  Scene scene;
  for (const std::string& name : names) {
    scene.bodies.push_back({name, Kind::kJaw, modeller::Body(nullptr), geometry::Matrix()});
  }
  return scene;
}

const Scene kScene = SceneOf({"main chuck", "main jaw 1", "main jaw 2", "sub jaw 1", "center"});

TEST(BodyNames, StandForAllBodiesThatHaveTheirWords) {
  EXPECT_THAT(*FindBodies(kScene, "main jaw 1"), ElementsAre(1));
  EXPECT_THAT(*FindBodies(kScene, "Main-Jaw-1"), ElementsAre(1));
  EXPECT_THAT(*FindBodies(kScene, "main jaw"), ElementsAre(1, 2));
  EXPECT_THAT(*FindBodies(kScene, "jaw"), ElementsAre(1, 2, 3));
  EXPECT_THAT(*FindBodies(kScene, std::vector<std::string>{"center", "chuck"}), ElementsAre(0, 4));
  EXPECT_TRUE(FindBodies(kScene, std::vector<std::string>())->empty());
}

TEST(BodyNames, ThatAreUnknownAreReportedWithTheNearOnes) {
  const auto near = FindBodies(kScene, "centre");
  ASSERT_FALSE(near);
  EXPECT_EQ(near.fault().text, "body 'centre' does not exist; did you mean 'center'?");
  EXPECT_EQ(near.fault().kind, FaultKind::kMissing);
  EXPECT_EQ(FindBodies(kScene, "x").fault().text,
            "body 'x' does not exist; the bodies are: main chuck, main jaw 1, main jaw 2, sub jaw 1, center");
  EXPECT_FALSE(FindBodies(kScene, "")) << "no body has no word";
}

}  // namespace
}  // namespace vanzet::scene
