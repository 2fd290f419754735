#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/run_vanzet.h"
#include "modeller/exchange.h"
#include "modeller/foreign_files.h"
#include "modeller/solids.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using Json = nlohmann::json;
namespace fs = std::filesystem;

/// A shaft of 40 mm and 100 mm along z, beside the origin, as another program has it.
class BodyCommand : public CommandLineTest {
 protected:
  BodyCommand() {
    MakeProject();
    fs::create_directories(folder / "lathe/bodies");
    WriteStep(CylinderAlongZ(12, -3, 20, 30, 130), folder / "lathe/bodies/shaft.step");
  }
};

TEST_F(BodyCommand, ShowsPartsAndTheAxis) {
  const Outcome shown = Vanzet("body show lathe/bodies/shaft.step --json");
  ASSERT_EQ(shown.status, 0) << shown.err;
  const Json json = Json::parse(shown.out);
  EXPECT_EQ(json["file_unit"], "millimetre");
  EXPECT_EQ(json["surfaces"], true);
  ASSERT_EQ(json["parts"].size(), 1U);
  EXPECT_EQ(json["parts"][0]["solid"], true);
  EXPECT_NEAR(json["parts"][0]["volume"].get<double>(), 125663.706, 1e-3);
  EXPECT_NEAR(json["round"]["origin"][0].get<double>(), 12, 1e-9);
  EXPECT_NEAR(json["round"]["origin"][1].get<double>(), -3, 1e-9);
  EXPECT_EQ(json["round"]["direction"], (Json{0.0, 0.0, 1.0}));
  EXPECT_NEAR(json["round"]["radius"].get<double>(), 20, 1e-9);
  EXPECT_THAT(Vanzet("body show lathe/bodies/shaft.step --unit inch").out,
              HasSubstr("along z, radius 0.78740157 inch\n"));
}

TEST_F(BodyCommand, LaysByHandAndByItself) {
  const std::string where = "lathe/bodies/shaft.lay: -100, -20, -20 to 0, 20, 20 mm\n";
  EXPECT_EQ(Vanzet("body lay lathe/bodies/shaft.step --looking z --axis 12,-3 --face 130").out, where);
  const std::string byHand = ReadBytes(folder / "lathe/bodies/shaft.lay");
  EXPECT_EQ(Vanzet("body lay lathe/bodies/shaft.step --auto").out, where);
  EXPECT_THAT(ReadBytes(folder / "lathe/bodies/shaft.lay"), HasSubstr("looking = z\n"));
  EXPECT_THAT(Vanzet("body show lathe/bodies/shaft.step").out,
              HasSubstr("lies       -100, -20, -20 to 0, 20, 20 mm\n"));
}

TEST_F(BodyCommand, LaysWhatADefinitionUses) {
  ASSERT_EQ(Vanzet("body lay lathe/bodies/shaft.step --auto").status, 0);
  WriteBytes(folder / "form.json", R"({"version": 1, "spurs": [{"spur": 0, "main": {
      "chuck": {"name": "Chuck 160"}, "billet": {"kind": "solid", "solid": "shaft"}},
      "datum": {"main": {"clamping_out": 60, "origin": 0}}}]})");
  const Outcome defined = Vanzet("define form.json lathe");
  ASSERT_EQ(defined.status, 0) << defined.err;
  const Outcome exported = Vanzet("export lathe --out models --format stl --body 'main billet' --json");
  ASSERT_EQ(exported.status, 0) << exported.err;
  const Json box = Json::parse(exported.out)["files"][0]["bodies"][0]["box"];
  EXPECT_NEAR(box[3].get<double>() - box[0].get<double>(), 100, 0.01) << "along the spindle: " << box;
  EXPECT_NEAR(box[4].get<double>(), 20, 0.1) << box;
}

TEST_F(BodyCommand, RefusesWhatHasNoEffectOrNoMeaning) {
  for (const auto& [words, message] : std::map<std::string, std::string>{
           {"--auto --axis 1,2", "--auto finds the axis; --axis has no effect beside it"},
           {"--axis 1", "expected two numbers across --looking, or three, such as 12.5,-3; found '1'"},
           {"--looking up", "expected one of x, -x, y, -y, z, -z; found 'up'"}}) {
    const Outcome refused = Vanzet("body lay lathe/bodies/shaft.step " + words);
    EXPECT_EQ(refused.status, 2) << words;
    EXPECT_THAT(refused.err, HasSubstr(message)) << words;
  }
  EXPECT_FALSE(fs::exists(folder / "lathe/bodies/shaft.lay"));
  const Outcome missing = Vanzet("body lay lathe/bodies/none.step --auto");
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.err, "vanzet: lathe/bodies/none.step: does not exist\n");
}

TEST_F(BodyCommand, FindsNoAxisInABrick) {
  WriteStep(Brick(10, 20, 30), folder / "lathe/bodies/brick.step");
  const Outcome laid = Vanzet("body lay lathe/bodies/brick.step --auto");
  EXPECT_EQ(laid.status, 1);
  EXPECT_EQ(laid.err,
            "vanzet: lathe/bodies/brick.step: has no cylinder for '--auto'; give the axis with '--axis'\n");
  EXPECT_THAT(Vanzet("body show lathe/bodies/brick.step").out, testing::Not(HasSubstr("round")));
}

}  // namespace
}  // namespace vanzet::test
