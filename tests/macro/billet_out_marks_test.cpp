#include "macro/billet_drawing.h"

#include <string_view>

#include "macro/macro_fixture.h"

namespace vanzet::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr DatumRecord kDatum = {
    .clampingOutMain = 40, .clampingOutSub = 25, .originMain = 120, .originSub = -80.5};

class BilletOutMarks : public MacroTest {
 protected:
  BilletOutMarks() {
    host.layers = {"0", "Work"}, host.currentLayer = 1;
    Want("1");
  }

  /// What the host has under "HideBilletOut".
  void Want(const std::string& setting) {
    host.onCommand = [this, setting](const std::string& line) {
      if (line == "env 'HideBilletOut' $_return") host.texts["$_return"] = setting;
    };
  }

  std::vector<std::string> LinesOf(const DatumRecord& datum, std::int32_t spindle = 0) {
    DrawBilletOutMarks(datum, spindle);
    return TakeLines();
  }
  std::string TraceOf(const DatumRecord& datum, std::int32_t spindle) {
    host.TakeCalls();
    DrawBilletOutMarks(datum, spindle);
    return Lines(host.TakeCalls());
  }
  static std::vector<std::string> OnlyTakenAway() {
    return {"win 1",
            "fig del ZOffsetMain yes",
            "lay del Billet_out_HS",
            "env 'HideBilletOut' $_return",
            "lay ch 'Work'",
            "red -1"};
  }
};

TEST_F(BilletOutMarks, OfTheMainSpindleAreMadeByTheseCalls) {
  EXPECT_GOLDEN(TraceOf(kDatum, 0), "macro/marks_main.trace");
}

TEST_F(BilletOutMarks, OfTheSubSpindleTakeTheSecondAndFourthValue) {
  EXPECT_GOLDEN(TraceOf(kDatum, 1), "macro/marks_sub.trace");
}

TEST_F(BilletOutMarks, OfNegativeZeroAndLargeValues) {
  EXPECT_GOLDEN(
      TraceOf({.clampingOutMain = 1e12, .clampingOutSub = -1, .originMain = -0.25, .originSub = -0.0}, 0) +
          TraceOf({.clampingOutMain = 1, .clampingOutSub = -1, .originMain = 1, .originSub = -0.0}, 1),
      "macro/marks_odd_values.trace");
}

TEST_F(BilletOutMarks, AreOnlyTakenAwayWhenTheSettingIsNoNumberButZero) {
  for (const char* const setting : {"", "0", "no", " 0 1", "-", "x1"}) {
    Want(setting);
    EXPECT_EQ(LinesOf(kDatum), OnlyTakenAway()) << setting;
    EXPECT_FALSE(host.integers.contains("i_diaprg")) << setting;
  }
}

TEST_F(BilletOutMarks, AreDrawnForAnyNumberButZero) {
  for (const char* const setting : {"1", "-1", " +2", "7 or so", "1.9", "99999999999"}) {
    Want(setting);
    EXPECT_THAT(LinesOf(kDatum), Contains("ori")) << setting;
  }
}

TEST_F(BilletOutMarks, AreOnlyTakenAwayWhenTheSettingCannotBeRead) {
  host.onCommand = nullptr;
  EXPECT_EQ(LinesOf(kDatum), OnlyTakenAway());
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("OrvoApi::MacroExport::GetGlobalStrVar Failed|$_return|0"));
}

TEST_F(BilletOutMarks, HaveNoLineWithoutClampingOut) {
  for (const double clampingOut : {0.0, -5.0}) {
    EXPECT_THAT(LinesOf({.clampingOutMain = clampingOut, .originMain = 5}),
                AllOf(Not(Contains(StartsWith("s-100"))), Contains("fig cre ZOffsetMain x0y0z0")));
  }
}

TEST_F(BilletOutMarks, HaveNoFigureWithoutOrigin) {
  EXPECT_THAT(LinesOf({.clampingOutMain = 5}), AllOf(Contains("s-100 = v-5.000000"), Not(Contains("win 0")),
                                                     Not(Contains(StartsWith("fig cre")))));
}

TEST_F(BilletOutMarks, HaveAFigureAtANegativeOrigin) {
  EXPECT_THAT(LinesOf({.originMain = -7}), Contains("tra m30000 x-7.000000"));
}

TEST_F(BilletOutMarks, ReadyTheDrawingEvenWhenBothValuesAreZero) {
  EXPECT_THAT(LinesOf({}),
              ElementsAre("win 1", "fig del ZOffsetMain yes", "lay del Billet_out_HS",
                          "env 'HideBilletOut' $_return", "ori", "mct turning", "lay ch 'Work'", "red -1"));
  EXPECT_EQ(host.integers["i_diaprg"], 1);
}

TEST_F(BilletOutMarks, LeaveTheLineStanding) {
  LinesOf(kDatum);
  EXPECT_THAT(LinesOf(kDatum), Not(Contains("del s-100")));
}

TEST_F(BilletOutMarks, TakeAllButOneForTheMainSpindle) {
  for (const std::int32_t spindle : {0, 2, -1}) {
    EXPECT_THAT(LinesOf(kDatum, spindle), Contains("tra m30000 x120.000000"));
  }
}

}  // namespace
}  // namespace vanzet::test
