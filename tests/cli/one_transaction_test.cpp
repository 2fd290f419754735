#include <nlohmann/json.hpp>

#include "run_vanzet.h"
#include "support/places.h"
#include "vdm/store.h"

namespace vanzet::test {
namespace {

using testing::AnyOf;
using testing::Eq;
using testing::HasSubstr;
using testing::IsEmpty;
using Json = nlohmann::ordered_json;

/// A run of the program reaches the project in one transaction, or not at all.
class OneTransaction : public CommandLineTest {
 protected:
  /// A form for both spurs, and its file "NAME.json". Forms of different diameters differ on both spurs.
  void WriteForm(const std::string& name, double diameter) {
    Json spur = {{"main",
                  {{"chuck", {{"name", "Chuck 160"}}},
                   {"billet", {{"kind", "cylinder"}, {"outer_diameter", diameter}, {"part_length", 60}}}}}};
    Json spurs = Json::array();
    for (const int number : {0, 1}) {
      spur["spur"] = number;
      spurs.push_back(spur);
    }
    WriteBytes(folder / (name + ".json"), Json{{"spurs", spurs}}.dump());
  }

  std::string Shown() { return Vanzet("show lathe --json").out; }
  std::string Drawn() { return ReadBytes(folder / "lathe/drawing.txt"); }

  /// Defines A, keeps what it looks like, then B, and leaves A.
  void KnowBothForms() {
    MakeUpgradedProject();
    WriteForm("A", 40);
    WriteForm("B", 42);
    ASSERT_EQ(Vanzet("define A.json lathe").err, "");
    shownA = Shown();
    drawnA = Drawn();
    ASSERT_EQ(Vanzet("define B.json lathe").err, "");
    shownB = Shown();
    drawnB = Drawn();
    ASSERT_NE(shownA, shownB);
    ASSERT_EQ(Vanzet("define A.json lathe").err, "");
    ASSERT_EQ(Shown(), shownA);
  }

  std::string shownA, shownB, drawnA, drawnB;
};

TEST_F(OneTransaction, ADefineThatIsInterruptedLeavesTheOldOrTheNewDefinitions) {
  KnowBothForms();
  int oldOnes = 0;
  for (const char* signal : {"INT", "TERM", "HUP", "KILL"}) {
    for (int step = 1; step <= 8; ++step) {
      Vanzet("define B.json lathe", "timeout -s " + std::string(signal) + " 0.0" + std::to_string(step));
      const std::string shown = Shown();
      EXPECT_THAT(shown, AnyOf(Eq(shownA), Eq(shownB))) << signal << " " << step;
      EXPECT_EQ(Drawn(), shown == shownA ? drawnA : drawnB) << "the drawing is that of the definitions";
      if (shown == shownA) ++oldOnes;
      ASSERT_TRUE(shown == shownA || Vanzet("define A.json lathe").status == 0);
    }
  }
  EXPECT_GT(oldOnes, 0) << "no run was interrupted";
}

TEST_F(OneTransaction, OfDefinesAtOnceOneIsStoredWholeAndEachStatusIsTrue) {
  KnowBothForms();
  const Outcome both =
      Vanzet("define B.json lathe & '" VANZET_PROGRAM "' define A.json lathe; s=$?; wait $!; echo $? $s >&2");
  EXPECT_EQ(both.err, "0 0\n") << "one waits for the other";
  EXPECT_THAT(Shown(), AnyOf(Eq(shownA), Eq(shownB)));
}

TEST_F(OneTransaction, ARunWaitsForAnotherAsLongAsItIsToldAndSaysSoInOneLine) {
  MakeUpgradedProject();
  WriteForm("A", 40);
  vdm::VdmStore store(folder / "lathe");
  ASSERT_TRUE(store.Hold());
  for (const char* command : {"define A.json lathe", "upgrade lathe", "script lathe s.txt",
                              "command lathe 'red -1' 'fig cre F x0y0z0'", "vdm load lathe s.vdm 1000"}) {
    WriteBytes(folder / "s.txt", "close\n");
    WriteBytes(folder / "s.vdm", "vdm 1\nend 0\n");
    const Outcome refused = Vanzet(std::string(command) + " --wait 0");
    EXPECT_EQ(refused.status, 1) << command;
    EXPECT_EQ(refused.err, "vanzet: " + std::filesystem::canonical(folder / "lathe").string() +
                               ": another process is changing the project\n")
        << command;
    EXPECT_THAT(refused.out, IsEmpty());
  }
  EXPECT_EQ(Vanzet("define A.json lathe --wait -1").status, 2);
}

TEST_F(OneTransaction, ReadersBesideADefineSeeNoHalf) {
  KnowBothForms();
  const Outcome read =
      Vanzet("define B.json lathe >/dev/null & for i in 1 2 3 4 5 6 7 8 9 10; do '" VANZET_PROGRAM
             "' show lathe --json; echo "
             "';'; done; wait");
  std::istringstream shown(read.out);
  std::string one;
  int reads = 0;
  for (std::string line; std::getline(shown, line);) {
    if (line != ";") {
      one += line + "\n";
      continue;
    }
    EXPECT_THAT(one, AnyOf(Eq(shownA), Eq(shownB)));
    one.clear();
    ++reads;
  }
  EXPECT_EQ(reads, 10);
}

TEST_F(OneTransaction, ADiskThatIsFullLeavesTheOldDefinition) {
  KnowBothForms();
  for (int kibibytes = 0; kibibytes < 200; kibibytes += 8) {
    const Outcome refused = Vanzet("define B.json lathe", "ulimit -f " + std::to_string(kibibytes) + ";");
    if (refused.status == 0) {
      EXPECT_EQ(Shown(), shownB);
      EXPECT_GT(kibibytes, 8) << "it was hardly ever full";
      return;
    }
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(Shown(), shownA) << kibibytes;
    EXPECT_EQ(Drawn(), drawnA);
  }
  FAIL() << "no limit was large enough";
}

TEST_F(OneTransaction, AScriptThatFailsStoresNothing) {
  MakeUpgradedProject();
  const std::string before = Vanzet("items lathe").out;
  WriteBytes(folder / "s.txt", "select 19\nset 2027 55\npress 2016\npress 9999\n");
  EXPECT_EQ(Vanzet("script lathe s.txt").status, 1);
  EXPECT_EQ(Vanzet("items lathe").out, before);
  EXPECT_FALSE(std::filesystem::exists(folder / "lathe/drawing.txt"));
}

TEST_F(OneTransaction, LinesOfWhichOneFailsStoreNothing) {
  MakeProject();
  WriteBytes(folder / "s.vdm", "vdm 1\nend 0\n");
  EXPECT_EQ(Vanzet("command lathe \"vdm load 's.vdm' i_ret 5\" 'fig cre F x0y0z0' rubbish").status, 1);
  EXPECT_FALSE(std::filesystem::exists(folder / "lathe/drawing.txt"));
  EXPECT_EQ(Vanzet("items lathe --vdm 5").status, 1);
  EXPECT_EQ(
      Vanzet("command lathe \"vdm load '" + (folder / "s.vdm").string() + "' i_ret 5\" 'fig cre F x0y0z0'")
          .err,
      "");
  EXPECT_THAT(Drawn(), HasSubstr("figure F\n"));
  EXPECT_EQ(Vanzet("items lathe --vdm 5").status, 0);
}

TEST_F(OneTransaction, AResultThatCannotBePrintedIsNotStored) {
  MakeUpgradedProject();
  WriteForm("A", 40);
  const std::string before = Vanzet("items lathe").out;
  const Outcome lost = Vanzet("define A.json lathe >/dev/full");
  EXPECT_EQ(lost.status, 1);
  EXPECT_THAT(lost.err, HasSubstr("standard output cannot be written"));
  EXPECT_EQ(Vanzet("items lathe").out, before);
}

TEST_F(OneTransaction, ADamagedOrEmptyDrawingIsReportedOnceAndMadeAgain) {
  for (const char* content : {"drawing 1\nrubbish\n", ""}) {
    std::filesystem::remove_all(folder / "lathe");
    KnowBothForms();
    WriteBytes(folder / "lathe/drawing.txt", content);
    const Outcome defined = Vanzet("define B.json lathe");
    EXPECT_EQ(defined.status, 0);
    EXPECT_THAT(defined.err, testing::ContainsRegex(
                                 "^vanzet: [^\n]*drawing.txt[^\n]*; the drawing is made again[^\n]*\n$"));
    EXPECT_EQ(Drawn(), drawnB);
    EXPECT_EQ(ReadBytes(folder / "lathe/drawing.txt.damaged"), content);
    EXPECT_EQ(Shown(), shownB);
  }
}

}  // namespace
}  // namespace vanzet::test
