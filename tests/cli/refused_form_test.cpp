#include <sstream>

#include "define_fixture.h"

namespace vanzet::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class RefusedForm : public DefineCommand {
 protected:
  void SetUp() override {
    MakeUpgradedProject();
    ASSERT_EQ(Vanzet(std::string("script lathe '") + kBarJob + "' --transcript run.jsonl").status, 0);
    before = State();
  }

  /// The bytes of what a project keeps.
  std::string State() {
    std::string state = Items("lathe");
    for (const char* const file : {"drawing.txt", "clampdevice.cld", "bench.ini", "machine.ini"}) {
      state += ReadBytes(folder / ("lathe/" + std::string(file)));
    }
    return state;
  }

  /// A form of two spurs with that chuck on the first one.
  static Json WithChuck(const Json& chuck) {
    return {{"spurs", {{{"spur", 1}}, {{"spur", 0}, {"main", {{"chuck", chuck}}}}}}};
  }

  std::string before;
};

TEST_F(RefusedForm, NamesThePathAndChangesNothing) {
  WriteBytes(folder / "job.json", WithChuck({{"name", "Chuck 160"}, {"letters", {{"B", "x"}}}}).dump());
  const Outcome refused = Vanzet("define job.json lathe");
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.out, "");
  EXPECT_EQ(refused.err, "vanzet: job.json: $.spurs[1].main.chuck.letters.B: must be a number\n");
  EXPECT_TRUE(State() == before);
}

TEST_F(RefusedForm, NamesTheLettersThatMakeNoSolid) {
  const Outcome refused =
      Define(WithChuck({{"name", "Odd"}, {"letters", {{"A", 80}, {"B", 90}, {"C", 100}}}}), "lathe");
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.err,
            "vanzet: standard input: $.spurs[1].main.chuck.letters.C: C (100) must be less than A (80)\n");
  EXPECT_TRUE(State() == before);
}

/// Values that the dialog stores and no form may have.
class Impossible : public DefineCommand {
 protected:
  void SetUp() override {
    MakeUpgradedProject();
    WriteBytes(folder / "odd.txt",
               "select main/chuck\nchoose device \"Chuck 160\"\nset c 101.6\npress Select\n"
               "select sub/jaw\nchoose device \"Soft jaw 160\"\npress Select\nclose\n");
    ASSERT_EQ(Vanzet("script lathe odd.txt --strict --transcript run.jsonl").status, 0);
  }
};

TEST_F(Impossible, IsNamedOnThePage) {
  const std::string carrier =
      "  sub jaw: needs a device that carries it: chuck, collet, mandrel, face_driver\n";
  EXPECT_THAT(Vanzet("show lathe --spur 0").out,
              HasSubstr("Impossible, and refused by 'vanzet define'\n"
                        "  main chuck C: C (101.6) must be less than A (80)\n" +
                        carrier + "\nErrors: 1, warnings: 2, notes: 1; see 'vanzet check'\n"));
  EXPECT_THAT(Vanzet("show lathe --spur 0 --unit inch").out,
              HasSubstr("  main chuck C: C (4) must be less than A (3.149606)\n" + carrier));
  EXPECT_THAT(Vanzet("show lathe --spur 1").out, testing::Not(HasSubstr("Impossible")));
}

TEST_F(Impossible, IsToldBesideTheFormAsDefineRefusesIt) {
  const Outcome shown = Vanzet("show lathe --json");
  EXPECT_EQ(shown.status, 0) << "the form has what is stored";
  std::string refusals;
  std::istringstream lines(shown.err);
  for (std::string line; std::getline(lines, line);) {
    const std::string end = "; 'vanzet define' refuses this";
    ASSERT_THAT(line, EndsWith(end));
    refusals += "vanzet: standard input: " + line.substr(8, line.size() - end.size() - 8) + "\n";
  }
  EXPECT_THAT(refusals, HasSubstr("$.spurs[0].main.chuck.letters.C: "));
  EXPECT_EQ(Vanzet("define - lathe", "", shown.out).err, refusals);
}

TEST_F(Impossible, IsDefinedAgainOnceItIsCorrected) {
  Json form = Shown("lathe");
  form["spurs"][0]["main"]["chuck"]["letters"]["C"] = 22;
  form["spurs"][0].erase("sub");
  EXPECT_EQ(Define(form, "lathe").status, 0);
  EXPECT_EQ(Vanzet("show lathe --json").err, "");
}

TEST_F(RefusedForm, TellsEveryValue) {
  const Outcome refused = Define({{"spurs", {{{"spur", 0}, {"mian", 1}}, 5}}}, "lathe");
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.err,
            "vanzet: standard input: $.spurs[0].mian: unknown key; did you mean \"main\"?\n"
            "vanzet: standard input: $.spurs[1]: must be an object\n");
}

TEST_F(RefusedForm, IsOneThatCannotBeRead) {
  EXPECT_THAT(Vanzet("define none.json lathe").err, StartsWith("vanzet: none.json: cannot be read"));
  EXPECT_THAT(Vanzet("define - lathe", "", "{").err, StartsWith("vanzet: standard input:1:2: not JSON: "));
  EXPECT_TRUE(State() == before);
}

TEST_F(RefusedForm, IsNotPlayedInADryRun) {
  const std::string store = ReadBytes(folder / "lathe/store.db");
  const Outcome dry = Define(WithChuck({{"name", "Chuck 210"}}), "lathe", "--dry-run");
  EXPECT_EQ(dry.status, 0) << dry.err;
  EXPECT_THAT(dry.out, StartsWith("# What would change, lengths in mm:\n"
                                  "#   spur 1: nothing changes\n"));
  EXPECT_THAT(dry.out,
              HasSubstr("\n#   spur 0, main chuck: name \"Chuck 160\" -> \"Chuck 210\"; A 80 -> 105; "));
  EXPECT_THAT(dry.out, HasSubstr("\n#   spur 0, main billet: removed\n"));
  EXPECT_THAT(dry.out, HasSubstr("# $.spurs[1].main.chuck\nselect 3\nchoose 2124 \"Chuck 210\"\n"));
  EXPECT_THAT(dry.out, EndsWith("# $\nselect 1\npress 1\n"));
  EXPECT_TRUE(ReadBytes(folder / "lathe/store.db") == store);
  EXPECT_TRUE(State() == before);
  EXPECT_EQ(Define(WithChuck({}), "lathe", "--dry-run").status, 1);
}

}  // namespace
}  // namespace vanzet::test
