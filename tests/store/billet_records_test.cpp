#include "store/billet_records.h"

#include "store/record_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

BilletRecord Cylinder() {
  BilletRecord record;
  record.type = 1;
  record.outerDiameter = 80;
  record.partLength = 100;
  return record;
}

BilletRecord FromFigures(const std::string& outside, const std::string& inside) {
  BilletRecord record;
  record.type = 2;
  record.partLength = 55.5;
  record.figureOutside = outside;
  record.figureInside = inside;
  return record;
}

/// A record with a value in each field that a read may leave.
BilletRecord Full() {
  BilletRecord record;
  record.type = 9;
  record.partLength = record.outerDiameter = record.innerDiameter = record.barLength = 1;
  record.frontAllowance = record.rearAllowance = record.clampDiameter = record.angle = 1;
  record.drawOnScreen = 0;
  record.figureOutside = "f1";
  record.figureInside = "f2";
  record.solidName = "solid";
  return record;
}

void ExpectCleared(const BilletRecord& record, std::int32_t type = 0) {
  EXPECT_EQ(record.type, type);
  for (const double value :
       {record.partLength, record.outerDiameter, record.innerDiameter, record.barLength,
        record.frontAllowance, record.rearAllowance, record.clampDiameter, record.angle}) {
    EXPECT_EQ(value, 0);
  }
  EXPECT_EQ(record.drawOnScreen, 1);
  EXPECT_EQ(record.figureOutside, "f1") << "the first figure stays";
  EXPECT_EQ(record.figureInside, "");
  EXPECT_EQ(record.solidName, "");
}

class BilletRecords : public RecordTest {
 protected:
  /// The items of section 3 of the operation, found from its end.
  Record Billet(std::size_t operation) {
    Record& items = Items(operation);
    return {items.begin() + 7, items.end()};
  }

  void PutBillet(std::vector<std::string> items) {
    const std::string header = "2 1 4 1 3 2 " + std::to_string(items.size());
    Items(1) = {header, "Main Spindle", "0", "0", "0", "0", "0"};
    Items(1).insert(Items(1).end(), items.begin(), items.end());
  }

  BilletRecord Read(std::int32_t spindle = 0) {
    BilletRecord record;
    EXPECT_EQ(ReadBillet(0, spindle, record), 0);
    return record;
  }
};

TEST(BilletRecord, BeginsAsNoneShownOnScreen) {
  const BilletRecord record;
  EXPECT_EQ(record.type, 0);
  EXPECT_EQ(record.drawOnScreen, 1);
  EXPECT_EQ(record.angle, 0);
}

TEST(BilletRecord, IsClearedButForItsFirstFigure) {
  BilletRecord record = Full();
  ClearBilletRecord(record);
  ExpectCleared(record);
}

TEST_F(BilletRecords, OfANewDefinitionAreNone) {
  BilletRecord record = Full();
  EXPECT_EQ(ReadBillet(0, 0, record), 0);
  ExpectCleared(record);
  EXPECT_EQ(ReadBillet(0, 1, record), 0);
  ExpectCleared(record);
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(BilletRecords, OfACylinderHoldTheValuesInThisOrder) {
  EXPECT_EQ(WriteBillet(0, 0, Cylinder()), 0);
  EXPECT_THAT(Items(1), ElementsAre("2 1 4 1 3 2 2", "Main Spindle", "0", "0", "0", "0", "0", "MainBillet",
                                    "1 80.000000 100.000000 0.000000 0.000000 0.000000 0 0.000000"));
  BilletRecord all = Cylinder();
  all.frontAllowance = 1.5;
  all.rearAllowance = -2.5;
  all.innerDiameter = 20;
  all.barLength = 300;
  all.drawOnScreen = 0;
  EXPECT_EQ(WriteBillet(0, 0, all), 0);
  EXPECT_THAT(Billet(1),
              ElementsAre("MainBillet", "1 80.000000 100.000000 1.500000 -2.500000 20.000000 1 300.000000"));
}

TEST_F(BilletRecords, OfTheSubSpindleHaveNoBar) {
  BilletRecord record = Cylinder();
  record.barLength = 300;
  EXPECT_EQ(WriteBillet(0, 1, record), 0);
  EXPECT_THAT(Billet(2), ElementsAre("SubBillet", "1 80.000000 100.000000 0.000000 0.000000 0.000000 0"));
  EXPECT_EQ(Read(1).barLength, 0);
  EXPECT_EQ(Billet(1)[1], "0");
  EXPECT_EQ(WriteBillet(0, -5, record), 0);
  EXPECT_EQ(Billet(2)[0], "SubBillet");
}

TEST_F(BilletRecords, OfACylinderReadBackWhatWasWritten) {
  BilletRecord written = Cylinder();
  written.frontAllowance = 1.5;
  written.rearAllowance = 2.5;
  written.innerDiameter = 20.25;
  written.barLength = 300;
  written.drawOnScreen = 0;
  WriteBillet(0, 0, written);
  const BilletRecord read = Read();
  EXPECT_EQ(read.type, 1);
  EXPECT_EQ(read.outerDiameter, 80);
  EXPECT_EQ(read.partLength, 100);
  EXPECT_EQ(read.frontAllowance, 1.5);
  EXPECT_EQ(read.rearAllowance, 2.5);
  EXPECT_EQ(read.innerDiameter, 20.25);
  EXPECT_EQ(read.barLength, 300);
  EXPECT_EQ(read.drawOnScreen, 0);
  EXPECT_EQ(read.clampDiameter, 80) << "that of the billet";
  EXPECT_EQ(read.angle, 0);
}

TEST_F(BilletRecords, OfACylinderAreShownUnlessTheItemSaysOtherwise) {
  for (const auto& [text, isShown] : {std::pair("1 80 100 0 0 0", true),
                                      {"1 80 100 0 0 0 0", true},
                                      {"1 80 100 0 0 0 1 5", false},
                                      {"1 80 100 0 0 0 -7 5", false},
                                      {"1 80 100 0 0 0 x", true}}) {
    PutBillet({"MainBillet", text});
    EXPECT_EQ(Read().drawOnScreen, isShown ? 1 : 0) << text;
  }
}

TEST_F(BilletRecords, OfFiguresHoldTheFiguresBehindTheValues) {
  EXPECT_EQ(WriteBillet(0, 0, FromFigures("outside", "inside")), 0);
  EXPECT_THAT(Billet(1), ElementsAre("MainBillet", "2 0 55.500000", "outside", "inside"));
  const BilletRecord read = Read();
  EXPECT_EQ(read.type, 2);
  EXPECT_EQ(read.partLength, 55.5);
  EXPECT_EQ(read.outerDiameter, 0);
  EXPECT_EQ(read.figureOutside, "outside");
  EXPECT_EQ(read.figureInside, "inside");
}

TEST_F(BilletRecords, OfFiguresTakeAZeroForNone) {
  EXPECT_EQ(WriteBillet(0, 1, FromFigures("outside", "")), 0);
  EXPECT_THAT(Billet(2), ElementsAre("SubBillet", "2 0 55.500000", "outside", ""));
  EXPECT_EQ(Read(1).figureInside, "");
  PutBillet({"MainBillet", "2 7.5 55", "0", "0"});
  BilletRecord record = Full();
  EXPECT_EQ(ReadBillet(0, 0, record), 0);
  EXPECT_EQ(record.figureOutside, "");
  EXPECT_EQ(record.figureInside, "");
  EXPECT_EQ(record.clampDiameter, 7.5) << "what stands in the place of the outer diameter";
}

TEST_F(BilletRecords, OfFiguresHaveThemBuiltOnceTheDefinitionIsClosed) {
  std::vector<std::string> macros;
  host.onMacro = [&](const std::string& macro, const std::string& arguments) {
    macros.push_back(macro + " " + arguments);
    EXPECT_EQ(host.vdms[kVdm].handle, 0U);
  };
  WriteBillet(0, 0, FromFigures("a", "b"));
  WriteBillet(0, 1, FromFigures("a", "b"));
  EXPECT_THAT(macros, ElementsAre("crebilfromfig 1", "crebilfromfig 2"));
  WriteBillet(0, 0, Cylinder());
  EXPECT_EQ(WriteBillet(1, 0, FromFigures("a", "b")), -1) << "there is no definition of spur 1";
  EXPECT_EQ(macros.size(), 2U);
}

TEST_F(BilletRecords, OfASolidHoldItsNameInsteadOfTheLabel) {
  BilletRecord written;
  written.type = 3;
  written.solidName = "Body 1";
  written.partLength = 60;
  written.outerDiameter = 5;
  written.clampDiameter = 40;
  written.angle = 12.5;
  EXPECT_EQ(WriteBillet(0, 0, written), 0);
  EXPECT_THAT(Billet(1), ElementsAre("Body 1", "3 0 60.000000 40.000000 12.500000"));
  const BilletRecord read = Read();
  EXPECT_EQ(read.solidName, "Body 1");
  EXPECT_EQ(read.partLength, 60);
  EXPECT_EQ(read.outerDiameter, 0);
  EXPECT_EQ(read.clampDiameter, 40);
  EXPECT_EQ(read.angle, 12.5);
}

TEST_F(BilletRecords, OfAnotherTypeHoldTheTypeAlone) {
  BilletRecord written = Full();
  written.type = 0;
  EXPECT_EQ(WriteBillet(0, 0, written), 0);
  EXPECT_THAT(Billet(1), ElementsAre("MainBillet", "0"));
  PutBillet({"x", "17 1 2 3"});
  BilletRecord record = Full();
  EXPECT_EQ(ReadBillet(0, 0, record), 0);
  ExpectCleared(record, 17);
}

TEST_F(BilletRecords, LeaveNoStaleItemsBehind) {
  WriteBillet(0, 0, FromFigures("a", "b"));
  WriteBillet(0, 0, Cylinder());
  EXPECT_EQ(Billet(1).size(), 2U);
  EXPECT_EQ(Items(1)[0], "2 1 4 1 3 2 2");
}

TEST_F(BilletRecords, KeepAnOldFirstFigureWhereTheReadHasNone) {
  BilletRecord record = Full();
  PutBillet({"x", "1 80 100"});
  EXPECT_EQ(ReadBillet(0, 0, record), 0);
  EXPECT_EQ(record.figureOutside, "f1");
  EXPECT_EQ(record.figureInside, "");
}

TEST_F(BilletRecords, OfADamagedTextReadAsNone) {
  PutBillet({"x", "billet", "a", "b"});
  BilletRecord record = Full();
  EXPECT_EQ(ReadBillet(0, 0, record), 0);
  ExpectCleared(record);
}

TEST_F(BilletRecords, OfAShortTextReadZerosForTheRest) {
  PutBillet({"x", "1 80 abc 5"});
  const BilletRecord read = Read();
  EXPECT_EQ(read.outerDiameter, 80);
  EXPECT_EQ(read.partLength, 0);
  EXPECT_EQ(read.frontAllowance, 0);
}

TEST_F(BilletRecords, OfAShortSectionFailSilently) {
  for (const Record& items : {Record{"2 1 4 1 0 0 1", "Main Spindle", "MainBillet"},
                              Record{"2 1 3 1 0 0", "Main Spindle"}, Record{"x"}}) {
    Items(1) = items;
    BilletRecord record = Full();
    EXPECT_EQ(ReadBillet(0, 0, record), -1);
    ExpectCleared(record);
  }
  EXPECT_THAT(host.boxes, IsEmpty());
  EXPECT_EQ(host.vdms[kVdm].handle, 0U);
}

TEST_F(BilletRecords, OfFiguresWithoutItemsForThemReadThemEmpty) {
  PutBillet({"x", "2 0 5"});
  EXPECT_EQ(Read().figureOutside, "");
}

TEST_F(BilletRecords, HaveNoBarOnTheSubSpindleWhateverTheItemHolds) {
  Items(2).at(8) = "1 80 100 0 0 0 0 300";
  const BilletRecord record = Read(1);
  EXPECT_EQ(record.outerDiameter, 80);
  EXPECT_EQ(record.barLength, 0);
}

TEST_F(BilletRecords, OfNoDefinitionAreCleared) {
  host.vdms.clear();
  BilletRecord record = Full();
  EXPECT_EQ(ReadBillet(0, 0, record), -1);
  ExpectCleared(record);
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(BilletRecords, MakeTheSectionWhereItIsMissing) {
  Items(1) = {"2 1 2 1 1", "Main Spindle", "0"};
  EXPECT_EQ(WriteBillet(0, 0, Cylinder()), 0);
  EXPECT_THAT(Items(1), ElementsAre("2 1 4 1 1 0 2", "Main Spindle", "0", "MainBillet",
                                    "1 80.000000 100.000000 0.000000 0.000000 0.000000 0 0.000000"));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Operation 1 section 3 (0 based) out of range (2 sections)")));
}

}  // namespace
}  // namespace vanzet::test
