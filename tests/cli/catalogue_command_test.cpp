#include <nlohmann/json.hpp>

#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;
using Json = nlohmann::ordered_json;

/// The catalogue of a project, on the command line.
class CatalogueCommand : public CommandLineTest {
 protected:
  CatalogueCommand() { MakeProject(); }

  Outcome Catalogue(const std::string& arguments, const std::string& input = "") {
    return Vanzet("catalogue " + arguments, "", input);
  }

  /// Expects the work to fail with this in its message, and the catalogue to stay as it is.
  void ExpectRefused(const std::string& arguments, const std::string& message) {
    const std::string before = ReadBytes(file);
    const Outcome run = Catalogue(arguments);
    EXPECT_EQ(run.status, 1) << arguments;
    EXPECT_THAT(run.err, HasSubstr(message)) << arguments;
    EXPECT_EQ(ReadBytes(file), before) << arguments;
  }

  const fs::path file = folder / "lathe/clampdevice.cld";
};

constexpr const char* kNewChuck = "'Chuck 250' --kind chuck --letter A=125 --letter B=105 --letter C=35";

TEST_F(CatalogueCommand, ListsDevicesByKindAndRange) {
  const Outcome run = Catalogue("list lathe --kind chuck --letter A=80..110 --json");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Json::parse(run.out).dump(), R"({"devices":[{"name":"Chuck 160","kind":"chuck","letters":)"
                                         R"({"A":80,"B":90,"C":22.5}},{"name":"Chuck 210","kind":"chuck",)"
                                         R"("letters":{"A":105,"B":98,"C":26}}]})");
  EXPECT_THAT(Catalogue("list lathe").out,
              HasSubstr("\nChuck 160                     chuck        A 80  B 90  C 22.5\n"));
  EXPECT_EQ(Catalogue("list lathe --letter A=1e6..").out, "no device was found\n");
}

TEST_F(CatalogueCommand, ReadsFilesAndStandardInput) {
  const std::string expected = Catalogue("list lathe").out;
  EXPECT_EQ(Catalogue("list lathe/clampdevice.cld").out, expected);
  EXPECT_EQ(Catalogue("list -", ReadBytes(file)).out, expected);
  EXPECT_EQ(Catalogue("search - 'jaw 160'", ReadBytes(file)).out, Catalogue("search lathe 'jaw 160'").out);
  ExpectRefused("remove - 'Chuck 160'", "standard input cannot be changed");
}

TEST_F(CatalogueCommand, ShowsAndTakesInches) {
  EXPECT_THAT(Catalogue("show lathe 'Chuck 160' --unit inch").out, HasSubstr("(A)        3.1496063 inch\n"));
  EXPECT_EQ(Json::parse(Catalogue("search lathe 'chuck A=3.1..3.2' --unit inch --json").out).dump(),
            R"({"unit":"inch","devices":[{"name":"Chuck 160","kind":"chuck","letters":)"
            R"({"A":3.1496063,"B":3.54330709,"C":0.88582677}}]})");
  EXPECT_EQ(Catalogue("set lathe 'Chuck 160' A=3.25 clamp_outside=1..6 max_speed=4000 --unit inch").out,
            "Chuck 160: A 3.1496063 -> 3.25; clamp_outside - -> 1..6; max_speed - -> 4000\n");
  EXPECT_THAT(ReadBytes(file), HasSubstr("Chuck 160\n1 82.550000 90.000000 22.500000 "));
  EXPECT_THAT(ReadBytes(folder / "lathe/clampdevice.json"), HasSubstr("25.4"));
  EXPECT_EQ(Catalogue("show lathe 'Chuck 160' --json").out,
            Catalogue("show lathe 'Chuck 160' --json --unit mm").out);
}

TEST_F(CatalogueCommand, HasTheUnitOfTheProject) {
  const std::string millimetres = Catalogue("list lathe").out;
  WriteBytes(folder / "lathe/bench.ini",
             ReadBytes(folder / "lathe/bench.ini") + "\n[project]\nunit = inch\n");
  EXPECT_EQ(Catalogue("add lathe 'Chuck 10' --kind chuck --letter A=5 --letter B=4 --letter C=1").out,
            "added Chuck 10: chuck  A 5  B 4  C 1\n");
  EXPECT_THAT(ReadBytes(file), HasSubstr("Chuck 10\n1 127.000000 101.600000 25.400000 "));
  ExpectRefused("set lathe 'Chuck 10' C=6", "C (6) must be less than A (5)");
  EXPECT_EQ(Catalogue("remove lathe 'Chuck 10'").out, "removed Chuck 10: chuck  A 5  B 4  C 1\n");
  EXPECT_EQ(Catalogue("list lathe --unit mm").out, millimetres);
  EXPECT_EQ(Catalogue("list lathe/clampdevice.cld").out, millimetres) << "a file has no unit of its own";
}

TEST_F(CatalogueCommand, KeepsNoHistoryOfAFile) {
  ExpectRefused("history lathe 'Chuck 160'",
                "clampdevice.cld: a catalogue has a history when the store of its project");
}

TEST_F(CatalogueCommand, AddsADeviceThatTheDialogUses) {
  const std::string before = ReadBytes(file);
  const Outcome added = Catalogue("add lathe " + std::string(kNewChuck));
  EXPECT_EQ(added.status, 0) << added.err;
  EXPECT_EQ(added.out, "added Chuck 250: chuck  A 125  B 105  C 35\n");
  EXPECT_EQ(ReadBytes(file), before +
                                 "Chuck 250\n1 125.000000 105.000000 35.000000 0.000000 0.000000 0.000000 "
                                 "0.000000 0.000000 0.000000 0.000000\n");
  WriteBytes(folder / "job.json", R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "Chuck 250"}}}]})");
  EXPECT_EQ(Vanzet("define job.json lathe").status, 0);
}

TEST_F(CatalogueCommand, ReplacesADeviceOnlyOnDemand) {
  const std::string values = "'Chuck 160' --kind chuck --letter A=80 --letter B=92 --letter C=26";
  ExpectRefused("add lathe " + values, "already has the device 'Chuck 160'; --replace replaces it");
  EXPECT_EQ(Catalogue("add lathe --replace " + values).out, "replaced Chuck 160: chuck  A 80  B 92  C 26\n");
}

TEST_F(CatalogueCommand, RefusesWhatMakesNoSolidWithNumbers) {
  ExpectRefused("add lathe X --kind chuck --letter A=80 --letter B=90 --letter C=100",
                "C (100) must be less than A (80)");
  ExpectRefused("add lathe X --kind chuck --letter A=80", "a chuck needs a value of B (Overall length), C");
  ExpectRefused("add lathe X --kind chuck --letter D=80", "a chuck does not have the letter D; it has ABC");
  ExpectRefused("set lathe 'Chuck 160' C=100", "C (100) must be less than A (80)");
  ExpectRefused("set lathe 'Chuck 160' max_sped=100", "did you mean 'max_speed'?");
  ExpectRefused("show lathe 'Chuk 160'", "does not have the device 'Chuk 160'; did you mean 'Chuck 160'?");
}

TEST_F(CatalogueCommand, MakesACatalogueThatIsMissing) {
  EXPECT_EQ(Catalogue("add new.cld " + std::string(kNewChuck)).status, 0);
  EXPECT_EQ(Catalogue("list new.cld").out,
            "name       kind   letters\nChuck 250  chuck  A 125  B 105  C 35\n");
  EXPECT_EQ(Catalogue("list other.cld").status, 1);
}

TEST_F(CatalogueCommand, SetsLettersAndMakerDataTogether) {
  const Outcome set = Catalogue("set lathe 'Chuck 160' B=92 max_speed=4500 clamp_outside=20..160");
  EXPECT_EQ(set.out, "Chuck 160: B 90 -> 92; clamp_outside - -> 20..160; max_speed - -> 4500\n") << set.err;
  EXPECT_THAT(Catalogue("show lathe 'Chuck 160'").out,
              AllOf(HasSubstr("  Overall length (B)      92 mm\n"),
                    HasSubstr("  Greatest speed          4500 1/min\n")));
  EXPECT_THAT(Catalogue("search lathe max_speed=4000..").out, HasSubstr("Chuck 160"));
  EXPECT_EQ(Catalogue("remove lathe 'Chuck 160'").status, 0);
  EXPECT_EQ(Json::parse(ReadBytes(folder / "lathe/clampdevice.json"))["devices"].dump(), "{}");
}

TEST_F(CatalogueCommand, ChecksWithTheLineAndStatus3) {
  EXPECT_EQ(Catalogue("check lathe").out, "nothing was found\n");
  WriteBytes(folder / "bad.cld", "A\n1 80 90 100\n");
  const Outcome found = Catalogue("check bad.cld");
  EXPECT_EQ(found.status, 3);
  EXPECT_THAT(found.out, HasSubstr("bad.cld:2: C (100) must be less than A (80)\n"));
  const Json finding = Json::parse(Catalogue("check bad.cld --json").out)["findings"][0];
  EXPECT_EQ(finding["line"], 2);
}

TEST_F(CatalogueCommand, ComparesCataloguesAndDevices) {
  ASSERT_EQ(Vanzet("new other").status, 0);
  EXPECT_EQ(Catalogue("diff lathe other").out, "both are the same\n");
  ASSERT_EQ(Catalogue("set other 'Chuck 160' B=92").status, 0);
  ASSERT_EQ(Catalogue("remove other 'Collet D20'").status, 0);
  const Outcome differs = Catalogue("diff lathe other");
  EXPECT_EQ(differs.status, 3);
  EXPECT_EQ(differs.out,
            "changed  Chuck 160: B 90 -> 92\n"
            "removed  Collet D20: collet  A 24  B 80  C 10  D 10  E 29  F 2\n");
  EXPECT_EQ(Catalogue("diff lathe 'Chuck 160' 'Chuck 210'").out,
            "changed  Chuck 160 -> Chuck 210: A 80 -> 105; B 90 -> 98; C 22.5 -> 26\n");
}

TEST_F(CatalogueCommand, MergesThreeWays) {
  fs::copy(file, folder / "base.cld");
  fs::copy(file, folder / "other.cld");
  ASSERT_EQ(Catalogue("add other.cld " + std::string(kNewChuck)).status, 0);
  ASSERT_EQ(Catalogue("set other.cld 'Chuck 160' B=92").status, 0);
  const Outcome merged = Catalogue("merge lathe other.cld --base base.cld");
  EXPECT_EQ(merged.status, 0) << merged.err;
  EXPECT_THAT(merged.out, StartsWith("changed  Chuck 160: B 90 -> 92\n"));
  EXPECT_THAT(merged.out, HasSubstr("added    Chuck 250\n1 added, 1 changed, 23 same\n"));
  EXPECT_EQ(ReadBytes(file), ReadBytes(folder / "other.cld"));
}

TEST_F(CatalogueCommand, WritesNothingAfterAConflict) {
  fs::copy(file, folder / "base.cld");
  fs::copy(file, folder / "other.cld");
  ASSERT_EQ(Catalogue("set other.cld 'Chuck 160' B=92").status, 0);
  ASSERT_EQ(Catalogue("set lathe 'Chuck 160' B=94").status, 0);
  ASSERT_EQ(Catalogue("add other.cld " + std::string(kNewChuck)).status, 0);
  const std::string before = ReadBytes(file);
  const Outcome merged = Catalogue("merge lathe other.cld --base base.cld --json");
  EXPECT_EQ(merged.status, 3);
  const Json report = Json::parse(merged.out);
  EXPECT_EQ(report["devices"][0].dump(),
            R"({"name":"Chuck 160","outcome":"conflict","reason":"B 94 -> 92"})");
  EXPECT_EQ(report["written"], false);
  EXPECT_EQ(ReadBytes(file), before);
  EXPECT_EQ(Catalogue("merge lathe other.cld --base base.cld --prefer other").status, 0);
  EXPECT_THAT(Catalogue("show lathe 'Chuck 160'").out, HasSubstr("92 mm"));
}

TEST_F(CatalogueCommand, DrawsADeviceAndASheet) {
  const Outcome drawn = Catalogue("show lathe 'Chuck 160' --svg chuck.svg");
  EXPECT_EQ(drawn.status, 0) << drawn.err;
  EXPECT_EQ(drawn.out, "chuck.svg\n");
  EXPECT_THAT(ReadBytes(folder / "chuck.svg"), AllOf(HasSubstr(">Chuck 160<"), HasSubstr(">C 22.5<")));
  EXPECT_EQ(Catalogue("list lathe --kind jaw --svg jaws.svg --png jaws.png").status, 0);
  EXPECT_THAT(ReadBytes(folder / "jaws.png"), StartsWith("\x89PNG"));
  EXPECT_EQ(Catalogue("list lathe --kind jaw --svg -").out, ReadBytes(folder / "jaws.svg"));
  ExpectRefused("list lathe --svg lathe/clampdevice.cld", "clampdevice.cld");
  ExpectRefused("list lathe --letter A=1e6.. --svg none.svg", "there is nothing to draw");
  EXPECT_EQ(Catalogue("list lathe --svg - --json").status, 2);
}

/// Runs the lines of a shell at once and expects all of them to end with the status 0.
class CatalogueOfMany : public CatalogueCommand {
 protected:
  void RunTogether(const std::vector<std::string>& lines) {
    std::string script, wait = "true";
    for (std::size_t i = 0; i < lines.size(); ++i) {
      WriteBytes(folder / ("line" + std::to_string(i) + ".sh"), "set -e\n" + lines[i]);
      script += "bash line" + std::to_string(i) + ".sh & p" + std::to_string(i) + "=$!\n";
      wait += " && wait $p" + std::to_string(i);
    }
    WriteBytes(folder / "all.sh", script + wait);
    const Outcome run = Vanzet("--version && bash all.sh");
    EXPECT_EQ(run.status, 0) << run.err;
  }

  /// Adds that many devices of one process after the other.
  static std::string Adds(const std::string& who, int count) {
    std::string lines;
    for (int i = 0; i < count; ++i) {
      lines += "'" VANZET_PROGRAM "' catalogue add lathe " + who + std::to_string(i) +
               " --kind chuck --letter A=80 --letter B=90 --letter C=20 --maker stroke=6 >>out.txt\n";
    }
    return lines;
  }

  void ExpectDevices(const std::string& who, int count) {
    const std::string now = ReadBytes(file);
    for (int i = 0; i < count; ++i) EXPECT_THAT(now, HasSubstr("\n" + who + std::to_string(i) + "\n"));
  }
};

TEST_F(CatalogueOfMany, LosesNoDeviceAndNoFigure) {
  constexpr int kEach = 5;
  const std::string people = "abcdefgh";
  std::vector<std::string> lines;
  for (const char who : people) lines.push_back(Adds({who}, kEach));
  RunTogether(lines);
  for (const char who : people) ExpectDevices({who}, kEach);
  EXPECT_EQ(Json::parse(ReadBytes(folder / "lathe/clampdevice.json"))["devices"].size(),
            people.size() * kEach);
}

TEST_F(CatalogueOfMany, LosesNothingBesideTheDialog) {
  constexpr int kEach = 8;
  std::string script;
  for (int i = 0; i < kEach; ++i)
    script +=
        "select 36\nset 2123 \"dialog" + std::to_string(i) + "\"\nset 2033 90\nset 2034 22.5\npress 2152\n";
  WriteBytes(folder / "script.txt", script + "close\n");
  RunTogether({"'" VANZET_PROGRAM "' script lathe script.txt --transcript run.jsonl >script.out",
               Adds("add", kEach)});
  ExpectDevices("dialog", kEach);
  ExpectDevices("add", kEach);
}

}  // namespace
}  // namespace vanzet::test
