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
