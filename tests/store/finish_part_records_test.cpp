#include "store/finish_part_records.h"

#include "store/record_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FinishPartRecords : public RecordTest {
 protected:
  /// What reading gives on top of a record with old texts.
  FinishPartRecord Read(std::int32_t spindle, std::int32_t expected = 0) {
    FinishPartRecord record = {9, "old outside", "old inside", "old solid"};
    EXPECT_EQ(ReadFinishPart(0, spindle, record), expected);
    return record;
  }
};

TEST_F(FinishPartRecords, OfANewDefinitionAreNone) {
  const FinishPartRecord read = Read(0);
  EXPECT_EQ(read.type, 0);
  EXPECT_EQ(read.figureOutside, "old outside") << "the first figure stays";
  EXPECT_EQ(read.figureInside, "");
  EXPECT_EQ(read.solidName, "");
}

TEST_F(FinishPartRecords, HoldTypeAndFigures) {
  EXPECT_EQ(WriteFinishPart(0, 0, {1, "outside", "inside", "unused"}), 0);
  EXPECT_THAT(Items(16), ElementsAre("2 1 2 1 3", "Finishpart from Main", "1", "outside", "inside"));
  const FinishPartRecord read = Read(0);
  EXPECT_EQ(read.type, 1);
  EXPECT_EQ(read.figureOutside, "outside");
  EXPECT_EQ(read.figureInside, "inside");
  EXPECT_EQ(read.solidName, "");
}

TEST_F(FinishPartRecords, HoldTypeAndSolid) {
  EXPECT_EQ(WriteFinishPart(0, 1, {2, "unused", "unused", "Body 7"}), 0);
  EXPECT_THAT(Items(17), ElementsAre("2 1 2 1 2", "Finishpart from Sub", "2", "Body 7"));
  const FinishPartRecord read = Read(1);
  EXPECT_EQ(read.type, 2);
  EXPECT_EQ(read.solidName, "Body 7");
  EXPECT_EQ(read.figureInside, "");
}

TEST_F(FinishPartRecords, OfAnyOtherSpindleAreTheMainSpindles) {
  EXPECT_EQ(WriteFinishPart(0, 2, {2, "", "", "two"}), 0);
  EXPECT_EQ(WriteFinishPart(0, 1, {2, "", "", "one"}), 0);
  EXPECT_EQ(Items(16)[3], "two");
  EXPECT_EQ(Read(-1).solidName, "two");
  EXPECT_EQ(Read(1).solidName, "one");
}

TEST_F(FinishPartRecords, LeaveNoStaleItemsBehind) {
  WriteFinishPart(0, 0, {1, "a", "b", ""});
  WriteFinishPart(0, 0, {2, "", "", "solid"});
  EXPECT_THAT(Items(16), ElementsAre("2 1 2 1 2", "Finishpart from Main", "2", "solid"));
  WriteFinishPart(0, 0, {0, "a", "b", "c"});
  EXPECT_THAT(Items(16), ElementsAre("2 1 2 1 1", "Finishpart from Main", "0"));
}

TEST_F(FinishPartRecords, TakeAZeroForNoFigure) {
  Items(16) = {"2 1 2 1 3", "Finishpart from Main", "1", "0", "0"};
  const FinishPartRecord read = Read(0);
  EXPECT_EQ(read.figureOutside, "");
  EXPECT_EQ(read.figureInside, "");
}

TEST_F(FinishPartRecords, OfAnOlderLayoutFailSilently) {
  host.vdms[kVdm].records.resize(16);
  const FinishPartRecord read = Read(0, -1);
  EXPECT_EQ(read.type, 0);
  EXPECT_EQ(read.figureInside, "");
  EXPECT_THAT(host.boxes, IsEmpty());
  EXPECT_EQ(host.vdms[kVdm].handle, 0U);
}

TEST_F(FinishPartRecords, OfADamagedRecordReadAsNone) {
  Items(16) = {"2 1 1 1", "Finishpart from Main"};
  EXPECT_EQ(Read(0).type, 0) << "the label is read";
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Operation 16 section 1 (0 based) out of range (1 sections)")));
  Items(16) = {"2 1 2 1 1", "Finishpart from Main", "solid"};
  EXPECT_EQ(Read(0).type, 0);
  Items(16) = {"2 1 2 1 1", "Finishpart from Main", "2"};
  EXPECT_EQ(Read(0).solidName, "");
}

}  // namespace
}  // namespace vanzet::test
