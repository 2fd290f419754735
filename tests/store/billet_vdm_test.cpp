#include "store/billet_vdm.h"

#include "store/clamp_schema.h"
#include "store/store_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(VdmNumber, OfTheFirstSpurAndBelowIsTheBilletVdm) {
  FakeHost host;
  host.integers = {{"i_billet_vdm", 1000}, {"i_billet_vdm_spispur", 2000}};
  EXPECT_EQ(BilletVdm::VdmNumber(0), 1000U);
  EXPECT_EQ(BilletVdm::VdmNumber(-1), 1000U);
}

TEST(VdmNumber, OfLaterSpursCountsUp) {
  FakeHost host;
  host.integers = {{"i_billet_vdm", 1000}, {"i_billet_vdm_spispur", 2000}};
  EXPECT_EQ(BilletVdm::VdmNumber(1), 2000U);
  EXPECT_EQ(BilletVdm::VdmNumber(3), 2002U);
}

class ReadVersion : public StoreTest {
 protected:
  std::int32_t Of(Record record) {
    OpenOver({std::move(record)});
    const std::int32_t version = vdm.ReadVersion();
    vdm.Close();
    return version;
  }
};

TEST_F(ReadVersion, IsTheFirstIntegerOfTheVersionItem) {
  EXPECT_EQ(Of({"1 1 1 2", "label", "100"}), 100);
  EXPECT_EQ(Of({"1 1 1 2", "label", " 99 x"}), 99);
  EXPECT_EQ(Of({"1 1 1 2", "label", "x"}), 0);
}

TEST_F(ReadVersion, IsZeroWithoutTheItemAndShowsNoBox) {
  EXPECT_EQ(Of({"1 1 1 1", "label"}), 0);
  EXPECT_EQ(Of({"1 1 0"}), 0);
  EXPECT_EQ(Of({"x"}), 0);
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(ReadVersion, OfAnEmptyVdmShowsThatThereIsNoOperation) {
  OpenOver({});
  EXPECT_EQ(vdm.ReadVersion(), 0);
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(MillTurnBox("Operation 0 (0 based) out of range (0 oprations)")));
}

class OperationInit : public StoreTest {};

TEST_F(OperationInit, WritesTheLabelAndEverySectionOfTheSchema) {
  OpenOver({{"old"}});
  EXPECT_TRUE(vdm.OperationInit(0));
  EXPECT_TRUE(vdm.OperationInit(1));
  EXPECT_EQ(Records(), 2U);
  EXPECT_THAT(Items(0), ElementsAre("1 1 1 2", "Billet definition", "100"));
  EXPECT_THAT(Items(1), ElementsAre("2 1 4 1 3 2 4", "Main Spindle", "0", "0", "0", "0", "0", "MainBillet",
                                    "0", "0", "0"));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(OperationInit, OfANumberAboveTheSchemaCostsTheRecordAndShowsABox) {
  OpenOver(std::vector<Record>(19, {"2 1 0"}));
  EXPECT_FALSE(vdm.OperationInit(18));
  EXPECT_EQ(Records(), 18U);
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("Clamp VDM|Wrong operation: 18|0"));
}

TEST_F(OperationInit, OfANegativeNumberChangesNothingAndShowsABox) {
  OpenOver({{"2 1 0"}});
  EXPECT_FALSE(vdm.OperationInit(-1));
  EXPECT_EQ(Records(), 1U);
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("Clamp VDM|Wrong operation: -1|0"));
}

}  // namespace
}  // namespace vanzet::test
