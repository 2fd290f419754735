#include "macro/billet_drawing.h"

#include <algorithm>

#include "macro/macro_fixture.h"

namespace vanzet::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr BilletDrawing kBlank = {.type = 1, .partLength = 100, .outerDiameter = 80};
constexpr BilletDrawing kBoredBar = {.type = 1,
                                     .partLength = 100,
                                     .outerDiameter = 80,
                                     .innerDiameter = 30,
                                     .barLength = 200,
                                     .frontAllowance = 2,
                                     .rearAllowance = 3};

class BilletDrawingTest : public MacroTest {
 protected:
  BilletDrawingTest() { host.layers = {"0", "Work"}, host.currentLayer = 1; }

  std::vector<std::string> LinesOf(const BilletDrawing& billet, std::int32_t spindle = 0, double z = 10) {
    DrawBillet(billet, spindle, z);
    return TakeLines();
  }

  /// All that the host is asked for.
  std::string TraceOf(const BilletDrawing& billet, std::int32_t spindle = 0, double z = 10) {
    host.TakeCalls();
    DrawBillet(billet, spindle, z);
    return Lines(host.TakeCalls());
  }
};

TEST_F(BilletDrawingTest, OfABlankIsTheOutlineAlone) {
  EXPECT_GOLDEN(TraceOf(kBlank), "macro/billet_blank.trace");
}

TEST_F(BilletDrawingTest, OfABoredBarHasBoreAndAllStations) {
  EXPECT_GOLDEN(TraceOf(kBoredBar), "macro/billet_bored_bar.trace");
}

TEST_F(BilletDrawingTest, OfASolidBarHasOneStrokeAStation) {
  BilletDrawing bar = kBoredBar;
  bar.innerDiameter = 0;
  EXPECT_GOLDEN(TraceOf(bar, 1), "macro/billet_solid_bar_sub.trace");
}

TEST_F(BilletDrawingTest, OfABoredBlankEndsTheBoreAtTheCutOff) {
  BilletDrawing blank = kBoredBar;
  blank.barLength = 0;
  EXPECT_GOLDEN(TraceOf(blank), "macro/billet_bored_blank.trace");
}

TEST_F(BilletDrawingTest, OfNegativeZeroAndLargeValuesIsSentAsTheyStand) {
  EXPECT_GOLDEN(TraceOf({.type = 1,
                         .partLength = -1e9,
                         .outerDiameter = 0,
                         .innerDiameter = -5,
                         .barLength = -1,
                         .frontAllowance = -2,
                         .rearAllowance = -3},
                        0, 1.5e12),
                "macro/billet_odd_values.trace");
}

TEST_F(BilletDrawingTest, IsOnlyTakenAwayForWhatIsNoCylinder) {
  for (const std::int32_t type : {0, 2, 3, -1}) {
    BilletDrawing billet = kBoredBar;
    billet.type = type;
    EXPECT_THAT(LinesOf(billet), ElementsAre("win 1", "fig del BilletM yes", "red -1")) << type;
  }
}

TEST_F(BilletDrawingTest, IsOnlyTakenAwayUnlessTheFlagIsExactlyOne) {
  for (const std::uint8_t flag : std::initializer_list<std::uint8_t>{0, 2, 255}) {
    BilletDrawing billet = kBoredBar;
    billet.drawOnScreen = flag;
    EXPECT_THAT(LinesOf(billet), ElementsAre("win 1", "fig del BilletM yes", "red -1")) << int{flag};
  }
}

TEST_F(BilletDrawingTest, HasTheNamesOfItsSpindle) {
  for (const std::int32_t spindle : {0, -1, 2}) {
    EXPECT_THAT(LinesOf(kBlank, spindle),
                AllOf(Contains("fig cre BilletM z0x0y0"), Contains("lay ch 'Billet_Spindel_1'"),
                      Not(Contains("fig del BilletS yes"))));
  }
  EXPECT_THAT(LinesOf(kBlank, 1),
              AllOf(Contains("fig del BilletS yes"), Contains("fig cre BilletS z0x0y0"),
                    Contains("call @@lay 'magenta' 'solid' '' '' 'Billet_Spindel_2'"),
                    Contains("fig ins BilletS m30000"), Not(Contains("fig del BilletM yes"))));
}

TEST_F(BilletDrawingTest, PutsTheLayerBackThatWasCurrent) {
  EXPECT_EQ(LinesOf(kBlank).back(), "lay ch 'Work'");
}

TEST_F(BilletDrawingTest, WritesThatItDrawsOnItsOwnAccount) {
  LinesOf(kBlank);
  EXPECT_EQ(host.integers["i_diaprg"], 1);
}

TEST_F(BilletDrawingTest, LeavesThatAloneWhenNothingIsDrawn) {
  LinesOf({.type = 2});
  EXPECT_FALSE(host.integers.contains("i_diaprg"));
}

TEST_F(BilletDrawingTest, EndsAtTheCutOffOrAtTheEndOfTheBar) {
  EXPECT_THAT(LinesOf(kBlank), AllOf(Contains("k30000 p100 ts110 as101 as113 ts102 ts110 p100 ek"),
                                     Not(Contains("p100=s101 s113"))));
  EXPECT_THAT(LinesOf(kBoredBar), AllOf(Contains("k30000 p100 ts110 as101 as114 ts102 ts110 p100 ek"),
                                        Contains("p100=s101 s113")));
}

TEST_F(BilletDrawingTest, DrawsTheEndOfThePartForANegativeRearAllowanceToo) {
  BilletDrawing billet = kBlank;
  billet.rearAllowance = -1;
  EXPECT_THAT(LinesOf(billet), Contains("p100=s101 s112"));
  billet.frontAllowance = -1;
  EXPECT_THAT(LinesOf(billet), Not(Contains("p100=s101 s111")));
}

TEST_F(BilletDrawingTest, MakesNineContoursAtTheMost) {
  const std::vector<std::string> lines = LinesOf(kBoredBar);
  EXPECT_EQ(std::ranges::count(lines, "figure append BilletM k30000"), 9);
  EXPECT_EQ(std::ranges::count_if(lines, [](const std::string& line) { return line.starts_with("k30000 "); }),
            9);
}

TEST_F(BilletDrawingTest, ComputesItsStationsInOrder) {
  BilletDrawing billet = kBlank;
  billet.partLength = 1e16;
  billet.rearAllowance = 0.25;
  EXPECT_THAT(LinesOf(billet, 0, 1e16), Contains("s113=v -0.250000")) << "the part's length first";
  billet = kBlank;
  billet.frontAllowance = -1e16;
  billet.barLength = -0.5;
  EXPECT_THAT(LinesOf(billet, 0, 1e16), Contains("s114=v 0.500000")) << "the front allowance first";
}

TEST_F(BilletDrawingTest, ShowsNoBox) {
  host.missing = {"OrvoGetCurrentLayer", "OrvoWriteGlobalI"};
  LinesOf(kBoredBar);
  EXPECT_THAT(host.boxes, IsEmpty());
}

}  // namespace
}  // namespace vanzet::test
