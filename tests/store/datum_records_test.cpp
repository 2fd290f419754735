#include "store/datum_records.h"

#include "store/record_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DatumRecords : public RecordTest {
 protected:
  std::vector<double> ReadDatumOf(const std::string& text) {
    Items(3)[2] = text;
    return Read();
  }

  std::vector<double> Read(std::int32_t expected = 0) {
    DatumRecord record = {9, 9, 9, 9};
    EXPECT_EQ(ReadDatum(0, record), expected);
    return {record.clampingOutMain, record.clampingOutSub, record.originMain, record.originSub};
  }

  std::int32_t ReadBezelOf(const std::string& text) {
    Items(4)[2] = text;
    BezelRecord record = {9};
    EXPECT_EQ(ReadBezel(0, record), 0);
    return record.isUsed;
  }
};

TEST_F(DatumRecords, OfANewDefinitionAreZero) {
  EXPECT_THAT(Read(), ElementsAre(0, 0, 0, 0));
  BezelRecord bezel = {9};
  EXPECT_EQ(ReadBezel(0, bezel), 0);
  EXPECT_EQ(bezel.isUsed, 0);
}

TEST_F(DatumRecords, HoldTheValuesBehindTwoFieldsThatNobodyUses) {
  EXPECT_EQ(WriteDatum(0, {1, 2, 3, 4}), 0);
  EXPECT_THAT(Items(3),
              ElementsAre("2 1 4 1 1 0 0", "Datum NPV", "1 0.000000 1.000000 2.000000 3.000000 4.000000"));
  EXPECT_THAT(Read(), ElementsAre(1, 2, 3, 4));
  EXPECT_EQ(WriteDatum(0, {}), 0);
  EXPECT_EQ(Items(3)[2], "0 0.000000 0.000000 0.000000 0.000000 0.000000");
  EXPECT_EQ(WriteDatum(0, {.originSub = -0.5}), 0);
  EXPECT_EQ(Items(3)[2], "1 0.000000 0.000000 0.000000 0.000000 -0.500000");
  EXPECT_THAT(Read(), ElementsAre(0, 0, 0, -0.5));
}

TEST_F(DatumRecords, OfAShortItemGiveBothSpindlesTheSame) {
  EXPECT_THAT(ReadDatumOf("1 0 5.5"), ElementsAre(5.5, 5.5, 0, 0));
  EXPECT_THAT(ReadDatumOf("1 0 5 6 7"), ElementsAre(5, 6, 7, 7));
  EXPECT_THAT(ReadDatumOf("1 0 5 6"), ElementsAre(5, 6, 0, 0));
  EXPECT_THAT(ReadDatumOf("1 0"), ElementsAre(0, 0, 0, 0));
}

TEST_F(DatumRecords, OfADamagedItemAreZero) {
  EXPECT_THAT(ReadDatumOf(""), ElementsAre(0, 0, 0, 0));
  EXPECT_THAT(ReadDatumOf("datum 1 2 3"), ElementsAre(0, 0, 0, 0));
  Items(3) = {"2 1 2 1 0", "Datum NPV"};
  EXPECT_THAT(Read(), ElementsAre(0, 0, 0, 0));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Operation 3 section 1 item 0 (0 based) out of range (0 items)")));
}

TEST_F(DatumRecords, ReplaceWhatTheSectionHeld) {
  Items(3) = {"2 1 3 1 2 1", "Datum NPV", "1", "stale", "behind"};
  EXPECT_EQ(WriteDatum(0, {}), 0);
  EXPECT_THAT(Items(3), ElementsAre("2 1 3 1 1 1", "Datum NPV",
                                    "0 0.000000 0.000000 0.000000 0.000000 0.000000", "behind"));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(DatumRecords, MakeTheSectionWhereItIsMissing) {
  Items(4) = {"2 1 1 1", "Luenette"};
  EXPECT_EQ(WriteBezel(0, {1}), 0);
  EXPECT_THAT(Items(4), ElementsAre("2 1 2 1 1", "Luenette", "1"));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Operation 4 section 1 (0 based) out of range (1 sections)")));
}

TEST_F(DatumRecords, OfTheSteadyRestAreOneNumber) {
  for (const std::int32_t value : {0, 1, -5, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(WriteBezel(0, {value}), 0);
    EXPECT_THAT(Items(4), ElementsAre("2 1 4 1 1 0 0", "Luenette", std::to_string(value)));
    EXPECT_EQ(ReadBezelOf(std::to_string(value)), value);
  }
  EXPECT_EQ(ReadBezelOf(""), 0);
  EXPECT_EQ(ReadBezelOf("used"), 0);
  EXPECT_EQ(ReadBezelOf("  7 8"), 7);
}

TEST_F(DatumRecords, WithoutADefinitionAreCleared) {
  host.vdms.clear();
  EXPECT_THAT(Read(-1), ElementsAre(0, 0, 0, 0));
  BezelRecord bezel = {9};
  EXPECT_EQ(ReadBezel(0, bezel), -1);
  EXPECT_EQ(bezel.isUsed, 0);
  EXPECT_THAT(host.boxes, IsEmpty());
}

}  // namespace
}  // namespace vanzet::test
