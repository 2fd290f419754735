#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;

/// Names that are nearly those of something else.
class DidYouMean : public CommandLineTest {
 protected:
  DidYouMean() { MakeUpgradedProject(); }

  void ExpectHint(const std::string& arguments, const std::string& hint) {
    const Outcome run = Vanzet(arguments);
    EXPECT_NE(run.status, 0) << arguments;
    EXPECT_THAT(run.err, HasSubstr(hint)) << arguments;
  }
};

TEST_F(DidYouMean, OfAFigureOfTheDrawing) {
  ASSERT_EQ(Vanzet("command lathe 'fig cre Casting x0y0z0'").status, 0);
  ExpectHint("command lathe 'fig ins Castin m1'", "figure 'Castin' does not exist; did you mean 'Casting'?");
  WriteBytes(folder / "picks.txt", "figure Castign\n");
  ExpectHint("command lathe \"dfm pick i_return i_return2 'Select Figure' 20\" --picks picks.txt",
             "picks.txt:1: figure 'Castign' does not exist; did you mean 'Casting'?");
}

TEST_F(DidYouMean, OfAFigureOrBodyOfTheProjectsFolders) {
  WriteBytes(folder / "lathe/figures/flange.txt", "no contour");
  WriteBytes(folder / "lathe/bodies/flange.stl", "no model");
  WriteBytes(folder / "job.json", R"({"spurs": [{"spur": 0, "main": {"billet":
      {"kind": "figures", "outside": "flagne", "part_length": 80}}}]})");
  ExpectHint("define job.json lathe", "figure 'flagne' does not exist; did you mean 'flange'?");
  WriteBytes(folder / "job.json", R"({"spurs": [{"spur": 0, "main": {"billet":
      {"kind": "solid", "solid": "flagne", "part_length": 80}}}]})");
  ExpectHint("define job.json lathe", "body 'flagne' does not exist; did you mean 'flange'?");
}

TEST_F(DidYouMean, OfALayerASampleASettingOrADevice) {
  ASSERT_EQ(Vanzet("command lathe \"lay ch 'Billet'\"").status, 0);
  ExpectHint("picture lathe --out a.svg --layers Bilet",
             "layer 'Bilet' does not exist; did you mean Billet?");
  ExpectHint("new other --sample lahte", "did you mean 'lathe'?");
  ExpectHint("new other --set TailstockAvailabel=1", "did you mean: TailStockAvailable");
  WriteBytes(folder / "job.json", R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "Chuk 160"}}}]})");
  ExpectHint("define job.json lathe", "did you mean 'Chuck 160'?");
}

}  // namespace
}  // namespace vanzet::test
