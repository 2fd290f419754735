#include "simulation/device_contours.h"

#include "simulation/simulation_fixture.h"
#include "store/d2t_text.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class JawD2t : public SimulationTest {
 protected:
  bool Store(bool isSub = false) {
    BilletVdm definition(kVdm);
    EXPECT_TRUE(definition.Open());
    const bool isStored = StoreJawD2t(definition, isSub);
    definition.Close();
    return isStored;
  }

  const std::vector<FakeHost::Vertex> kSquare = {{0, 0}, {0, 10}, {20, 10}, {20, 0}, {0, 0}};
};

TEST_F(JawD2t, OfFourStraightSpansHasTenItems) {
  host.kurves[30001] = kSquare;
  EXPECT_TRUE(Store());
  EXPECT_THAT(
      Section(6, 2),
      ElementsAre("[Tool]\n", "Name=000004\n", "[Mounting]\n", "Reference=G54 X0 Y0 Z0 I1 J0 K0 A90\n",
                  "[Holder1]\n", "Contour=G0 X0.000000 Y0.000000 \\\n",
                  "        G1 X0.000000 Y10.000000 \\\n", "        G1 X20.000000 Y10.000000 \\\n",
                  "        G1 X20.000000 Y0.000000 \\\n", "        G1 X0.000000 Y0.000000\n"));
}

TEST_F(JawD2t, OfTheSubSpindleStandsInItsOwnOperation) {
  host.kurves[30001] = kSquare;
  EXPECT_TRUE(Store(true));
  EXPECT_THAT(Section(8, 2), SizeIs(10));
  EXPECT_THAT(Section(6, 2), IsEmpty());
}

TEST_F(JawD2t, TellsArcsByTheirRadiusFromTheEndPoint) {
  host.kurves[30001] = {{0, 0}, {3, 4, 0, 0, -1}, {-5, 0, 0, 0, 1}};
  Store();
  const auto items = Section(6, 2);
  ASSERT_THAT(items, SizeIs(8));
  EXPECT_EQ(items[6], "        G2 X3.000000 Y4.000000 R5.000000 \\\n");
  EXPECT_EQ(items[7], "        G3 X-5.000000 Y0.000000 R5.000000\n") << "no mark behind an arc that ends it";
}

TEST_F(JawD2t, GoesOnAsBeforeForADirectionThatNobodyKnows) {
  host.kurves[30001] = {{0, 0, 0, 0, 9}, {1, 0, 0, 0, 7}, {1, 1, 0, 0, 1}, {2, 2, 0, 0, 5}};
  Store();
  const auto items = Section(6, 2);
  ASSERT_THAT(items, SizeIs(9));
  EXPECT_EQ(items[5], "Contour=G0 X0.000000 Y0.000000 \\\n");
  EXPECT_EQ(items[6], "        G0 X1.000000 Y0.000000 \\\n");
  EXPECT_EQ(items[8], "        G3 X2.000000 Y2.000000 R2.828427\n");
}

TEST_F(JawD2t, IsEmptyWithoutAContour) {
  host.kurves[30001] = kSquare;
  Store();
  host.kurves.clear();
  EXPECT_TRUE(Store());
  EXPECT_THAT(Section(6, 2), IsEmpty());
}

TEST_F(JawD2t, IsEmptyForAContourWithoutSpans) {
  host.kurves[30001] = {{0, 0}};
  EXPECT_TRUE(Store());
  EXPECT_THAT(Section(6, 2), IsEmpty());
}

TEST_F(JawD2t, IsEmptyWhenTheHostGivesNoHandle) {
  host.kurves[30001] = kSquare;
  host.missing = {"OrvoVdmExist"};
  EXPECT_TRUE(Store());
  EXPECT_THAT(Section(6, 2), IsEmpty());
}

TEST_F(JawD2t, IsRefusedWhenTheOperationIsMissing) {
  host.kurves[30001] = kSquare;
  host.vdms[kVdm].records.resize(6);
  EXPECT_FALSE(Store());
}

TEST_F(JawD2t, EndsWhereTheHostGivesNoMoreVertices) {
  host.kurves[30001] = kSquare;
  host.spanCount = INT32_MAX;
  EXPECT_TRUE(Store());
  EXPECT_THAT(Section(6, 2), SizeIs(10));
  host.missing = {"OrvoGetSpn"};
  host::hostFunctions = {};
  EXPECT_TRUE(Store());
  EXPECT_THAT(Section(6, 2), SizeIs(5)) << "the head alone";
}

TEST_F(JawD2t, IsRefusedWhenTheHeaderCannotBeRead) {
  host.kurves[30001] = kSquare;
  host.vdms[kVdm].records[6][0] = "no header";
  EXPECT_FALSE(Store());
}

TEST_F(JawD2t, ClosesTheContour) {
  host.kurves[30001] = kSquare;
  Store();
  EXPECT_THAT(host.kurveReadings, IsEmpty());
}

TEST_F(JawD2t, IsMadeByTheseCalls) {
  host.kurves[30001] = {{0, 0}, {1, 0}};
  host.TakeCalls();
  Store();
  EXPECT_GOLDEN(Lines(host.TakeCalls()), "simulation/store_d2t.trace");
}

TEST(D2tLine, BeginsWithAMoveWhateverTheCode) {
  EXPECT_EQ(D2tLine({1, 1, 2, 0}, true, false), "Contour=G0 X1.000000 Y2.000000 \\\n");
  EXPECT_EQ(D2tLine({2, 1, 2, 3}, true, true), "Contour=G0 X1.000000 Y2.000000 R3.000000\n");
}

}  // namespace
}  // namespace vanzet::test
