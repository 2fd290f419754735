#include <gmock/gmock.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "cli/run_vanzet.h"
#include "modeller/exchange.h"
#include "modeller/foreign_files.h"
#include "modeller/measures.h"
#include "modeller/read_back.h"
#include "modeller/solids.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Json = nlohmann::json;
namespace fs = std::filesystem;

/// The equipment of the bar job: two clamp devices, three jaws and a stand-in for the collet's, a bar.
class ExportCommand : public CommandLineTest {
 protected:
  ExportCommand() {
    MakeUpgradedProject();
    const Outcome played =
        Vanzet("script lathe '" VANZET_SOURCE_DIR "/examples/scripts/bar-job.txt' --transcript run.jsonl");
    EXPECT_EQ(played.status, 0) << played.err;
  }

  void Export(const std::string& format) {
    const Outcome exported = Vanzet("export lathe --out models --format " + format);
    ASSERT_EQ(exported.status, 0) << exported.err;
    ASSERT_EQ(exported.err, "");
  }

  std::vector<std::string> Files() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder / "models")) names.insert(entry.path().filename());
    return {names.begin(), names.end()};
  }

  modeller::Body Read(const std::string& name) const {
    const auto body = modeller::ImportBody(folder / "models" / name, TestExchange());
    if (body) return *body;
    ADD_FAILURE() << body.fault().Message();
    return modeller::Body(nullptr);
  }

  static void ExpectSame(const std::array<double, 6>& box, const std::array<double, 6>& other,
                         double within) {
    for (std::size_t i = 0; i < box.size(); ++i) EXPECT_NEAR(box[i], other[i], within) << i;
  }
};

TEST_F(ExportCommand, WritesAFileWithAllAndOneForEach) {
  Export("step");
  EXPECT_THAT(Files(), testing::IsSupersetOf({"equipment.step", "main-billet.step", "main-chuck.step",
                                              "main-jaw-1.step", "main-jaw-2.step", "main-jaw-3.step",
                                              "sub-collet.step"}));
}

TEST_F(ExportCommand, HasTheBarAsLargeAsItWasDefinedInEveryFormat) {
  // 42 across, 1000 long; its part's front at the origin translation of 20, 2 of allowance before it.
  const std::array<double, 6> bar = {22 - 1000, -21, -21, 22, 21, 21};
  const double volume = std::numbers::pi * 441 * 1000;
  Export("step");
  ExpectSame(Box(Read("main-billet.step")), bar, 1e-2);
  EXPECT_NEAR(Measured(Read("main-billet.step")).volume, volume, 1);
  Export("stl");
  ExpectSame(Box(Read("main-billet.stl")), bar, 0.06);
  EXPECT_NEAR(Measured(Read("main-billet.stl")).volume, volume, volume * 0.01);
  Export("wrl");
  const auto wrl = modeller::ImportVrml(ReadBytes(folder / "models/main-billet.wrl"), TestExchange());
  ASSERT_TRUE(wrl) << wrl.fault().Message();
  ASSERT_EQ(wrl->size(), 1U);
  ExpectSame(Box(wrl->front().body), bar, 0.06);
  Export("gltf");
  const ReadBack glb = ReadGltfDocument(folder / "models/main-billet.glb");
  // Metres, y upwards.
  ExpectSame(Box(modeller::BodyOf(glb.shape, true)), {-0.978, -0.021, -0.021, 0.022, 0.021, 0.021}, 1e-4);
}

TEST_F(ExportCommand, HasTheSameBodiesByNameInEveryFormatThatKnowsNames) {
  Export("step");
  const ReadBack step = ReadStepDocument(folder / "models/equipment.step");
  EXPECT_THAT(step.names, testing::IsSupersetOf({"main chuck", "main jaw 1", "main jaw 2", "main jaw 3",
                                                 "main billet", "sub collet"}));
  Export("gltf");
  EXPECT_EQ(ReadGltfDocument(folder / "models/equipment.glb").names, step.names);
  Export("wrl");
  const auto wrl = modeller::ImportVrml(ReadBytes(folder / "models/equipment.wrl"), TestExchange());
  ASSERT_TRUE(wrl) << wrl.fault().Message();
  EXPECT_EQ(wrl->size(), step.names.size());
}

TEST_F(ExportCommand, HasAllBodiesOfTheSameExtentsAsOneMeshAndAsSurfaces) {
  Export("step");
  const std::array<double, 6> surfaces = Box(Read("equipment.step"));
  Export("stl");
  ExpectSame(surfaces, Box(Read("equipment.stl")), 0.2);
}

TEST_F(ExportCommand, PrintsALineForEachFile) {
  const Outcome exported = Vanzet("export lathe --out models --format step");
  std::vector<std::string> paths;
  std::istringstream lines(exported.out);
  for (std::string line; std::getline(lines, line);) paths.push_back(line.substr(7, line.find(' ') - 7));
  std::ranges::sort(paths);
  std::vector<std::string> files = Files();
  std::erase(files, "vanzet-export.json");
  EXPECT_EQ(paths, files);
  EXPECT_THAT(exported.out,
              testing::ContainsRegex("models/main-billet.step +1385442.4 mm3 +1000.0 x 42.0 x 42.0 mm\n"));
}

TEST_F(ExportCommand, ListsItsFilesWithTheirBodiesAsJson) {
  const Outcome exported = Vanzet("export lathe --out models --format stl --json");
  const Json files = Json::parse(exported.out, nullptr, false)["files"];
  ASSERT_EQ(files.size(), Files().size() - 1);
  EXPECT_EQ(files[0]["path"], "models/equipment.stl");
  EXPECT_EQ(files[0]["bodies"].size(), files.size() - 1);
  const auto billet = std::ranges::find(files, "models/main-billet.stl",
                                        [](const Json& file) { return file["path"].get<std::string>(); });
  ASSERT_NE(billet, files.end());
  const Json body = (*billet)["bodies"][0];
  EXPECT_EQ(body["name"], "main billet");
  EXPECT_NEAR(body["volume"].get<double>(), std::numbers::pi * 441 * 1000, 15000);
  EXPECT_EQ(body["box"].size(), 6U);
  EXPECT_NEAR(body["box"][3].get<double>(), 22, 1e-6);
  EXPECT_EQ(fs::file_size(folder / "models/main-billet.stl"), 84 + 50 * body["triangles"].get<std::size_t>());
}

TEST_F(ExportCommand, ListsLengthsInTheUnitThatIsAskedForOrThatOfTheProject) {
  Export("stl");
  const std::string file = ReadBytes(folder / "models/main-billet.stl");
  const std::string billet = "export lathe --out models --format stl --body 'main billet'";
  const Json metric = Json::parse(Vanzet(billet + " --json").out, nullptr, false);
  EXPECT_FALSE(metric.contains("unit"));
  const Json asked = Json::parse(Vanzet(billet + " --json --unit inch").out, nullptr, false);
  WriteBytes(folder / "lathe/bench.ini",
             ReadBytes(folder / "lathe/bench.ini") + "\n[project]\nunit = inch\n");
  const Json own = Json::parse(Vanzet(billet + " --json").out, nullptr, false);
  EXPECT_EQ(own, asked);
  EXPECT_EQ(own["unit"], "inch");
  const Json inches = own["files"][0]["bodies"][0], millimetres = metric["files"][0]["bodies"][0];
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_NEAR(inches["box"][i].get<double>() * 25.4, millimetres["box"][i].get<double>(), 1e-6) << i;
  }
  EXPECT_NEAR(inches["volume"].get<double>() * 25.4 * 25.4 * 25.4, millimetres["volume"].get<double>(), 1e-3);
  EXPECT_THAT(Vanzet(billet).out,
              testing::ContainsRegex("main-billet.stl +84.[0-9]{4} inch3 +39.3701 x 1.6535 x 1.6535 inch\n"));
  EXPECT_EQ(Json::parse(Vanzet(billet + " --json --unit mm").out, nullptr, false), metric);
  EXPECT_EQ(ReadBytes(folder / "models/main-billet.stl"), file) << "the unit is that of the list alone";
  EXPECT_EQ(Vanzet("export lathe --out - --format stl --unit inch").status, 2);
}

TEST_F(ExportCommand, WritesAnOpenBodyWithoutAVolume) {
  WriteBytes(folder / "lathe/bodies/sheet.stl",
             "solid sheet\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex -50 0 0\nvertex 0 20 0\n"
             "endloop\nendfacet\nendsolid sheet\n");
  const char* const form =
      R"({"spurs":[{"spur":0,"main":{"billet":{"kind":"solid","solid":"sheet","part_length":50,
                              "clamp_diameter":40}}}]})";
  const Outcome defined = Vanzet("define - lathe", "", form);
  ASSERT_EQ(defined.status, 0) << defined.err;
  const Outcome people = Vanzet("export lathe --out models --format wrl");
  EXPECT_THAT(people.out, testing::ContainsRegex("models/main-billet.wrl +- +50.0 x 20.0 x 0.0 mm\n"));
  const Outcome programs = Vanzet("export lathe --out models --format wrl --json");
  EXPECT_TRUE(Json::parse(programs.out, nullptr, false)["files"][0]["bodies"][0]["volume"].is_null());
}

/// A job whose raw and finished part are solids, and an exchange program that keeps a list of its orders.
class ExportOfSolids : public CommandLineTest {
 protected:
  ExportOfSolids() {
    MakeProject();
    for (const char* file : {"flange-casting.step", "flange.step"}) {
      fs::copy(fs::path(VANZET_SOURCE_DIR "/examples/bodies") / file, folder / "lathe/bodies");
    }
    const Outcome defined =
        Vanzet("define '" VANZET_SOURCE_DIR "/examples/definitions/flange-casting.json' lathe");
    EXPECT_EQ(defined.status, 0) << defined.err;
    WriteBytes(folder / "exchange", "#!/bin/sh\necho $1 >>orders\nexec '" VANZET_EXCHANGE_FILE "' \"$@\"\n");
    fs::permissions(folder / "exchange", fs::perms::owner_all);
  }

  /// The orders that a command gives to the exchange program.
  std::string OrdersOf(const std::string& command) {
    fs::remove(folder / "orders");
    const Outcome outcome = Vanzet(command, "VANZET_EXCHANGE=\"$PWD/exchange\"");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return ReadBytes(folder / "orders");
  }
};

TEST_F(ExportOfSolids, TakesOneProcessToReadAndOneToWrite) {
  EXPECT_EQ(OrdersOf("export lathe --out models --format step"), "read\nwrite-step\n");
  EXPECT_EQ(OrdersOf("export lathe --out models --format gltf"), "read\nwrite-gltf\n");
  EXPECT_EQ(OrdersOf("export lathe --out models --format stl"), "read\n");
  EXPECT_EQ(OrdersOf("export lathe --out models --format wrl"), "read\n");
  EXPECT_EQ(OrdersOf("picture lathe --view equipment --out a.png"), "read\n");
}

TEST_F(ExportCommand, RemovesFromItsFolderWhatItHasWrittenBeforeAndNothingElse) {
  Export("step");
  WriteBytes(folder / "models/notes.step", "a person's");
  Export("stl");
  const std::vector<std::string> files = Files();
  EXPECT_THAT(files, testing::IsSupersetOf({"equipment.stl", "notes.step", "vanzet-export.json"}));
  EXPECT_EQ(std::ranges::count_if(files, [](const auto& name) { return name.ends_with(".step"); }), 1);
}

TEST_F(ExportCommand, KeepsWhatSomebodyHasChangedAndSaysSo) {
  Export("step");
  WriteBytes(folder / "models/main-chuck.step", "changed");
  const Outcome next = Vanzet("export lathe --out models --format stl");
  EXPECT_EQ(next.status, 0);
  EXPECT_EQ(next.err,
            "vanzet: models/main-chuck.step: is not removed: it was changed after it was exported\n");
  EXPECT_EQ(ReadBytes(folder / "models/main-chuck.step"), "changed");
  Export("step");
  Export("stl");
  EXPECT_FALSE(fs::exists(folder / "models/main-chuck.step")) << "the last export has written it again";
}

TEST_F(ExportCommand, LeavesTheFolderAsItWasWhenItFails) {
  Export("step");
  const std::string before = ReadBytes(folder / "models/vanzet-export.json");
  const std::vector<std::string> files = Files();
  WriteBytes(folder / "exchange",
             "#!/bin/sh\ncase $1 in write-*) exit 1;; esac\nexec '" VANZET_EXCHANGE_FILE "' \"$@\"\n");
  fs::permissions(folder / "exchange", fs::perms::owner_all);
  const Outcome failed =
      Vanzet("export lathe --out models --format gltf", "VANZET_EXCHANGE=\"$PWD/exchange\"");
  EXPECT_EQ(failed.status, 1);
  EXPECT_EQ(failed.out, "");
  EXPECT_EQ(Files(), files);
  EXPECT_EQ(ReadBytes(folder / "models/vanzet-export.json"), before);
  EXPECT_EQ(Vanzet("export lathe --out new --format gltf", "VANZET_EXCHANGE=\"$PWD/exchange\"").status, 1);
  EXPECT_FALSE(fs::exists(folder / "new"));
}

TEST_F(ExportCommand, TrustsNoListThatLeadsOutOfTheFolder) {
  WriteBytes(folder / "victim", "a file");
  fs::create_directory(folder / "models");
  for (const char* list :
       {R"({"version":1,"files":[{"name":"../victim","size":6,"checksum":"0"}]})",
        R"({"version":2,"files":[]})", R"({"version":1,"files":[{"name":"a"}]})", "{", ""}) {
    WriteBytes(folder / "models/vanzet-export.json", list);
    const Outcome exported = Vanzet("export lathe --out models --format stl");
    EXPECT_EQ(exported.status, 1) << list;
    EXPECT_EQ(exported.err,
              "vanzet: models/vanzet-export.json: not a list of exported files; remove it to go on\n");
    EXPECT_EQ(Files().size(), 1U);
  }
  EXPECT_TRUE(fs::exists(folder / "victim"));
}

TEST_F(ExportCommand, OfNamedBodiesLeavesTheOthersAlone) {
  Export("stl");
  const std::vector<std::string> files = Files();
  const Outcome one = Vanzet("export lathe --out models --format wrl --body 'Main Jaw 1'");
  EXPECT_EQ(one.status, 0) << one.err;
  EXPECT_THAT(one.out, testing::StartsWith("models/main-jaw-1.wrl "));
  EXPECT_EQ(Files().size(), files.size() + 1);
  const Outcome three = Vanzet("export lathe --out models --format wrl --body main-jaw");
  EXPECT_EQ(std::ranges::count(three.out, '\n'), 3);
  Export("stl");
  EXPECT_EQ(Files(), files) << "their files are in the list, too";
}

TEST_F(ExportCommand, ShowsTheNearNamesOfABodyThatDoesNotExist) {
  const Outcome near = Vanzet("export lathe --out models --format wrl --body 'main bilet'");
  EXPECT_EQ(near.status, 1);
  EXPECT_EQ(near.err, "vanzet: body 'main bilet' does not exist; did you mean 'main billet'?\n");
  EXPECT_THAT(Vanzet("export lathe --out models --format wrl --body tailstock").err,
              HasSubstr("body 'tailstock' does not exist; the bodies are: main chuck, main jaw 1, "));
  EXPECT_FALSE(fs::exists(folder / "models"));
}

TEST_F(ExportCommand, WritesOneFileToStandardOutput) {
  Export("stl");
  const Outcome all = Vanzet("export lathe --out - --format stl");
  EXPECT_TRUE(all.out == ReadBytes(folder / "models/equipment.stl"));
  const Outcome billet = Vanzet("export lathe --out - --format stl --body 'main billet'");
  EXPECT_TRUE(billet.out == ReadBytes(folder / "models/main-billet.stl"));
  EXPECT_FALSE(fs::exists(folder / "-"));
  EXPECT_EQ(Vanzet("export lathe --out - --format stl --json").status, 2);
}

TEST_F(ExportCommand, TellsWhatItCannotDo) {
  EXPECT_EQ(Vanzet("export lathe --out models --format dwg").status, 2);
  const Outcome noSpur = Vanzet("export lathe --out models --format step --spur 7");
  EXPECT_EQ(noSpur.status, 1);
  EXPECT_THAT(noSpur.err, HasSubstr("spur 7 does not exist"));
  WriteBytes(folder / "taken", "a file");
  const Outcome taken = Vanzet("export lathe --out taken --format step");
  EXPECT_EQ(taken.status, 1);
  EXPECT_THAT(taken.err, HasSubstr("taken: the folder cannot be created"));
  EXPECT_EQ(ReadBytes(folder / "taken"), "a file");
  const Outcome nothing = Vanzet("export lathe --out models --format step --spur 1");
  EXPECT_EQ(nothing.status, 1);
  EXPECT_THAT(nothing.err, HasSubstr("holds no equipment"));
  EXPECT_FALSE(fs::exists(folder / "models"));
}

TEST_F(ExportCommand, MakesFacetsAsFinelyAsItIsAsked) {
  const auto triangles = [&](const std::string& options) {
    const Outcome exported = Vanzet("export lathe --out models --format stl --body billet --json " + options);
    EXPECT_EQ(exported.status, 0) << exported.err;
    return Json::parse(exported.out).at("files").at(0).at("bodies").at(0).at("triangles").get<int>();
  };
  const int usual = triangles("");
  EXPECT_EQ(triangles("--chord 0.05 --angle 10"), usual);
  EXPECT_GT(triangles("--angle 2"), 4 * usual);
  EXPECT_LT(triangles("--chord 1 --angle 60"), usual / 4);
}

TEST_F(ExportCommand, RefusesFinenessWithoutFacets) {
  for (const char* const format : {"step", "iges", "json"}) {
    const Outcome refused = Vanzet(std::string("export lathe --out models --chord 1 --format ") + format);
    EXPECT_EQ(refused.status, 2) << format;
    EXPECT_THAT(refused.err, HasSubstr(std::string("--chord: has no effect with the format ") + format));
  }
  EXPECT_EQ(Vanzet("export lathe --out models --angle 1 --format stl").status, 2) << "below 2";
}

}  // namespace
}  // namespace vanzet::test
