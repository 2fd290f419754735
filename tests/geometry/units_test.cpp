#include "geometry/units.h"

#include <gtest/gtest.h>

#include <cmath>

#include "geometry/support.h"

namespace geometry {
namespace {

using testing::ThrownText;
using testing::UnitsGuard;

/// The values that an object constructed at start-up found, before main and in any order of the files.
struct SeenAtStart {
  std::int32_t units = Units;
  double tolerance = TOLERANCE, closed = CLOSED_TOLERANCE, cosine = COS_ANGLE_TOLERANCE;
  double unused[4] = {UNUSED_TOLERANCE_1, UNUSED_TOLERANCE_2, UNUSED_TOLERANCE_3, UNUSED_TOLERANCE_4};
};
const SeenAtStart seenAtStart;

TEST(Units, AreMetresBeforeAnyCodeRuns) {
  EXPECT_EQ(seenAtStart.units, 2);
  EXPECT_EQ(seenAtStart.tolerance, 5e-6);
  EXPECT_DOUBLE_EQ(seenAtStart.closed, 5e-5);
  EXPECT_EQ(seenAtStart.cosine, 0.9999999657305405);
  EXPECT_EQ(seenAtStart.unused[0], 0.0001);
  EXPECT_EQ(seenAtStart.unused[1], 5e-6);
  EXPECT_EQ(seenAtStart.unused[2], 1e-7);
  EXPECT_EQ(seenAtStart.unused[3], 1e-6);
}

TEST(Units, EachHasItsRowOfTolerances) {
  struct Row {
    std::int32_t units;
    double tolerance, closed, tight, vector, relative, unused[4];
  };
  for (const Row& row : {Row{0, 0.005, 0.05, 1e-6, 5e-6, 0.001, {0.1, 0.005, 1e-5, 0.001}},
                         Row{1, 0.0005, 0.005, 1e-7, 1e-7, 0.0001, {0.01, 0.0005, 1e-6, 0.0001}},
                         Row{2, 5e-6, 5e-5, 1e-9, 1e-9, 1e-6, {0.0001, 5e-6, 1e-8, 1e-6}}}) {
    const UnitsGuard guard(row.units);
    EXPECT_EQ(GetUnits(), row.units);
    EXPECT_EQ(TOLERANCE, row.tolerance);
    EXPECT_EQ(CLOSED_TOLERANCE, row.tolerance * 10.0);
    EXPECT_NEAR(CLOSED_TOLERANCE, row.closed, 1e-15);
    EXPECT_EQ(TIGHT_TOLERANCE, row.tight);
    EXPECT_EQ(VECTOR_TOLERANCE, row.vector);
    EXPECT_EQ(RELATIVE_TOLERANCE, row.relative);
    EXPECT_EQ(UNUSED_TOLERANCE_1, row.unused[0]);
    EXPECT_EQ(UNUSED_TOLERANCE_2, row.unused[1]);
    EXPECT_EQ(UNUSED_TOLERANCE_3, row.unused[2]);
    EXPECT_EQ(UNUSED_TOLERANCE_4, row.unused[3]);
  }
}

TEST(Units, AnUnknownSelectorIsKeptAndRefused) {
  const UnitsGuard guard(0);
  for (const std::int32_t bad : {5, -1, 3}) {
    EXPECT_EQ(ThrownText([&] { SetUnits(bad); }), L"INVALID UNITS");
    EXPECT_EQ(GetUnits(), bad);
    EXPECT_EQ(TOLERANCE, 0.005);
    EXPECT_EQ(TIGHT_TOLERANCE, 1e-6);
  }
}

TEST(Units, FixedAnglesAreFifteenThousandthsOfADegreeAndFifteenDegrees) {
  EXPECT_DOUBLE_EQ(ANGLE_TOLERANCE, 0.015 * testing::kPi / 180);
  EXPECT_DOUBLE_EQ(COS_ANGLE_TOLERANCE, std::cos(ANGLE_TOLERANCE));
  EXPECT_DOUBLE_EQ(SIN_ANGLE_TOLERANCE, std::sin(ANGLE_TOLERANCE));
  EXPECT_DOUBLE_EQ(COS_15, std::cos(testing::kPi / 12));
}

TEST(Units, ConvertByTheirTable) {
  struct Row {
    std::int32_t units;
    double mm, toMm, metresFromMm, mmFromMetres, inch, toInch;
  };
  for (const Row& row :
       {Row{0, 50.8, 50.8, 50.8, 50.8, 50.8 * 25.4, 2.0}, Row{1, 2.0, 50.8 * 25.4, 50.8, 50.8, 50.8, 50.8},
        Row{2, 0.0508, 50800, 0.0508, 50800, 50.8 * 0.0254, 2000}}) {
    const UnitsGuard guard(row.units);
    EXPECT_DOUBLE_EQ(mm(50.8), row.mm);
    EXPECT_DOUBLE_EQ(ToMm(50.8), row.toMm);
    EXPECT_DOUBLE_EQ(MetresFromMm(50.8), row.metresFromMm);
    EXPECT_DOUBLE_EQ(MmFromMetres(50.8), row.mmFromMetres);
    EXPECT_DOUBLE_EQ(Inch(50.8), row.inch);
    EXPECT_DOUBLE_EQ(ToInch(50.8), row.toInch);
  }
}

TEST(Units, AnUnknownSelectorConvertsAsMetres) {
  const UnitsGuard guard(2);
  EXPECT_EQ(ThrownText([] { SetUnits(7); }), L"INVALID UNITS");
  EXPECT_DOUBLE_EQ(mm(50), 0.05);
  EXPECT_DOUBLE_EQ(ToMm(0.05), 50);
  EXPECT_DOUBLE_EQ(MetresFromMm(50), 0.05);
  EXPECT_DOUBLE_EQ(MmFromMetres(0.05), 50);
  EXPECT_DOUBLE_EQ(Inch(1), 0.0254);
  EXPECT_DOUBLE_EQ(ToInch(0.0254), 1);
}

TEST(ThrowError, OnlyTheTextArrives) {
  EXPECT_EQ(ThrownText([] { ThrowError(L"the text", 3, 1007); }), L"the text");
}

std::wstring shown;

TEST(ShowMessage, GoesToTheSinkUnderItsTitleWithTheStopIcon) {
  const MessageSink first =
      SetMessageSink([](const std::wstring& text, const std::wstring& title, bool stopIcon) {
        shown = title + L"|" + text + (stopIcon ? L"|stop" : L"");
      });
  ShowMessage(L"no such file");
  EXPECT_EQ(shown, L"Lumera Error|no such file|stop");
  EXPECT_NE(SetMessageSink(nullptr), first);
  ShowMessage(L"to the console");
  EXPECT_EQ(shown, L"Lumera Error|no such file|stop");
  EXPECT_EQ(SetMessageSink(first), first) << "null brings back the first sink";
}

}  // namespace
}  // namespace geometry
