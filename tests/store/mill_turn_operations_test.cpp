#include "store/mill_turn_vdm.h"

#include "store/store_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Operations : public StoreTest {
 protected:
  std::string Header() {
    std::string text;
    vdm.HeaderText(text);
    return text;
  }
};

TEST_F(Operations, ExistBelowTheCount) {
  OpenOver({{"2 1 0"}, {"2 1 0"}});
  EXPECT_TRUE(vdm.OperationExist(0));
  EXPECT_TRUE(vdm.OperationExist(1));
  EXPECT_FALSE(vdm.OperationExist(2));
  EXPECT_TRUE(vdm.OperationExist(-1)) << "the number is only compared with the count";
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Operations, OfAClosedVdmDoNotExist) {
  EXPECT_FALSE(vdm.OperationExist(0));
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(MillTurnBox("OperationExist: Vdm not open")));
}

TEST_F(Operations, AreValidFromZeroBelowTheCount) {
  OpenOver(std::vector<Record>(18, {"2 1 0"}));
  EXPECT_TRUE(vdm.IsOpValid(0));
  EXPECT_TRUE(vdm.IsOpValid(17));
  EXPECT_FALSE(vdm.IsOpValid(18));
  EXPECT_FALSE(vdm.IsOpValid(-1));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Operation 18 (0 based) out of range (18 oprations)"),
                          MillTurnBox("Operation -1 (0 based) out of range (18 oprations)")));
}

TEST_F(Operations, OfAClosedVdmAreNotValid) {
  EXPECT_FALSE(vdm.IsOpValid(0));
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(MillTurnBox("IsOpValid: Vdm not open")));
}

TEST_F(Operations, AreSelectedWithTheirHeader) {
  OpenOver({{"1 1 0"}, {"2 0 4 1 3 2 4"}});
  EXPECT_TRUE(vdm.OperationSelect(1));
  EXPECT_EQ(vdm.currentOperation, 1);
  EXPECT_EQ(vdm.operationKind, 2);
  EXPECT_FALSE(vdm.operationFlag);
  EXPECT_THAT(vdm.sectionItems, ElementsAre(1, 3, 2, 4));
  EXPECT_EQ(Position(), std::make_pair(1, 1)) << "a header was read, so the position is item 1";
}

TEST_F(Operations, AreNotCurrentWhenTheirNumberIsNotValid) {
  OpenOver({{"2 1 1 5"}});
  EXPECT_TRUE(vdm.OperationSelect(0));
  EXPECT_FALSE(vdm.OperationSelect(1));
  EXPECT_EQ(vdm.currentOperation, -1);
  EXPECT_EQ(vdm.operationKind, 0);
  EXPECT_FALSE(vdm.operationFlag);
  EXPECT_THAT(vdm.sectionItems, IsEmpty());
}

TEST_F(Operations, AreCreatedBeforeTheRecordOfTheirNumberAndSelected) {
  OpenOver({{"1 1 0"}, {"3 1 0"}});
  EXPECT_TRUE(vdm.OperationCreate(1, 2));
  EXPECT_THAT(host.calls, ElementsAre("OrvoMacroVdmSeek(41, 1, 0)", "OrvoMacroVdmInsert$(41, '2 1 0', 1)",
                                      "OrvoMacroVdmSize(41)", "OrvoMacroVdmSeek(41, 1, 0)",
                                      "OrvoMacroVdmSingleGet$(41, 1)"));
  EXPECT_EQ(Records(), 3U);
  EXPECT_THAT(Items(1), ElementsAre("2 1 0"));
  EXPECT_THAT(Items(2), ElementsAre("3 1 0"));
  EXPECT_EQ(vdm.currentOperation, 1);
  EXPECT_EQ(vdm.operationKind, 2);
  EXPECT_TRUE(vdm.operationFlag);
  EXPECT_TRUE(vdm.OperationCreate(3, 4)) << "one past the last is the end";
  EXPECT_THAT(Items(3), ElementsAre("4 1 0"));
}

TEST_F(Operations, CreatedOnAClosedVdmReachTheHostWithTheHandleZero) {
  EXPECT_FALSE(vdm.OperationCreate(0, 2));
  EXPECT_THAT(host.TakeCalls("OrvoMacroVdm"), ElementsAre("OrvoMacroVdmInsert$(0, '2 1 0', 1)"));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(BaseBox("SeekFromStart: Vdm not open"), MillTurnBox("IsOpValid: Vdm not open")));
}

TEST_F(Operations, BehindADeletedOneMoveDown) {
  OpenOver({{"0"}, {"1"}, {"2"}, {"3"}, {"4"}});
  EXPECT_TRUE(vdm.OperationDelete(3));
  EXPECT_EQ(Records(), 4U);
  EXPECT_THAT(Items(3), ElementsAre("4"));
}

TEST_F(Operations, ThatAreNotThereCountAsDeleted) {
  OpenOver({{"0"}});
  EXPECT_TRUE(vdm.OperationDelete(1));
  EXPECT_THAT(host.TakeCalls(), ElementsAre("OrvoMacroVdmSize(41)"));
  vdm.Close();
  EXPECT_TRUE(vdm.OperationDelete(0)) << "a closed VDM has none";
  EXPECT_THAT(host.boxes, IsEmpty());
}

class Header : public Operations {
 protected:
  /// Reads a record with this header and no other item.
  bool ReadOver(const std::string& header) {
    if (!vdm.IsOpen()) OpenOver({{}});
    host.vdms[kVdm].records = {{header}};
    return vdm.OperationSelect(0);
  }
};

TEST_F(Header, OfAKindAloneHasNoSections) {
  EXPECT_TRUE(ReadOver("2"));
  EXPECT_EQ(vdm.operationKind, 2);
  EXPECT_FALSE(vdm.operationFlag);
  EXPECT_THAT(vdm.sectionItems, IsEmpty());
  EXPECT_TRUE(ReadOver("2 x 1 1")) << "without a flag no count is compared";
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Header, WithoutAKindCannotBeRead) {
  EXPECT_FALSE(ReadOver("x"));
  EXPECT_FALSE(ReadOver(""));
  EXPECT_EQ(vdm.currentOperation, 0) << "the operation stays selected";
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Header, WithoutACountHasNoSections) {
  EXPECT_TRUE(ReadOver("2 1"));
  EXPECT_TRUE(ReadOver("2 1 x 5"));
  EXPECT_THAT(vdm.sectionItems, IsEmpty());
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Header, WithAnotherCountThanItsListIsReportedAndTheListHolds) {
  EXPECT_TRUE(ReadOver("2 1 3 1 1"));
  EXPECT_THAT(vdm.sectionItems, ElementsAre(1, 1));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("ReadHeader:: Operation (0) actual number of sections (2) differs from "
                                      "that specified in header (3)")));
}

TEST_F(Header, EndsItsListAtAFieldThatIsNoNumber) {
  EXPECT_TRUE(ReadOver("2 1 2 1 7 x 9"));
  EXPECT_THAT(vdm.sectionItems, ElementsAre(1, 7));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Header, HasAnyFlagButZeroForTrueAndWritesItAsOne) {
  EXPECT_TRUE(ReadOver("2 5 1 0"));
  EXPECT_TRUE(vdm.operationFlag);
  EXPECT_TRUE(vdm.WriteHeader());
  EXPECT_THAT(Items(0), ElementsAre("2 1 1 0"));
  EXPECT_TRUE(ReadOver("2 0 1 0"));
  EXPECT_EQ(Operations::Header(), "2 0 1 0");
}

TEST_F(Header, IsWrittenToItemZeroOfTheCurrentOperation) {
  OpenOver({{"1 1 0"}, {"2 1 2 1 2", "a", "b", "c"}});
  vdm.OperationSelect(1);
  vdm.sectionItems = {1, 2, 0};
  EXPECT_TRUE(vdm.WriteHeader());
  EXPECT_THAT(Items(1), ElementsAre("2 1 3 1 2 0", "a", "b", "c"));
  EXPECT_THAT(Items(0), ElementsAre("1 1 0"));
}

TEST_F(Header, OfAClosedVdmIsReportedOnceByReadAndByWrite) {
  EXPECT_FALSE(vdm.ReadHeader());
  EXPECT_FALSE(vdm.WriteHeader());
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(BaseBox("SeekFromStart: Vdm not open"), BaseBox("SeekFromStart: Vdm not open")));
}

TEST_F(Header, AppendsToTheSectionsThatAreThere) {
  ReadOver("2 1 1 4");
  EXPECT_TRUE(vdm.ReadHeader());
  EXPECT_THAT(vdm.sectionItems, ElementsAre(4, 4));
}

class Version : public StoreTest {
 protected:
  /// Writes the version over an operation with this header and these items.
  Record WriteOver(Record record) {
    OpenOver({std::move(record)});
    vdm.OperationSelect(0);
    written = vdm.WriteVersion();
    vdm.Close();
    return Items(0);
  }
  bool written = false;
};

TEST_F(Version, ReplacesTheFirstFieldAndKeepsTheRest) {
  EXPECT_THAT(WriteOver({"1 1 1 2", "Billet definition", "99 x"}),
              ElementsAre("1 1 1 2", "Billet definition", "100 x"));
  EXPECT_TRUE(written);
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Version, StandsAloneInAnEmptyItem) {
  EXPECT_THAT(WriteOver({"1 1 1 2", "label", ""}), ElementsAre("1 1 1 2", "label", "100"));
}

TEST_F(Version, StandsBehindLeadingBlanks) {
  EXPECT_THAT(WriteOver({"1 1 1 2", "label", "  7 rest"}), ElementsAre("1 1 1 2", "label", "  100 rest"));
}

TEST_F(Version, KeepsATextInQuotesBehindItself) {
  EXPECT_THAT(WriteOver({"1 1 1 2", "label", "'old'"}), ElementsAre("1 1 1 2", "label", "100'old'"));
}

TEST_F(Version, MakesTheItemsThatAreMissingWithoutABox) {
  EXPECT_THAT(WriteOver({"1 1 1 1", "label"}), ElementsAre("1 1 1 2", "label", "100"));
  EXPECT_TRUE(written);
  EXPECT_THAT(WriteOver({"1 1 0"}), ElementsAre("1 1 1 2", "", "100"));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Version, KeepsTheItemsOfLaterSectionsBehindIt) {
  EXPECT_THAT(WriteOver({"1 1 2 1 1", "label", "next"}), ElementsAre("1 1 2 2 1", "label", "100", "next"));
}

TEST_F(Version, EndsOnAClosedVdm) {
  EXPECT_FALSE(vdm.WriteVersion());
  EXPECT_THAT(host.boxes, testing::Not(IsEmpty()));
}

}  // namespace
}  // namespace vanzet::test
