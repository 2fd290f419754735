#include <gp_Ax1.hxx>

#include <BRepBuilderAPI_Transform.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <nlohmann/json.hpp>
#include <numbers>

#include "cli/run_vanzet.h"
#include "modeller/foreign_files.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using Json = nlohmann::json;

class DeviceCommands : public CommandLineTest {
 protected:
  DeviceCommands() {
    std::filesystem::copy_file(VANZET_SOURCE_DIR "/examples/contours/rounded_square.txt",
                               folder / "outline.txt");
  }

  /// A disk of radius 50 and thickness 30 along z, from z = `from` up.
  void PutDisk(double from, const char* unit = "MM") {
    gp_Trsf lift;
    lift.SetTranslation(gp_Vec(0, 0, from));
    WriteStep(BRepBuilderAPI_Transform(BRepPrimAPI_MakeCylinder(50, 30).Shape(), lift).Shape(),
              folder / "disk.step", unit);
  }

  Outcome Make(const std::string& options) {
    return Vanzet("device make --body disk.step --outline outline.txt -o own.vdm " + options);
  }

  Json Shown() {
    const Outcome shown = Vanzet("device show own.vdm --json");
    EXPECT_EQ(shown.status, 0) << shown.err;
    return Json::parse(shown.out, nullptr, false);
  }

  static std::vector<double> Numbers(const Json& json) { return json.get<std::vector<double>>(); }
};

TEST_F(DeviceCommands, LayAMakersModelAsDevicesLie) {
  PutDisk(100);
  const Outcome made = Make("--class chuck --looking z --face 130 --first 30");
  ASSERT_EQ(made.status, 0) << made.err;
  const Json shown = Shown();
  EXPECT_EQ(shown["class"], "chuck");
  EXPECT_EQ(shown["first"], 30);
  EXPECT_NEAR(Numbers(shown["from"])[0], -30, 1e-3);
  EXPECT_NEAR(Numbers(shown["to"])[0], 0, 1e-3);
  EXPECT_NEAR(Numbers(shown["to"])[2], 50, 0.06);
  EXPECT_THAT(Numbers(shown["plug"]), ElementsAre(-30, 0, 0));
  EXPECT_THAT(Numbers(shown["socket"]), ElementsAre(0, 0, 0));
  EXPECT_EQ(shown["closed"], true);
  const double volume = std::numbers::pi * 2500 * 30;
  EXPECT_NEAR(shown["volume"].get<double>(), volume, volume * 0.01);
}

TEST_F(DeviceCommands, MakeFacetsAsFinelyAsTheyAreAsked) {
  PutDisk(-30);
  ASSERT_EQ(Make("--class chuck --looking z --first 30").status, 0);
  const double usual = Shown()["volume"].get<double>();
  ASSERT_EQ(Make("--class chuck --looking z --first 30 --angle 2 --chord 0.005").status, 0);
  const double fine = Shown()["volume"].get<double>(), exact = std::numbers::pi * 2500 * 30;
  EXPECT_LT(exact - fine, (exact - usual) / 4);
}

TEST_F(DeviceCommands, TakeTheSecondsThatTheyAreAllowed) {
  EXPECT_EQ(Make("--class chuck --limit 0").status, 2);
  PutDisk(-30);
  EXPECT_EQ(Make("--class chuck --looking z --first 30 --limit 60").status, 0);
}

TEST_F(DeviceCommands, NameAModelThatAPersonShouldLookAt) {
  PutDisk(100);
  const Outcome made = Make("--class chuck --looking z --face 150 --first 30");
  EXPECT_EQ(made.status, 0);
  EXPECT_EQ(made.err, "vanzet: disk.step: has its face at -20 mm, not at 0\n");
  EXPECT_EQ(Make("--class chuck --looking z --face 130 --first 30").err, "");
  EXPECT_THAT(Make("--class chuck --looking x --face 50 --first 30").err,
              HasSubstr("disk.step: is beside the axis: its "));
}

TEST_F(DeviceCommands, ShowNoVolumeOfAnOpenBody) {
  WriteBytes(folder / "sheet.stl",
             "solid sheet\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex -50 0 0\nvertex 0 20 0\n"
             "endloop\nendfacet\nendsolid sheet\n");
  const Outcome made =
      Vanzet("device make --class chuck --body sheet.stl --outline outline.txt --first 50 -o own.vdm");
  ASSERT_EQ(made.status, 0) << made.err;
  EXPECT_TRUE(Shown()["volume"].is_null());
  EXPECT_EQ(Shown()["closed"], false);
  EXPECT_THAT(Vanzet("device show own.vdm").out, testing::ContainsRegex("volume +-\n"));
}

TEST_F(DeviceCommands, LayModelsThatLookAnyWay) {
  PutDisk(-30);
  struct Case {
    const char* looking;
    const char* face;
    double from, to;
  };
  for (const auto& [looking, face, from, to] : {Case{"z", "0", -30, 0},
                                                {"-z", "30", -30, 0},
                                                {"x", "50", -100, 0},
                                                {"-y", "50", -100, 0},
                                                {"z", "-5", -25, 5}}) {
    const Outcome made = Make(std::string("--class chuck --looking ") + looking + " --face " + face);
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_NEAR(Numbers(Shown()["from"])[0], from, 0.06) << looking;
    EXPECT_NEAR(Numbers(Shown()["to"])[0], to, 0.06) << looking;
  }
}

TEST_F(DeviceCommands, RefuseAModelThatDoesNotEndAtItsFace) {
  PutDisk(100);
  const Outcome chuck = Make("--class chuck --looking z");
  EXPECT_EQ(chuck.status, 1);
  EXPECT_EQ(chuck.err,
            "vanzet: disk.step: its face is at 130 mm, not at 0; give its position with '--face' and its "
            "direction with '--looking'\n");
  EXPECT_THAT(Make("--class jaw --looking z").err, HasSubstr("its foot is at 100 mm, not at 0"));
  EXPECT_FALSE(std::filesystem::exists(folder / "own.vdm"));
}

TEST_F(DeviceCommands, TakeModelsInInches) {
  PutDisk(0, "INCH");
  ASSERT_EQ(Make("--class jaw --looking z").status, 0);
  EXPECT_NEAR(Numbers(Shown()["to"])[0], 30, 1e-3)
      << "the file's numbers are inches, the model is as large as before";
}

TEST_F(DeviceCommands, TellWhatIsBroken) {
  WriteBytes(folder / "disk.step", "ISO-10303-21;\nnonsense");
  const Outcome broken = Make("--class chuck");
  EXPECT_EQ(broken.status, 1);
  EXPECT_THAT(broken.err, HasSubstr("disk.step: not a readable STEP file"));
  PutDisk(-30);
  EXPECT_EQ(Make("--class wheel").status, 2);
  EXPECT_EQ(Make("--class chuck --looking up").status, 2);
  EXPECT_EQ(Make("--class chuck --first far").status, 2);
  WriteBytes(folder / "outline.txt", "");
  EXPECT_EQ(Make("--class chuck --looking z").status, 1);
  WriteBytes(folder / "own.vdm", "vdm 1\nend 0\n");
  const Outcome empty = Vanzet("device show own.vdm");
  EXPECT_EQ(empty.status, 1);
  EXPECT_THAT(empty.err, StartsWith("vanzet: "));
  EXPECT_THAT(empty.err, HasSubstr("own.vdm: is not a device"));
}

TEST_F(DeviceCommands, SayWhatIsNotReadOfTheirOutline) {
  PutDisk(-30);
  WriteBytes(folder / "outline.txt", "k1 e x0 y0\nx10 y0\nax10.004 y0.004 x10 y0.004\nx0 y5\nek\n");
  const Outcome made = Make("--class chuck --looking z --first 30");
  EXPECT_EQ(made.status, 0);
  EXPECT_EQ(made.err, "vanzet: outline.txt: 1 arc under 0.005 mm radius was read as a line\n");
}

TEST_F(DeviceCommands, TakeAndPrintInches) {
  PutDisk(101.6);
  ASSERT_EQ(Make("--class chuck --looking z --face 5 --first 1.5 --unit inch").status, 0);
  EXPECT_THAT(Make("--class chuck --looking z --first 1.5 --unit inch").err,
              HasSubstr("its face is at 5.1811 inch, not at 0"));
  const Json shown = Shown();
  EXPECT_EQ(shown["first"], 38.1);
  EXPECT_NEAR(Numbers(shown["to"])[0], 4.6, 1e-3) << "131.6 - 5 * 25.4";
  const Json inches = Json::parse(Vanzet("device show own.vdm --json --unit inch").out, nullptr, false);
  EXPECT_EQ(inches["unit"], "inch");
  EXPECT_EQ(inches["first"], 1.5);
  EXPECT_NEAR(Numbers(inches["to"])[0], 4.6 / 25.4, 1e-3);
  EXPECT_NEAR(inches["volume"].get<double>(), shown["volume"].get<double>() / 16387.064, 1e-6);
  EXPECT_THAT(Vanzet("device show own.vdm --unit inch").out, HasSubstr("first             1.5\n"));
}

TEST_F(DeviceCommands, ShowPeopleALineAFact) {
  PutDisk(-30);
  ASSERT_EQ(Make("--class center --looking z --second 30").status, 0);
  const Outcome shown = Vanzet("device show own.vdm");
  EXPECT_EQ(shown.status, 0) << shown.err;
  EXPECT_THAT(shown.out, StartsWith("class             center\n"));
  EXPECT_THAT(shown.out, HasSubstr("second            30.0\n"));
}

}  // namespace
}  // namespace vanzet::test
