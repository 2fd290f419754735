#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/run_vanzet.h"
#include "modeller/foreign_files.h"
#include "modeller/solids.h"
#include "support/device_package.h"
#include "support/zip_text.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using Json = nlohmann::json;
namespace fs = std::filesystem;

/// A project, and a package with a chuck and its model.
class PackageCommand : public CommandLineTest {
 protected:
  PackageCommand() {
    MakeProject();
    WriteStep(CylinderAlongZ(0, 0, 125, -105, 0), folder / "chuck.step");
    content = {{"data/KF-250.p21", kChuckInPart21}, {"basic/KF-250.stp", ReadBytes(folder / "chuck.step")}};
    EXPECT_TRUE(WriteZip(folder / "chuck.zip", content));
  }

  /// Expects the work to fail with this in its message, and the shop to stay as it is.
  void ExpectRefused(const std::string& arguments, const std::string& message) {
    const std::string before = ReadBytes(catalogue);
    const std::string figures = ReadBytes(maker);
    const bool hadModel = fs::exists(model);
    const Outcome run = Vanzet("catalogue import " + arguments);
    EXPECT_EQ(run.status, 1) << arguments;
    EXPECT_THAT(run.err, HasSubstr(message)) << arguments;
    EXPECT_EQ(ReadBytes(catalogue), before) << arguments;
    EXPECT_EQ(ReadBytes(maker), figures) << arguments;
    EXPECT_EQ(fs::exists(model), hadModel) << arguments;
  }

  ZipContent content;
  const fs::path catalogue = folder / "lathe/clampdevice.cld", maker = folder / "lathe/clampdevice.json",
                 model = folder / "lathe/models/Chuck-250.step";
};

constexpr const char* kImport = "catalogue import lathe chuck.zip --kind chuck --letter C=35";

TEST_F(PackageCommand, ShowsDevicesAndModels) {
  const Outcome shown = Vanzet("catalogue package chuck.zip");
  EXPECT_EQ(shown.status, 0) << shown.err;
  EXPECT_THAT(shown.out, HasSubstr("\n  WT                                   38.5           kg\n"));
  EXPECT_THAT(shown.out, HasSubstr("\nbasic/KF-250.stp\n"));
  const Json json = Json::parse(Vanzet("catalogue package chuck.zip --json").out);
  EXPECT_EQ(json["devices"][0]["order"], "KF-250-A6");
  EXPECT_EQ(json["devices"][0]["properties"][1].dump(),
            R"({"names":["BD","nominal value"],"unit":"mm","value":"250.0"})");
  EXPECT_EQ(json["models"].dump(), R"(["basic/KF-250.stp"])");
}

TEST_F(PackageCommand, BringsADeviceIntoTheShop) {
  const Outcome run = Vanzet(kImport);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "added Chuck 250: chuck  A 125  B 105  C 35; its model is models/Chuck-250.step\n");
  EXPECT_THAT(ReadBytes(catalogue), HasSubstr("\nChuck 250\n1 125.000000 105.000000 35.000000 "));
  EXPECT_EQ(Json::parse(ReadBytes(maker))["devices"]["Chuck 250"].dump(),
            R"({"link":"models/Chuck-250.step","mass":38.5,"note":"Kühn","order":"KF-250-A6"})");
  EXPECT_EQ(ReadBytes(model), content["basic/KF-250.stp"]);
  EXPECT_THAT(Vanzet("body show lathe/models/Chuck-250.step").out, HasSubstr("solid"));
  EXPECT_EQ(Vanzet("catalogue check lathe").status, 0);
}

TEST_F(PackageCommand, TakesWordsOverThePackage) {
  WriteBytes(folder / "own.ini", "[chuck]\nC = BHD/2\n[maker]\nthrough_hole = BHD\n");
  const Outcome run = Vanzet(
      "catalogue import lathe chuck.zip --kind chuck --symbols own.ini --name 'Kühn 250' --letter B=4 "
      "--maker "
      "order=4711 --maker through_hole=2 --unit inch --json");
  EXPECT_EQ(run.status, 0) << run.err;
  const Json device = Json::parse(run.out)["devices"][0];
  EXPECT_EQ(device["name"], "Kühn 250");
  EXPECT_EQ(device["letters"]["B"], 4);
  EXPECT_NEAR(device["letters"]["C"].get<double>(), 35 / 25.4, 1e-6);
  EXPECT_EQ(device["maker"]["order"], "4711");
  EXPECT_EQ(device["maker"]["through_hole"], 2);
  EXPECT_EQ(device["maker"]["link"], "models/K--hn-250.step");
}

TEST_F(PackageCommand, RefusesWhatMakesNoDevice) {
  ExpectRefused("lathe chuck.zip --kind chuck",
                "Chuck 250: a chuck needs a value of C (Radius of the bore); "
                "'vanzet catalogue package' lists its properties");
  ExpectRefused("lathe chuck.zip --kind chuck --letter C=200", "C (200) must be less than A (125)");
  ExpectRefused("lathe chuck.zip --kind chuck --letter C=35 --model x.stp",
                "chuck.zip: does not have the model 'x.stp'; it has 'basic/KF-250.stp'");
  ExpectRefused("lathe chuck.zip --kind chuck --letter C=35 --device x", "does not have the device 'x'");
  ASSERT_EQ(Vanzet(kImport).status, 0);
  ExpectRefused("lathe chuck.zip --kind chuck --letter C=35", "--replace replaces it");
  content["basic/KF-250.stp"] = "not STEP";
  ASSERT_TRUE(WriteZip(folder / "chuck.zip", content));
  ExpectRefused("lathe chuck.zip --kind chuck --letter C=35 --replace",
                "chuck.zip: 'basic/KF-250.stp': not a readable STEP file");
}

TEST_F(PackageCommand, ReplacesADeviceWithItsModel) {
  ASSERT_EQ(Vanzet(kImport).status, 0);
  WriteStep(CylinderAlongZ(0, 0, 120, -105, 0), folder / "other.step");
  content["basic/KF-250.stp"] = ReadBytes(folder / "other.step");
  ASSERT_TRUE(WriteZip(folder / "chuck.zip", content));
  ExpectRefused("lathe chuck.zip --kind chuck --letter C=35", "is another model; --replace replaces it");
  EXPECT_THAT(Vanzet(std::string(kImport) + " --replace").out, HasSubstr("replaced Chuck 250: "));
  EXPECT_EQ(ReadBytes(model), content["basic/KF-250.stp"]);
}

TEST_F(PackageCommand, AsksWhichOfSeveralDevices) {
  content["data/small.xml"] = kChuckInXml;
  ASSERT_TRUE(WriteZip(folder / "chuck.zip", content));
  ExpectRefused("lathe chuck.zip --kind chuck --letter C=35",
                "has several devices; name one with '--device': 'data/KF-250.p21', 'data/small.xml'");
  EXPECT_EQ(Vanzet(std::string(kImport) + " --device data/small.xml --name Small").out,
            "added Small: chuck  A 125  B 101.6  C 35; its model is models/Small.step\n");
}

}  // namespace
}  // namespace vanzet::test
