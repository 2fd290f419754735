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

/// The text of a STEP file with another coordinate system among the items of its representation.
std::string WithPlacement(std::string text, const std::string& name) {
  const auto items = text.find(',', text.find("(#", text.find("BREP_SHAPE_REPRESENTATION")));
  text.insert(items, ",#9001");
  return text.insert(text.rfind("ENDSEC;"), "#9001 = AXIS2_PLACEMENT_3D('" + name +
                                                "',#9002,#9003,#9004);\n"
                                                "#9002 = CARTESIAN_POINT('',(12.,-3.,130.));\n"
                                                "#9003 = DIRECTION('',(0.,0.,1.));\n"
                                                "#9004 = DIRECTION('',(0.,1.,0.));\n");
}

TEST_F(BodyCommand, LaysByANamedPlacement) {
  const fs::path file = folder / "lathe/bodies/shaft.step";
  WriteBytes(file, WithPlacement(ReadBytes(file), "front"));
  EXPECT_THAT(Vanzet("body show lathe/bodies/shaft.step").out,
              HasSubstr("placement  front: at 12, -3, 130 mm, looking z\n"));
  const Json json = Json::parse(Vanzet("body show lathe/bodies/shaft.step --json").out);
  EXPECT_EQ(json["placements"][0]["origin"], (Json{12.0, -3.0, 130.0}));
  EXPECT_EQ(Vanzet("body lay lathe/bodies/shaft.step --placement front").out,
            "lathe/bodies/shaft.lay: -100, -20, -20 to 0, 20, 20 mm\n");
  EXPECT_THAT(ReadBytes(folder / "lathe/bodies/shaft.lay"),
              HasSubstr("looking = z\naxis = 12, -3, 130\nface = 130\n"));
  const Outcome missing = Vanzet("body lay lathe/bodies/shaft.step --placement back");
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.err, "vanzet: lathe/bodies/shaft.step: has no placement 'back'; it has 'front'\n");
  EXPECT_EQ(Vanzet("body lay lathe/bodies/shaft.step --placement front --face 3").status, 2);
}

TEST_F(BodyCommand, LaysWhatItExportedWhereItWas) {
  WriteBytes(folder / "form.json", R"({"version": 1, "spurs": [{"spur": 0, "main": {
      "chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160"}},
      "datum": {"main": {"clamping_out": 60, "origin": 20}}}]})");
  ASSERT_EQ(Vanzet("define form.json lathe").status, 0);
  const Outcome exported = Vanzet("export lathe --out models --format step --json");
  ASSERT_EQ(exported.status, 0) << exported.err;
  const Json shown = Json::parse(Vanzet("body show models/equipment.step --json").out);
  std::set<std::string> names;
  for (const Json& place : shown["placements"]) names.insert(place["name"]);
  EXPECT_THAT(names, testing::IsSupersetOf(
                         {"main datum", "main chuck plug", "main chuck socket", "main jaw 1 plug"}));
  const Json before = Json::parse(exported.out)["files"][0]["bodies"][0]["box"];
  ASSERT_EQ(Vanzet("body lay models/main-chuck.step --placement 'main datum'").status, 0);
  const Json lies = Json::parse(Vanzet("body show models/main-chuck.step --json").out)["lies"];
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(lies["from"][i].get<double>(), before[i].get<double>(), 1e-2) << i;
    EXPECT_NEAR(lies["to"][i].get<double>(), before[i + 3].get<double>(), 1e-2) << i;
  }
  const std::string first = ReadBytes(folder / "models/equipment.step");
  ASSERT_EQ(Vanzet("export lathe --out models --format step").status, 0);
  EXPECT_TRUE(first == ReadBytes(folder / "models/equipment.step")) << "the same bytes in each run";
}

TEST_F(BodyCommand, NamesBodiesThatNothingHoldsTogether) {
  WriteStep(std::vector<TopoDS_Shape>{Brick(10, 20, 30), CylinderAlongZ(50, 0, 5, 0, 30)},
            folder / "lathe/bodies/two.step");
  EXPECT_THAT(Vanzet("body lay lathe/bodies/two.step --looking z --face 30").err,
              HasSubstr("two.step: has 2 bodies that no assembly holds together; all of them are used\n"));
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
