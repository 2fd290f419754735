#include <nlohmann/json.hpp>

#include "cli/run_vanzet.h"
#include "modeller/foreign_files.h"
#include "modeller/solids.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
namespace fs = std::filesystem;

/// A project that came by mail, with a small file that uses one brick thousands of times.
class HostileBody : public CommandLineTest {
 protected:
  HostileBody() { MakeProject(); }

  /// 2^levels bricks, one each `step`.
  void PutBricks(int levels, double step) {
    const fs::path file = folder / "lathe/bodies/flange-casting.brep";
    WriteBrep(Doubled(Brick(0.5, 20, 10), levels, step), file);
    EXPECT_LT(fs::file_size(file), 10'000U);
  }

  void PutCasting() {
    fs::copy(VANZET_SOURCE_DIR "/examples/bodies/flange-casting.step", folder / "lathe/bodies");
  }

  /// A billet of that solid, and nothing else.
  Outcome Define() {
    const auto form =
        nlohmann::json::parse(ReadBytes(VANZET_SOURCE_DIR "/examples/definitions/flange-casting.json"));
    const nlohmann::json billet = {
        {"spurs", {{{"spur", 0}, {"main", {{"billet", form["spurs"][0]["main"]["billet"]}}}}}}};
    return Vanzet("define - lathe", "", billet.dump());
  }

  /// The same in a chuck.
  Outcome DefineInAChuck() {
    auto form =
        nlohmann::json::parse(ReadBytes(VANZET_SOURCE_DIR "/examples/definitions/flange-casting.json"));
    form["spurs"][0]["main"].erase("finished_part");
    return Vanzet("define - lathe", "", form.dump());
  }

  void ExpectRefused(const Outcome& outcome) {
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("flange-casting.brep: "));
    EXPECT_THAT(outcome.err, HasSubstr("has more than 100000 faces\n"));
  }

  static std::size_t LinesOf(const std::string& text) {
    return static_cast<std::size_t>(std::ranges::count(text, '\n'));
  }
};

TEST_F(HostileBody, WithMoreFacesThanABodyMayHaveIsNotDefined) {
  PutBricks(17, 1);
  ExpectRefused(Define());
}

TEST_F(HostileBody, ThatReplacesAGoodOneIsNeitherExportedNorDrawn) {
  PutCasting();
  const Outcome defined = Define();
  ASSERT_EQ(defined.status, 0) << defined.err;
  fs::remove(folder / "lathe/bodies/flange-casting.step");
  PutBricks(17, 1);
  for (const char* format : {"step", "stl", "wrl", "gltf"}) {
    const Outcome exported = Vanzet(std::string("export lathe --out models --format ") + format);
    ExpectRefused(exported);
    EXPECT_EQ(LinesOf(exported.err), 1U) << exported.err;
  }
  ExpectRefused(Vanzet("picture lathe --view equipment --out picture.png"));
  EXPECT_FALSE(fs::exists(folder / "models"));
  EXPECT_FALSE(fs::exists(folder / "picture.png"));
}

TEST_F(HostileBody, WithNearlyTooManyFacesIsDefinedExportedAndDrawn) {
  PutBricks(14, 1);
  for (const std::string command :
       {"export lathe --out models --format stl", "picture lathe --view equipment --out picture.png"}) {
    const Outcome defined = Define();
    ASSERT_EQ(defined.status, 0) << defined.err;
    const Outcome outcome = Vanzet(command);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
  }
  EXPECT_EQ(fs::file_size(folder / "models/main-billet.stl"), 84U + 50U * 12U * (1U << 14));
}

TEST_F(HostileBody, OfManyBricksInOnePlaceIsExportedAndNotDrawn) {
  PutBricks(12, 0);
  const Outcome defined = Define();
  ASSERT_EQ(defined.status, 0) << defined.err;
  EXPECT_EQ(Vanzet("export lathe --out models --format wrl").status, 0);
  const Outcome drawn = Vanzet("picture lathe --view equipment --out picture.png");
  EXPECT_EQ(drawn.status, 1);
  EXPECT_THAT(drawn.err, HasSubstr("main billet: its facets cover each other too often to be drawn\n"));
}

TEST_F(HostileBody, OfManyBricksInOnePlaceIsLeftOutOfThePictureOfTheOthers) {
  PutBricks(12, 0);
  const Outcome defined = DefineInAChuck();
  ASSERT_EQ(defined.status, 0) << defined.err;
  const Outcome drawn = Vanzet("picture lathe --view equipment --out picture.png");
  EXPECT_EQ(drawn.status, 0);
  EXPECT_EQ(drawn.err, "vanzet: main billet: its facets cover each other too often to be drawn\n");
  EXPECT_TRUE(fs::exists(folder / "picture.png"));
  EXPECT_EQ(Vanzet("picture lathe --view equipment --out picture.png --strict").status, 1);
}

}  // namespace
}  // namespace vanzet::test
