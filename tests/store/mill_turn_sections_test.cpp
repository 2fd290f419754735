#include <limits>

#include "store/mill_turn_vdm.h"
#include "store/store_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Sections : public StoreTest {
 protected:
  /// One operation with three sections of 1, 2 and 0 items, selected.
  void SelectSample() {
    OpenOver({{"2 1 3 1 2 0", "a0", "b0", "b1"}});
    vdm.OperationSelect(0);
    host.TakeCalls();
  }
};

TEST_F(Sections, AreValidFromZeroBelowTheirCount) {
  SelectSample();
  EXPECT_TRUE(vdm.IsSectionValid(0));
  EXPECT_TRUE(vdm.IsSectionValid(2));
  EXPECT_FALSE(vdm.IsSectionValid(3));
  EXPECT_FALSE(vdm.IsSectionValid(-1));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Operation 0 section 3 (0 based) out of range (3 sections)"),
                          MillTurnBox("Operation 0 section -1 (0 based) out of range (3 sections)")));
}

TEST_F(Sections, HaveItemsFromZeroBelowTheirCount) {
  SelectSample();
  EXPECT_TRUE(vdm.IsItemValid(1, 0));
  EXPECT_TRUE(vdm.IsItemValid(1, 1));
  EXPECT_FALSE(vdm.IsItemValid(1, 2));
  EXPECT_FALSE(vdm.IsItemValid(1, -1));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Operation 0 section 1 item 2 (0 based) out of range (2 items)"),
                          MillTurnBox("Operation 0 section 1 item -1 (0 based) out of range (2 items)")));
}

TEST_F(Sections, ThatAreNotValidShowTheirOwnBoxAloneForAnItem) {
  SelectSample();
  EXPECT_FALSE(vdm.IsItemValid(7, 0));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Operation 0 section 7 (0 based) out of range (3 sections)")));
}

TEST_F(Sections, StartBehindTheHeaderAndTheSectionsBefore) {
  SelectSample();
  for (const auto& [section, item] : {std::pair{0, 1}, {1, 2}, {2, 4}}) {
    vdm.SectionSeek(section);
    EXPECT_EQ(Position(), std::make_pair(0, item)) << section;
  }
  EXPECT_THAT(host.calls, testing::Contains("OrvoMacroVdmSingleSeek(41, 4)"));
}

TEST_F(Sections, AreSoughtWithoutACheck) {
  SelectSample();
  vdm.SectionSeek(9);
  EXPECT_EQ(Position(), std::make_pair(0, 4));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Sections, OfAClosedVdmReportBothStepsOfASeek) {
  vdm.SectionSeek(0);
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(BaseBox("SeekFromStart: Vdm not open"), BaseBox("SingleSeek: Vdm not open")));
}

TEST_F(Sections, AtTheEndOfARecordTakeNewItemsThere) {
  OpenOver({{"2 1 2 1 0", "a0"}});
  vdm.OperationSelect(0);
  vdm.SectionSeek(1);
  EXPECT_EQ(Position(), std::make_pair(0, 2)) << "one past the last";
  EXPECT_TRUE(vdm.ItemAdd("b0"));
  EXPECT_THAT(Items(0), ElementsAre("2 1 2 1 0", "a0", "b0"));
}

TEST_F(Sections, GivePositionsToTheirItems) {
  SelectSample();
  EXPECT_TRUE(vdm.ItemSeek(1, 0));
  EXPECT_EQ(Position(), std::make_pair(0, 2));
  EXPECT_TRUE(vdm.ItemSeek(1, 1));
  EXPECT_EQ(Position(), std::make_pair(0, 3));
  EXPECT_FALSE(vdm.ItemSeek(1, 2));
  EXPECT_EQ(host.TakeBoxes().size(), 1U);
}

TEST_F(Sections, HaveNoItemsWithoutACurrentOperation) {
  SelectSample();
  vdm.currentOperation = -1;
  EXPECT_FALSE(vdm.ItemSeek(1, 0));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Sections, OfAClosedVdmCanBeSoughtByItemAndReport) {
  SelectSample();
  vdm.Close();
  EXPECT_TRUE(vdm.ItemSeek(1, 1)) << "the result looks at the header in memory alone";
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(BaseBox("SeekFromStart: Vdm not open"), BaseBox("SingleSeek: Vdm not open"),
                          BaseBox("SingleSeek: Vdm not open")));
}

TEST_F(Sections, AreCreatedWithAllThatAreMissingBefore) {
  OpenOver({{"2 1 1 1", "a0"}});
  vdm.OperationSelect(0);
  vdm.currentCount = 9;
  EXPECT_TRUE(vdm.SectionCreate(3));
  EXPECT_THAT(vdm.sectionItems, ElementsAre(1, 0, 0, 0));
  EXPECT_EQ(vdm.currentSection, 3);
  EXPECT_EQ(vdm.currentCount, 0);
  EXPECT_EQ(Position(), std::make_pair(0, 2));
  EXPECT_THAT(Items(0), ElementsAre("2 1 1 1", "a0")) << "the VDM learns of them with the next header";
}

TEST_F(Sections, ThatExistAreReportedAndStoodUpon) {
  SelectSample();
  EXPECT_FALSE(vdm.SectionCreate(1));
  EXPECT_EQ(vdm.currentSection, 1);
  EXPECT_EQ(vdm.currentCount, 0);
  EXPECT_EQ(Position(), std::make_pair(0, 2));
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(MillTurnBox("SectionCreate:: Operation (0) section (1) exist")));
}

TEST_F(Sections, LoseTheirItemsInTheVdmAndInTheHeader) {
  SelectSample();
  EXPECT_TRUE(vdm.DeleteItems(1));
  EXPECT_THAT(Items(0), ElementsAre("2 1 3 1 0 0", "a0"));
  EXPECT_EQ(vdm.currentSection, 1);
}

TEST_F(Sections, WithoutItemsAreEmptiedByACountOfZero) {
  SelectSample();
  EXPECT_TRUE(vdm.DeleteItems(2));
  EXPECT_THAT(host.calls, testing::IsSupersetOf({"OrvoMacroVdmSingleDelete(41, 0)",
                                                 "OrvoMacroVdmSingleReplace$(41, '2 1 3 1 2 0', 1)"}));
}

TEST_F(Sections, ThatAreNotValidCannotBeEmptied) {
  SelectSample();
  EXPECT_FALSE(vdm.DeleteItems(3));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Operation 0 section 3 (0 based) out of range (3 sections)")));
  vdm.currentOperation = -1;
  EXPECT_FALSE(vdm.DeleteItems(1));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Sections, OfAClosedVdmReportTheirEmptyingUnderTheBase) {
  SelectSample();
  vdm.Close();
  EXPECT_FALSE(vdm.DeleteItems(1));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(BaseBox("SeekFromStart: Vdm not open"), BaseBox("SingleSeek: Vdm not open"),
                          BaseBox("DeleteItems: Vdm not open")));
  EXPECT_THAT(vdm.sectionItems, ElementsAre(1, 2, 0));
}

TEST_F(Sections, AreWrittenAnewByRewriteAddAndCommit) {
  SelectSample();
  EXPECT_TRUE(vdm.SectionRewrite(1));
  EXPECT_EQ(vdm.currentCount, 0);
  EXPECT_EQ(Position(), std::make_pair(0, 2));
  for (const char* item : {"x", "y", "z"}) EXPECT_TRUE(vdm.ItemAdd(item));
  EXPECT_EQ(vdm.currentCount, 3);
  EXPECT_TRUE(vdm.SectionCommit());
  EXPECT_THAT(Items(0), ElementsAre("2 1 3 1 3 0", "a0", "x", "y", "z"));
}

TEST_F(Sections, AreMadeByARewriteWhenTheyAreMissing) {
  SelectSample();
  vdm.SectionRewrite(4);
  vdm.ItemAdd("e0");
  EXPECT_TRUE(vdm.SectionCommit());
  EXPECT_THAT(Items(0), ElementsAre("2 1 5 1 2 0 0 1", "a0", "b0", "b1", "e0"));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Sections, KeepLaterSectionsBehindThemWhenRewritten) {
  SelectSample();
  vdm.SectionRewrite(0);
  vdm.ItemAdd("n0");
  vdm.ItemAdd("n1");
  vdm.SectionCommit();
  EXPECT_THAT(Items(0), ElementsAre("2 1 3 2 2 0", "n0", "n1", "b0", "b1"));
}

TEST_F(Sections, TakeMoreItemsAtTheirEnd) {
  SelectSample();
  EXPECT_TRUE(vdm.SectionAppend(0));
  EXPECT_EQ(vdm.currentCount, 1);
  vdm.ItemAdd("a1");
  vdm.SectionCommit();
  EXPECT_THAT(Items(0), ElementsAre("2 1 3 2 2 0", "a0", "a1", "b0", "b1"));
  EXPECT_TRUE(vdm.SectionAppend(3)) << "made when it is missing";
  vdm.ItemAdd("d0");
  vdm.SectionCommit();
  EXPECT_THAT(Items(0), ElementsAre("2 1 4 2 2 0 1", "a0", "a1", "b0", "b1", "d0"));
}

TEST_F(Sections, CannotBeAppendedToWithoutACurrentOperation) {
  SelectSample();
  vdm.currentOperation = -1;
  EXPECT_FALSE(vdm.SectionAppend(1));
}

TEST_F(Sections, CountOnlyTheItemsThatWereAdded) {
  SelectSample();
  vdm.SectionRewrite(1);
  vdm.Close();
  EXPECT_FALSE(vdm.ItemAdd("x"));
  EXPECT_EQ(vdm.currentCount, 0);
}

TEST_F(Sections, WithoutACommitHoldItemsThatTheHeaderDoesNotCount) {
  SelectSample();
  vdm.SectionRewrite(0);
  vdm.ItemAdd("n0");
  EXPECT_THAT(Items(0), ElementsAre("2 1 3 0 2 0", "n0", "b0", "b1"));
}

TEST_F(Sections, OfANegativeNumberExistNeitherForMakingNorForWriting) {
  SelectSample();
  EXPECT_FALSE(vdm.SectionCreate(-1));
  EXPECT_FALSE(vdm.SectionRewrite(-1));
  const std::string invalid = MillTurnBox("Operation 0 section -1 (0 based) out of range (3 sections)");
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(MillTurnBox("SectionCreate:: Operation (0) section (-1) exist"),
                                            invalid, invalid, invalid));
}

TEST_F(Sections, CannotBeRewrittenWithoutACurrentOperation) {
  SelectSample();
  vdm.currentOperation = -1;
  EXPECT_FALSE(vdm.SectionRewrite(1));
  EXPECT_THAT(Items(0), ElementsAre("2 1 3 1 2 0", "a0", "b0", "b1"));
}

class ItemPut : public Sections {};

TEST_F(ItemPut, OverwritesAnItem) {
  SelectSample();
  EXPECT_TRUE(vdm.ItemPut(1, 1, "new"));
  EXPECT_THAT(Items(0), ElementsAre("2 1 3 1 2 0", "a0", "b0", "new"));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(ItemPut, MakesTheItemsThatAreMissingBeforeIt) {
  SelectSample();
  EXPECT_TRUE(vdm.ItemPut(1, 4, "new"));
  EXPECT_THAT(Items(0), ElementsAre("2 1 3 1 5 0", "a0", "b0", "b1", "", "", "new"));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Operation 0 section 1 item 4 (0 based) out of range (2 items)")));
}

TEST_F(ItemPut, MakesAMissingSectionAndShowsItsBoxAndTheItems) {
  SelectSample();
  EXPECT_TRUE(vdm.ItemPut(4, 0, "new"));
  EXPECT_THAT(Items(0), ElementsAre("2 1 5 1 2 0 0 1", "a0", "b0", "b1", "new"));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Operation 0 section 4 (0 based) out of range (3 sections)"),
                          MillTurnBox("Operation 0 section 4 item 0 (0 based) out of range (0 items)")));
}

TEST_F(ItemPut, AddsOneItemForANegativeNumberAndFails) {
  SelectSample();
  EXPECT_FALSE(vdm.ItemPut(0, -1, "new"));
  EXPECT_THAT(Items(0), ElementsAre("2 1 3 2 2 0", "a0", "", "b0", "b1")) << "at least one item in any case";
}

TEST_F(ItemPut, StopsWhenTheSectionCanNeitherBeEnteredNorMade) {
  SelectSample();
  vdm.currentOperation = -1;
  EXPECT_FALSE(vdm.ItemPut(1, 0, "new"));
  EXPECT_THAT(Items(0), ElementsAre("2 1 3 1 2 0", "a0", "b0", "b1"));
}

TEST_F(ItemPut, CountsFromNoneWhereTheHeaderTellsOfFewer) {
  OpenOver({{"2 1 2 1 -2000000000", "a0"}});
  vdm.OperationSelect(0);
  EXPECT_TRUE(vdm.ItemPut(1, 1, "new"));
  EXPECT_THAT(Items(0), ElementsAre("2 1 2 1 2", "a0", "", "new"));
}

TEST_F(Sections, DoNotCountAnItemThatIsTooLongToBeKept) {
  SelectSample();
  EXPECT_TRUE(vdm.SectionRewrite(2));
  EXPECT_FALSE(vdm.ItemAdd(std::string(5000, 'x')));
  EXPECT_TRUE(vdm.ItemAdd(std::string(4999, 'x')));
  EXPECT_TRUE(vdm.SectionCommit());
  EXPECT_EQ(Items(0).front(), "2 1 3 1 2 1");
  EXPECT_EQ(Items(0).size(), 5U);
  EXPECT_FALSE(vdm.ItemPut(0, 0, std::string(5000, 'x')));
  EXPECT_EQ(Items(0)[1], "a0");
}

TEST_F(Sections, WithAbsurdCountsInTheirHeaderAreSoughtWithinTheHostsNumbers) {
  OpenOver({{"2 1 3 2147483647 2147483647 0", "a0"}});
  vdm.OperationSelect(0);
  host.TakeCalls();
  vdm.SectionSeek(2);
  EXPECT_THAT(host.calls, testing::Contains("OrvoMacroVdmSingleSeek(41, 2147483647)"));
  host.vdms[kVdm].records = {{"2 1 1 2147483647"}};
  host.vdms[kVdm].item = 0;
  vdm.OperationSelect(0);
  vdm.currentCount = std::numeric_limits<std::int32_t>::max();
  host.vdms[kVdm].item = 0;
  EXPECT_TRUE(vdm.ItemAdd("x"));
  EXPECT_EQ(vdm.currentCount, std::numeric_limits<std::int32_t>::max());
}

}  // namespace
}  // namespace vanzet::test
