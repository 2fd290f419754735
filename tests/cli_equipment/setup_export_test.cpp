#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/run_vanzet.h"
#include "support/places.h"

/// The formats of whole set-ups, as docs/formats/setup.md describes them.
namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using Json = nlohmann::json;

/// The bar job: chuck and jaws, a bar, and a collet on the sub spindle; the datum at 20.
class SetupExport : public CommandLineTest {
 protected:
  SetupExport() {
    MakeUpgradedProject();
    Played(VANZET_SOURCE_DIR "/examples/scripts/bar-job.txt");
  }

  void Played(const std::string& script) {
    const Outcome played = Vanzet("script lathe '" + script + "' --transcript run.jsonl");
    EXPECT_EQ(played.status, 0) << played.err;
  }

  void Define(const std::string& form) {
    WriteBytes(folder / "form.json", form);
    const Outcome defined = Vanzet("define form.json lathe");
    EXPECT_EQ(defined.status, 0) << defined.err;
  }

  std::string Exported(const std::string& format) {
    const Outcome exported = Vanzet("export lathe --out - --format " + format);
    EXPECT_EQ(exported.status, 0) << exported.err;
    return exported.out;
  }

  std::vector<std::string> LinesWith(const std::string& text, const std::string& part) {
    std::vector<std::string> found;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      if (line.find(part) != std::string::npos) found.push_back(line);
    }
    return found;
  }
};

const Json& BodyNamed(const Json& scene, const std::string& name) {
  for (const Json& body : scene.at("bodies")) {
    if (body.at("name") == name) return body;
  }
  ADD_FAILURE() << name;
  return scene;
}

TEST_F(SetupExport, OfTheSceneHasBodiesPlacesAndColours) {
  const Json scene = Json::parse(Exported("json"));
  EXPECT_EQ(scene.at("version"), 1);
  EXPECT_EQ(scene.at("unit"), "mm");
  EXPECT_EQ(scene.at("project"), "lathe");
  EXPECT_THAT(scene.at("time").get<std::string>(), testing::MatchesRegex("....-..-..T..:..:..Z"));
  EXPECT_EQ(scene.at("datums").at(0), Json({{"spindle", "main"}, {"x", 20.0}}));
  const Json& chuck = BodyNamed(scene, "main chuck");
  EXPECT_EQ(chuck.at("kind"), "clamp");
  EXPECT_EQ(chuck.at("device"), "Chuck 160");
  EXPECT_EQ(BodyNamed(scene, "main jaw 2").at("kind"), "jaw");
  EXPECT_EQ(BodyNamed(scene, "main billet").at("device"), "");
  EXPECT_NE(BodyNamed(scene, "main billet").at("colour"), chuck.at("colour"));
}

TEST_F(SetupExport, OfTheScenePutsPointsWhereTheirRowsSay) {
  const Json scene = Json::parse(Exported("json"));
  const Json& billet = BodyNamed(scene, "main billet");
  const Json& row = billet.at("place").at(0);
  double low = 1e9, high = -1e9;
  for (const Json& point : billet.at("points")) {
    const double x = row[0].get<double>() * point[0].get<double>() +
                     row[1].get<double>() * point[1].get<double>() +
                     row[2].get<double>() * point[2].get<double>() + row[3].get<double>();
    low = std::min(low, x);
    high = std::max(high, x);
  }
  EXPECT_NEAR(low, 22 - 1000, 1e-6);
  EXPECT_NEAR(high, 22, 1e-6);
  for (const Json& corner : billet.at("triangles").at(0)) EXPECT_LT(corner, billet.at("points").size());
}

TEST_F(SetupExport, OfLinuxCncHasTheStockFromTheDatum) {
  const std::string program = Exported("linuxcnc");
  EXPECT_THAT(
      LinesWith(program, "WORKPIECE"),
      ElementsAre("(WORKPIECE,CYLINDER,AXIS=Z,X=0,Y=0,ZMIN=-998.00000,ZMAX=2.00000,DIAMETER=42.00000)"));
  EXPECT_LT(program.find("G21\n"), program.find("WORKPIECE"));
  EXPECT_TRUE(program.ends_with("o100 endif\nM2\n"));
}

TEST_F(SetupExport, OfLinuxCncDrawsWhatHoldsTheBilletInThePreviewAlone) {
  const std::string program = Exported("linuxcnc");
  const std::size_t condition = program.find("o100 if [#<_task> EQ 0]");
  ASSERT_NE(condition, std::string::npos);
  EXPECT_EQ(program.substr(0, condition).find("G1 "), std::string::npos);
  // The upright jaw is on the bar's radius, 80 in front of the chuck's face, and the chuck around its bore.
  EXPECT_THAT(program, HasSubstr("(main jaw 1: Soft jaw 160)\nG0 X59.00000 Z-122.00000\nG1 X21.00000"));
  EXPECT_THAT(program, Not(HasSubstr("main jaw 2")));
  EXPECT_THAT(program, Not(HasSubstr("main billet")));
  EXPECT_THAT(program, HasSubstr("(sub collet: Collet D42)"));
}

TEST_F(SetupExport, OfLinuxCncHasATubeForABilletWithABore) {
  Define(R"({"version": 1, "spurs": [{"spur": 0, "main": {"billet": {"kind": "cylinder",
             "outer_diameter": 42, "inner_diameter": 12, "part_length": 60}}}]})");
  EXPECT_THAT(Exported("linuxcnc"), HasSubstr("(WORKPIECE,TUBE,AXIS=Z"));
  EXPECT_THAT(Exported("linuxcnc"), HasSubstr(",DIAMETER=42.00000,INNER_DIAMETER=12.00000)"));
}

TEST_F(SetupExport, OfMtConnectHasAFixtureForEachSpindleAndTheRawMaterial) {
  const std::string document = Exported("mtconnect");
  EXPECT_THAT(LinesWith(document, "<Fixture "), testing::SizeIs(2));
  EXPECT_THAT(document, HasSubstr("<Description>Chuck 160, Soft jaw 160</Description>"));
  EXPECT_THAT(document, HasSubstr("<FixtureId>vanzet.lathe.0.sub.fixture</FixtureId>"));
  EXPECT_THAT(document, HasSubstr("assetCount=\"3\""));
  EXPECT_THAT(document, HasSubstr("<Form>BAR</Form>"));
  EXPECT_THAT(document, HasSubstr("<InitialDimension>42 42 1000</InitialDimension>"));
  EXPECT_THAT(document, HasSubstr("<InitialVolume>1385442.36</InitialVolume>"));  // pi * 21^2 * 1000
}

TEST_F(SetupExport, IsOneFileThatReplacesThoseOfEarlierExports) {
  EXPECT_EQ(Vanzet("export lathe --out models --format stl").status, 0);
  const Outcome exported = Vanzet("export lathe --out models --format mtconnect --json");
  EXPECT_EQ(exported.status, 0) << exported.err;
  EXPECT_EQ(Json::parse(exported.out).at("files").at(0).at("path"), "models/equipment.xml");
  EXPECT_TRUE(std::filesystem::exists(folder / "models/equipment.xml"));
  EXPECT_FALSE(std::filesystem::exists(folder / "models/equipment.stl"));
}

TEST_F(SetupExport, RefusesOneBodyOfAWholeSetup) {
  const Outcome refused = Vanzet("export lathe --out models --format linuxcnc --body jaw");
  EXPECT_EQ(refused.status, 2);
  EXPECT_THAT(refused.err, HasSubstr("--body: has no effect with the format linuxcnc"));
}

TEST_F(SetupExport, KeepsNamesFromEndingTheirCommentsAndElements) {
  Define(R"({"version": 1, "spurs": [{"spur": 0,
             "main": {"chuck": {"name": "Chuck <(1)>", "letters": {"A": 80, "B": 90, "C": 22.5}}}}]})");
  EXPECT_THAT(Exported("linuxcnc"), HasSubstr("(main chuck: Chuck <[1]>)\n"));
  EXPECT_THAT(Exported("mtconnect"), HasSubstr("<Description>Chuck &lt;(1)&gt;"));
}

}  // namespace
}  // namespace vanzet::test
