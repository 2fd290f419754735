#include <nlohmann/json.hpp>

#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using Json = nlohmann::json;
using testing::HasSubstr;

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
                        "device 'Chuck 160'.\n"));
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
