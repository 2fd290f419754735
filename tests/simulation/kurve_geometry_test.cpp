#include "simulation/device_contours.h"

#include "simulation/simulation_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class KurveGeometry : public SimulationTest {
 protected:
  KurveGeometry() { host.kurves[30000] = {{0, 0}, {10, 0, 3, 4, 0}, {0, 10, 0.5, 7, 1}}; }

  bool Store(bool isSub, std::int32_t type, std::int32_t kurve = 30000) {
    BilletVdm definition(kVdm);
    EXPECT_TRUE(definition.Open());
    const bool isStored = StoreKurveGeometry(definition, isSub, type, kurve);
    definition.Close();
    return isStored;
  }
};

TEST_F(KurveGeometry, TellsAVertexALineWithTheCentresFirstCoordinateTwice) {
  EXPECT_TRUE(Store(false, 1));
  EXPECT_THAT(Section(11, 1), ElementsAre("0 0.000000 0.000000 0.000000 0.000000 0",
                                          "0 10.000000 0.000000 3.000000 3.000000 0",
                                          "1 0.000000 10.000000 0.500000 0.500000 0"));
}

TEST_F(KurveGeometry, PrintsTheWordAsItStands) {
  host.kurves[30000] = {{1, 2, 3, 4, -2147483647}};
  Store(false, 1);
  EXPECT_THAT(Section(11, 1), ElementsAre("-2147483647 1.000000 2.000000 3.000000 3.000000 0"));
}

TEST_F(KurveGeometry, GoesToTheOperationOfItsKindAndSpindle) {
  struct Place {
    std::int32_t firstType, lastType;
    bool isSub;
    std::size_t operation;
  };
  for (const Place& place : {Place{1, 4, false, 11}, Place{1, 4, true, 13}, Place{5, 12, false, 12},
                             Place{5, 12, true, 14}, Place{13, 14, false, 15}, Place{13, 14, true, 15}}) {
    for (std::int32_t type = place.firstType; type <= place.lastType; ++type) {
      host.kurves[30000].push_back({1, 1});
      EXPECT_TRUE(Store(place.isSub, type));
      EXPECT_THAT(Section(place.operation, 1), SizeIs(host.kurves[30000].size())) << type;
    }
  }
}

TEST_F(KurveGeometry, OfATypeWithoutOperationIsRefusedAndChangesNothing) {
  const auto before = host.vdms[kVdm].records;
  for (const std::int32_t type : {-1, 0, 15, 103, 115}) EXPECT_FALSE(Store(false, type)) << type;
  EXPECT_EQ(host.vdms[kVdm].records, before);
}

TEST_F(KurveGeometry, IsEmptyWithoutAContour) {
  Store(false, 1);
  EXPECT_TRUE(Store(false, 1, 31000));
  EXPECT_THAT(Section(11, 1), IsEmpty());
}

TEST_F(KurveGeometry, IsEmptyForAContourWithoutVertices) {
  host.kurves[30000] = {};
  EXPECT_TRUE(Store(false, 1));
  EXPECT_THAT(Section(11, 1), IsEmpty());
  EXPECT_THAT(host.kurveReadings, IsEmpty());
}

TEST_F(KurveGeometry, IsRefusedWhenTheOperationIsMissing) {
  host.vdms[kVdm].records.resize(11);
  EXPECT_FALSE(Store(false, 1));
  EXPECT_THAT(host.boxes, SizeIs(1));
}

TEST_F(KurveGeometry, IsRefusedWhenTheHeaderCannotBeRead) {
  host.vdms[kVdm].records[11][0] = "no header";
  EXPECT_FALSE(Store(false, 1));
}

TEST_F(KurveGeometry, IsReadTwiceInTheseCalls) {
  host.TakeCalls();
  Store(false, 1);
  EXPECT_GOLDEN(Lines(host.TakeCalls()), "simulation/store_outline.trace");
}

TEST_F(KurveGeometry, EndsWithAHostThatNeverTellsTheEnd) {
  host.missing = {"OrvoVdmEoi"};
  EXPECT_TRUE(Store(false, 1));
  EXPECT_THAT(Section(11, 1), SizeIs(3));
}

TEST_F(KurveGeometry, EndsWithAHostThatReadsNothing) {
  host.missing = {"OrvoVdmRead"};
  EXPECT_TRUE(Store(false, 1));
  EXPECT_THAT(Section(11, 1), IsEmpty());
}

}  // namespace
}  // namespace vanzet::test
