#include <nlohmann/json.hpp>

#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using Json = nlohmann::json;
using testing::HasSubstr;
using testing::Not;

/// The check as people and pipelines call it.
class CheckCommand : public CommandLineTest {
 protected:
  CheckCommand() {
    MakeProject();
    WriteBytes(folder / "form.json", R"({"version": 1, "spurs": [{"spur": 0, "main": {
        "chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160"},
        "billet": {"kind": "cylinder", "outer_diameter": 42, "part_length": 100}},
        "datum": {"main": {"clamping_out": 90, "origin": 20}}}]})");
    EXPECT_EQ(Vanzet("define form.json lathe").status, 0);
  }

  void Set(const std::string& lines) {
    WriteBytes(folder / "lathe/bench.ini", ReadBytes(folder / "lathe/bench.ini") + lines);
  }
};

TEST_F(CheckCommand, PrintsALineForEachFinding) {
  const Outcome checked = Vanzet("check lathe");
  EXPECT_EQ(checked.status, 0) << "a warning is not an error";
  EXPECT_EQ(checked.out,
            "spur 0, main spindle: warning EQ-302: The billet is clamped along 10 mm, which is under a third "
            "of the "
            "diameter 42 mm. Change the clamping out from 90 mm to 86 mm.\n"
            "Errors: 0, warnings: 1, notes: 0\n");
  EXPECT_EQ(checked.err, "");
  EXPECT_EQ(Vanzet("check lathe --strict").status, 3);
  EXPECT_EQ(Vanzet("check lathe --spur 1").out, "Nothing was found.\n");
}

TEST_F(CheckCommand, PrintsJsonForPrograms) {
  const Json json = Json::parse(Vanzet("check lathe --json --unit inch").out);
  ASSERT_EQ(json["findings"].size(), 1U);
  const Json& finding = json["findings"][0];
  EXPECT_EQ(finding["rule"], "EQ-302");
  EXPECT_EQ(finding["where"], "main");
  EXPECT_EQ(finding["values"]["length"], 10);
  EXPECT_THAT(std::string(finding["text"]), HasSubstr("clamped along 0.3937 inch"));
  EXPECT_EQ(json["counts"], Json({{"error", 0}, {"warning", 1}, {"note", 0}}));
}

TEST_F(CheckCommand, WritesSarifForPipelines) {
  const Outcome checked = Vanzet("check lathe --sarif log.sarif");
  EXPECT_EQ(checked.status, 0);
  EXPECT_THAT(checked.out, HasSubstr("warning EQ-302"));
  const Json log = Json::parse(ReadBytes(folder / "log.sarif"));
  EXPECT_EQ(log["version"], "2.1.0");
  const Json& run = log["runs"][0];
  EXPECT_EQ(run["tool"]["driver"]["name"], "vanzet");
  ASSERT_EQ(run["results"].size(), 1U);
  const Json& result = run["results"][0];
  EXPECT_EQ(result["ruleId"], "EQ-302");
  EXPECT_EQ(result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"], "lathe/bench.ini");
  for (const Json& rule : run["tool"]["driver"]["rules"]) {
    const std::string page = rule["helpUri"];
    EXPECT_TRUE(page.starts_with("file:///")) << page;
    EXPECT_TRUE(std::filesystem::exists(page.substr(7))) << page;
  }
}

TEST_F(CheckCommand, KeepsSarifApartFromTheLines) {
  const Outcome checked = Vanzet("check lathe --sarif -", "VANZET_LANGUAGE=de");
  const Json log = Json::parse(checked.out);
  EXPECT_EQ(log["runs"][0]["language"], "de");
  EXPECT_THAT(std::string(log["runs"][0]["results"][0]["message"]["text"]), HasSubstr("Rohteil"));
  EXPECT_THAT(checked.err, HasSubstr("EQ-302"));
  EXPECT_EQ(Vanzet("check lathe --json --sarif -").status, 2);
  const std::string settings = ReadBytes(folder / "lathe/bench.ini");
  EXPECT_EQ(Vanzet("check lathe --sarif lathe/bench.ini").status, 1);
  EXPECT_EQ(ReadBytes(folder / "lathe/bench.ini"), settings);
  EXPECT_EQ(Vanzet("check lathe --sarif nowhere/log.sarif").status, 1);
}

TEST_F(CheckCommand, DrawsEachFinding) {
  const Outcome checked = Vanzet("check lathe --picture found/here");
  EXPECT_EQ(checked.status, 0);
  const std::string section = "found/here/EQ-302-spur0-main-section.svg",
                    space = "found/here/EQ-302-spur0-main-3d.png";
  EXPECT_THAT(checked.out, testing::EndsWith("notes: 0\n" + section + "\n" + space + "\n"));
  EXPECT_THAT(ReadBytes(folder / section), HasSubstr("EQ-302: The billet is clamped along 10 mm"));
  EXPECT_EQ(ReadBytes(folder / space).substr(1, 3), "PNG");
  const Json json = Json::parse(Vanzet("check lathe --json --picture found").out);
  EXPECT_EQ(json.size(), 2U) << "the files are not listed there";
}

TEST_F(CheckCommand, RefusesAFileInPlaceOfAFolder) {
  WriteBytes(folder / "found", "mine");
  const Outcome checked = Vanzet("check lathe --picture found");
  EXPECT_EQ(checked.status, 1);
  EXPECT_THAT(checked.err, HasSubstr("found: the folder cannot be created"));
  EXPECT_EQ(ReadBytes(folder / "found"), "mine");
  std::filesystem::create_directory(folder / "lathe/figures");
  EXPECT_EQ(Vanzet("check lathe --picture lathe/figures").status, 1);
}

/// The form of the fixture with a bore that is too narrow for its billet.
constexpr const char* kNarrow = R"({"version": 1, "spurs": [{"spur": 0, "main": {
    "chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160"},
    "billet": {"kind": "cylinder", "outer_diameter": 80, "part_length": 300}},
    "datum": {"main": {"clamping_out": 90, "origin": 20}}}]})";

TEST_F(CheckCommand, FollowsADefinition) {
  WriteBytes(folder / "narrow.json", kNarrow);
  const Outcome defined = Vanzet("define narrow.json lathe --check");
  EXPECT_EQ(defined.status, 3);
  EXPECT_THAT(defined.out,
              testing::StartsWith("spur 0: VDM 1000, defined\nspur 0, main spindle: error EQ-203: "));
  EXPECT_THAT(defined.out, testing::EndsWith("Errors: 1, warnings: 0, notes: 0\n"));
  EXPECT_THAT(Vanzet("show lathe").out, HasSubstr("300")) << "it is stored all the same";
  const Outcome possible = Vanzet("define form.json lathe --check --transcript -");
  EXPECT_EQ(possible.status, 0);
  EXPECT_THAT(possible.err, HasSubstr("defined\nspur 0, main spindle: warning EQ-302: "))
      << "standard output has the transcript alone";
  EXPECT_THAT(possible.out, Not(HasSubstr("EQ-302")));
  EXPECT_EQ(Vanzet("define form.json lathe --check --dry-run").status, 2);
}

TEST_F(CheckCommand, IsNotBegunWhenItsSettingsAreWrong) {
  WriteBytes(folder / "narrow.json", kNarrow);
  Set("[check]\nEQ-203=loud\n");
  EXPECT_EQ(Vanzet("define narrow.json lathe --check").status, 1);
  EXPECT_THAT(Vanzet("show lathe").out, Not(HasSubstr("300"))) << "nothing is stored";
}

TEST_F(CheckCommand, FollowsAScript) {
  WriteBytes(folder / "narrow.json", kNarrow);
  ASSERT_EQ(Vanzet("define narrow.json lathe").status, 0);
  WriteBytes(folder / "ok.txt", "press OK\n");
  const Outcome played = Vanzet("script lathe ok.txt --check --transcript t.jsonl");
  EXPECT_EQ(played.status, 3) << played.err;
  EXPECT_THAT(played.out,
              testing::MatchesRegex("ok.txt: (.|\n)*\nspur 0, main spindle: error EQ-203: (.|\n)*"));
}

TEST_F(CheckCommand, IsMentionedWhereTheDefinitionIsShown) {
  EXPECT_THAT(Vanzet("show lathe").out,
              testing::EndsWith("\n\nErrors: 0, warnings: 1, notes: 0; see 'vanzet check'\n"));
  EXPECT_THAT(Vanzet("show lathe --spur 1").out, Not(HasSubstr("vanzet check"))) << "nothing is found there";
  EXPECT_THAT(Vanzet("show lathe", "VANZET_LANGUAGE=de").out, HasSubstr("Warnungen: 1, Hinweise: 0; siehe"));
  Set("[check]\nEQ-302=off\n");
  EXPECT_THAT(Vanzet("show lathe").out, Not(HasSubstr("vanzet check")));
}

TEST_F(CheckCommand, HasTheSeveritiesOfTheProject) {
  Set("[check]\nEQ-302=error\n");
  EXPECT_EQ(Vanzet("check lathe").status, 3);
  Set("EQ-103=loud\n");
  const Outcome checked = Vanzet("check lathe");
  EXPECT_EQ(checked.status, 1);
  EXPECT_THAT(checked.err, HasSubstr("bench.ini:"));
  EXPECT_THAT(checked.err, HasSubstr("a severity is 'off', 'note', 'warning' or 'error', not 'loud'"));
}

TEST_F(CheckCommand, ComparesTheMakerDataOfTheCatalogue) {
  WriteBytes(folder / "lathe/clampdevice.json",
             R"({"version": 1, "devices": {"Chuck 160": {"max_speed": 4500}}})");
  Set("[job]\nspeed=5000\n");
  const Outcome checked = Vanzet("check lathe");
  EXPECT_EQ(checked.status, 3);
  EXPECT_THAT(checked.out,
              HasSubstr("error EQ-402: The job's speed of 5000 1/min is above the 4500 1/min of the "
                        "device 'Chuck 160'. Change the job's speed from 5000 1/min to 4500 1/min.\n"));
}

TEST_F(CheckCommand, FindsNothingInTheExamplesButWhatIsTrue) {
  std::filesystem::create_directory(folder / "lathe/bodies");
  for (const char* const name : {"flange-casting.step", "flange.step"})
    std::filesystem::copy(std::filesystem::path(VANZET_SOURCE_DIR "/examples/bodies") / name,
                          folder / "lathe/bodies");
  for (const char* const job : {"bar-job", "chuck-transfer", "flange-casting", "shaft-steady-rest"}) {
    SCOPED_TRACE(job);
    ASSERT_EQ(Vanzet("define " VANZET_SOURCE_DIR "/examples/definitions/" + std::string(job) + ".json lathe")
                  .status,
              0);
    const Json json = Json::parse(Vanzet("check lathe --spur 0 --json").out);
    EXPECT_EQ(json["counts"]["error"], 0) << json["findings"];
    EXPECT_EQ(json["counts"]["warning"], 0) << json["findings"];
  }
}

TEST_F(CheckCommand, NeedsADefinition) {
  std::filesystem::remove_all(folder / "lathe");
  MakeProjectWithoutDefinitions();
  const Outcome checked = Vanzet("check lathe");
  EXPECT_EQ(checked.status, 1);
  EXPECT_THAT(checked.err, HasSubstr("the project has no definition yet; 'vanzet upgrade' creates it"));
  EXPECT_THAT(Vanzet("check lathe --spur 7").err, HasSubstr("spur"));
}

}  // namespace
}  // namespace vanzet::test
