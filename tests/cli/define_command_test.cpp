#include <sstream>

#include "closed_loop/sensible_devices.h"
#include "define_fixture.h"

namespace vanzet::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(DefineCommand, MakesWhatAScriptMadeElsewhereItemForItem) {
  MakeUpgradedProject();
  ASSERT_EQ(Vanzet(std::string("script lathe '") + kBarJob + "' --transcript run.jsonl").status, 0);
  MakeLathe("other");
  ExpectRoundTrip("lathe", "other");
  EXPECT_TRUE(ReadBytes(folder / "other/drawing.txt") == ReadBytes(folder / "lathe/drawing.txt"));
  EXPECT_EQ(ReadBytes(folder / "other/clampdevice.cld"), ReadBytes(folder / "lathe/clampdevice.cld"));
  ExpectRoundTrip("lathe", "other");
}

TEST_F(DefineCommand, TellsWhatItDefined) {
  MakeProject();
  const Outcome defined = Define({{"spurs", {{{"spur", 1}}}}}, "lathe", "--transcript run.jsonl");
  EXPECT_EQ(defined.out, "spur 1: VDM 1001, defined\n");
  EXPECT_EQ(defined.err, "");
  const std::string transcript = ReadBytes(folder / "run.jsonl");
  EXPECT_THAT(transcript, HasSubstr("{\"event\":\"closed\",\"by\":\"end-of-script\"}\n"));
  EXPECT_THAT(transcript, EndsWith("{\"event\":\"closed\",\"by\":\"ok\"}\n"));
}

Json DeviceOf(SensibleDevices& devices, std::int32_t type, std::int32_t first, const std::string& name) {
  const DeviceParams params = devices.Next(type);
  Json device = {{"name", name}};
  if (first > 4) device["shape"] = type - first + 1;
  // What a type does not keep is 0 in a sensible device, but for jaws of shapes with fewer letters.
  static constexpr const char* kLetters[] = {"ABC",      "ABCDEF",   "ABCDEFGH", "ABCDEFGHI", "ABCDEFGH",
                                             "ABCDEFGH", "ABCDEF",   "ABCDEF",   "ABCD",      "ABCDE",
                                             "ABCDEFGH", "ABCDEFGH", "ABCDEFG",  "ABCDEFGHI"};
  for (const char letter : std::string(kLetters[type - 1])) {
    device["letters"][std::string(1, letter)] = ValueOf(params, letter);
  }
  return device;
}

TEST_F(DefineCommand, MakesDevicesThatNoCatalogueHasOnBothSpindles) {
  constexpr const char* kClamps[] = {"chuck", "collet", "mandrel", "face_driver"};
  SensibleDevices devices(20261122);
  MakeLathe("one", "TailStockAvailable = 1\n");
  MakeLathe("two", "TailStockAvailable = 1\n");
  for (int round = 0; round < 8; ++round) {
    Json spur = {{"spur", round % 2}};
    int number = 0;
    for (const char* const spindle : {"main", "sub"}) {
      const std::int32_t type = 1 + (round + number) % 4;
      Json& made = spur[spindle];
      made[kClamps[type - 1]] =
          DeviceOf(devices, type, type, "Clamp \"" + std::to_string(10 * round + ++number) + "\\ # ");
      if (type == 1) {
        made["jaw"] =
            DeviceOf(devices, 5 + (round + number) % 8, 5, "Jaw " + std::to_string(10 * round + number));
        made["jaw"]["count"] = 3 + round;
        made["jaw"]["inside"] = round % 3 == 0;
      }
      made["billet"] = {{"kind", "cylinder"}, {"outer_diameter", 40.125 + round}, {"part_length", 100.0 / 3}};
    }
    spur["center"] = DeviceOf(devices, 13 + round % 2, 13, "Center " + std::to_string(round));
    const Json form = {{"spurs", {spur}}};
    const Outcome defined = Define(form, "one");
    EXPECT_EQ(defined.status, 0) << defined.err << form.dump(2);
    if (round % 2 == 1) ExpectRoundTrip("one", "two");
  }
}

TEST_F(DefineCommand, TakesEveryDeviceOfTheCatalogue) {
  MakeLathe("one", "TailStockAvailable = 1\n");
  std::istringstream catalogue(ReadBytes(folder / "one/clampdevice.cld"));
  constexpr const char* kClamps[] = {"chuck", "collet", "mandrel", "face_driver"};
  int devices = 0;
  for (std::string name, values; std::getline(catalogue, name) && std::getline(catalogue, values);
       ++devices) {
    const int type = std::stoi(values);
    Json spur = {{"spur", 0}};
    if (type <= 4) spur["main"][kClamps[type - 1]] = {{"name", name}};
    if (type > 4 && type <= 12)
      spur["main"] = {{"chuck", {{"name", "Chuck 160"}}}, {"jaw", {{"name", name}}}};
    if (type > 12) spur["center"] = {{"name", name}};
    const Outcome checked = Define({{"spurs", {spur}}}, "one", "--dry-run");
    EXPECT_EQ(checked.status, 0) << checked.err;
  }
  EXPECT_GT(devices, 20);
}

TEST_F(DefineCommand, TakesOneNameForDevicesOfDifferentKinds) {
  MakeLathe("one");
  MakeLathe("two");
  Json form = Json::parse(R"({"spurs": [{"spur": 0,
    "main": {"chuck": {"name": "X"}, "jaw": {"name": "X", "shape": 5}, "billet": {"kind": "cylinder", "outer_diameter": 40, "part_length": 50}},
    "sub": {"chuck": {"name": "X"}, "jaw": {"name": "X", "shape": 4}}}]})");
  Json& spur = form["spurs"][0];
  for (const char* const spindle : {"main", "sub"}) {
    spur[spindle]["chuck"]["letters"] = {{"A", 80}, {"B", 90}, {"C", 20}};
    spur[spindle]["jaw"]["letters"] = {{"A", 46}, {"B", 70}, {"C", 34}, {"D", 20}};
  }
  for (const char* const letter : {"E", "F"}) spur["sub"]["jaw"]["letters"][letter] = 25;
  const Outcome defined = Define(form, "one");
  EXPECT_EQ(defined.status, 0) << defined.err;
  EXPECT_EQ(Shown("one")["spurs"][0]["sub"]["jaw"]["shape"], 4);
  EXPECT_EQ(Shown("one")["spurs"][0]["main"]["jaw"]["name"], "X");
  ExpectRoundTrip("one", "two");
}

TEST_F(DefineCommand, TakesDevicesFromTheirFiles) {
  MakeLathe("one", "TailStockAvailable = 1\n");
  MakeLathe("two", "TailStockAvailable = 1\n");
  MakeOwnDevice("chuck.vdm", "0 -60 0");
  MakeOwnDevice("jaw.vdm", "1 7 0");
  MakeOwnDevice("center.vdm", "3 4 41.5");
  Json form = Json::parse(R"({"spurs": [{"spur": 0,
    "main": {"chuck": {"file": "chuck.vdm"}, "jaw": {"file": "jaw.vdm", "count": 5, "inside": true}},
    "sub": {"face_driver": {"file": "chuck.vdm", "letters": {"B": 60}}},
    "center": {"file": "center.vdm", "letters": {"A": 42}}}]})");
  const Outcome defined = Define(form, "one");
  EXPECT_EQ(defined.status, 0) << defined.err;
  const Json spur = Shown("one")["spurs"][0];
  EXPECT_EQ(spur["main"]["chuck"], Json::parse(R"({"file": "chuck.vdm", "letters": {"B": 60}})"));
  EXPECT_EQ(spur["main"]["jaw"]["count"], 5);
  EXPECT_EQ(spur["center"], Json::parse(R"({"file": "center.vdm", "letters": {"A": 42, "B": 4}})"));
  EXPECT_EQ(SectionsOf(1000, 5, "one")[1].front(), "#VRML V2.0 utf8\n");
  ExpectRoundTrip("one", "two");

  form["spurs"][0]["main"]["chuck"]["letters"]["B"] = 61;
  EXPECT_EQ(Define(form, "one").err,
            "vanzet: standard input: $.spurs[0].main.chuck.letters.B: the definition has 60 instead of 61\n");
}

TEST_F(DefineCommand, PutsTheCenterInThePlaceOfASubSpindleThatTheMachineHasNot) {
  for (const char* const name : {"one", "two"})
    MakeLathe(name, "SubSpindleAvailable = 0\nTailStockAvailable = 1\n");
  const Outcome defined =
      Define(Json::parse(R"({"spurs": [{"spur": 0, "center": {"name": "Center 60 deg MT4"},
      "main": {"face_driver": {"name": "Face driver D50"}}, "steady_rest": true}]})"),
             "one", "--trace calls.jsonl");
  EXPECT_EQ(defined.status, 0) << defined.err;
  EXPECT_EQ(SectionsOf(1000, 2, "one")[1][0], "Center 60 deg MT4");
  EXPECT_EQ(Shown("one")["spurs"][0]["center"]["shape"], 1);
  EXPECT_THAT(ReadBytes(folder / "calls.jsonl"), HasSubstr("OrvoCommand"));
  ExpectRoundTrip("one", "two");
}

TEST_F(DefineCommand, TakesBilletsFromFiguresAndSolids) {
  MakeProject();
  std::filesystem::copy(VANZET_SOURCE_DIR "/examples/bodies/casting.step", folder / "lathe/bodies");
  std::filesystem::copy(VANZET_SOURCE_DIR "/examples/contours/shaft.txt", folder / "lathe/figures");
  const Outcome defined = Define(Json::parse(R"({"spurs": [{"spur": 0,
    "main": {"billet": {"kind": "solid", "solid": "casting", "angle": 15},
             "finished_part": {"kind": "solid", "solid": "casting"}},
    "sub": {"billet": {"kind": "figures", "outside": "shaft", "part_length": 80}}}]})"),
                                 "lathe");
  EXPECT_EQ(defined.status, 0) << defined.err;
  const Json billet = Shown("lathe")["spurs"][0]["main"]["billet"];
  EXPECT_GT(billet["part_length"], 1) << "of the solid";
  EXPECT_GT(billet["clamp_diameter"], 1);
  EXPECT_EQ(Shown("lathe")["spurs"][0]["sub"]["billet"]["outside"], "shaft");
  MakeLathe("other");
  for (const char* const files : {"bodies", "figures"}) {
    std::filesystem::copy(folder / ("lathe/" + std::string(files)), folder / ("other/" + std::string(files)));
  }
  ExpectRoundTrip("lathe", "other");
}

TEST_F(DefineCommand, TakesTheExampleOfItsPage) {
  const std::string page = ReadBytes(VANZET_SOURCE_DIR "/docs/formats/definition-json.md");
  const std::size_t begin = page.find("```json\n") + 8;
  WriteBytes(folder / "job.json", page.substr(begin, page.find("```", begin) - begin));
  MakeProject();
  const Outcome defined = Vanzet("define job.json lathe");
  EXPECT_EQ(defined.status, 0) << defined.err;
  EXPECT_EQ(Shown("lathe")["spurs"][0]["sub"]["collet"]["name"], "Collet D40 new");
}

TEST_F(DefineCommand, TakesTheExampleThatItPrints) {
  const Outcome example = Vanzet("define --example");
  EXPECT_THAT(example.out, StartsWith("// "));
  MakeLathe("one", "SubSpindleAvailable = 0\n");
  const Outcome defined = Vanzet("define - one", "", example.out);
  EXPECT_EQ(defined.status, 0) << defined.err;
  EXPECT_EQ(Shown("one")["spurs"][0]["main"]["billet"]["bar_length"], 1000);
}

TEST_F(DefineCommand, PrintsTheSchemaOfTheForm) {
  EXPECT_EQ(Vanzet("define --schema").out,
            ReadBytes(VANZET_SOURCE_DIR "/share/schema/definition.schema.json"));
}

TEST_F(DefineCommand, NeedsAFormUnlessItPrintsTheSchemaOrTheExample) {
  for (const char* const line :
       {"define", "define --schema job.json", "define --example --dry-run", "define --schema --example"}) {
    const Outcome wrong = Vanzet(line);
    EXPECT_EQ(wrong.status, 2) << line;
    EXPECT_EQ(wrong.out, "") << line;
  }
}

TEST_F(DefineCommand, TakesAndShowsInchesAndStoresMillimetres) {
  MakeLathe("one");
  MakeLathe("two");
  Json form = Json::parse(R"({"unit": "inch", "spurs": [{"spur": 0, "main": {
    "chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160", "count": 4},
    "billet": {"kind": "cylinder", "outer_diameter": 1.625, "part_length": 3, "bar_length": 39.3701}}}]})");
  ASSERT_EQ(Define(form, "one").status, 0);
  const Json billet = Shown("one")["spurs"][0]["main"]["billet"];
  EXPECT_EQ(billet["outer_diameter"], 41.275);
  EXPECT_EQ(billet["part_length"], 76.2);
  const Outcome inches = Vanzet("show one --json --unit inch");
  EXPECT_THAT(inches.out, HasSubstr("\"unit\": \"inch\""));
  EXPECT_THAT(inches.out, HasSubstr("\"outer_diameter\": 1.625"));
  EXPECT_EQ(Vanzet("define - two", "", inches.out).status, 0);
  EXPECT_TRUE(Items("two") == Items("one")) << "item for item";
  WriteBytes(folder / "one/bench.ini", ReadBytes(folder / "one/bench.ini") + "\n[project]\nunit = inch\n");
  EXPECT_EQ(Vanzet("show one --json").out, inches.out);
  EXPECT_EQ(Vanzet("show one --json --unit mm").out, Vanzet("show two --json").out);
  WriteBytes(folder / "two/bench.ini", "[project]\nunit = feet\n");
  EXPECT_THAT(Vanzet("show two --json").err,
              HasSubstr("bench.ini:2:8: expected 'mm' or 'inch', found 'feet'"));
}

TEST_F(DefineCommand, TakesTheUnitOfTheCommandLineForAFormWithoutOne) {
  MakeUpgradedProject();
  const std::string billet = R"("spurs": [{"spur": 0, "main": {
      "billet": {"kind": "cylinder", "outer_diameter": 2, "part_length": 4}}}]})";
  EXPECT_EQ(Vanzet("define - lathe --unit inch", "", "{" + billet).status, 0);
  EXPECT_EQ(Shown("lathe")["spurs"][0]["main"]["billet"]["outer_diameter"], 50.8);
  EXPECT_EQ(Vanzet("define - lathe --unit inch", "", R"({"unit": "inch", )" + billet).status, 0);
  EXPECT_THAT(Vanzet("define - lathe --unit inch --dry-run", "", R"({"unit": "inch", )" + billet).out,
              HasSubstr("nothing changes"));
  const Outcome other = Vanzet("define - lathe --unit inch", "", R"({"unit": "mm", )" + billet);
  EXPECT_EQ(other.status, 1);
  EXPECT_EQ(other.err, "vanzet: standard input: $.unit: is \"mm\", but '--unit' is inch\n");
}

TEST_F(DefineCommand, RemovesWhatTheFormDoesNotHave) {
  MakeUpgradedProject();
  ASSERT_EQ(Vanzet(std::string("script lathe '") + kBarJob + "' --transcript run.jsonl").status, 0);
  EXPECT_EQ(Define({{"spurs", {{{"spur", 0}}}}}, "lathe").status, 0);
  EXPECT_EQ(Shown("lathe"), Json::parse(R"({"version": 1, "spurs": [{"spur": 0}, {"spur": 1}]})"));
  EXPECT_THAT(ReadBytes(folder / "lathe/drawing.txt"), testing::Not(HasSubstr("BilletM")));
}

TEST_F(DefineCommand, TakesItsOwnVersionOfTheFormAlone) {
  MakeUpgradedProject();
  const Json spurs = {{{"spur", 0}}};
  EXPECT_EQ(Define({{"version", 1}, {"spurs", spurs}}, "lathe").err, "");
  for (const Json& version : {Json(2), Json("1"), Json()}) {
    EXPECT_EQ(Define({{"version", version}, {"spurs", spurs}}, "lathe").err,
              "vanzet: standard input: $.version: is another version of the form; this program knows 1\n");
  }
}

}  // namespace
}  // namespace vanzet::test
