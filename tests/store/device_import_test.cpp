#include "store/device_import.h"

#include "store/record_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kSource = 1900;
const std::string kSourceBox = "OrvoApi::MillTurnVdm|1900: ";

class DeviceImport : public RecordTest {
 protected:
  /// Puts a prepared device of that class into the source VDM.
  void PutSource(const std::string& facts, const Record& outline = {}) {
    Record operation = {"2 1 4 2 3 1 " + std::to_string(outline.size()),
                        "Own jaw",
                        "of the shop",
                        "#VRML V2.0",
                        "",
                        "Shape {}",
                        facts};
    operation.insert(operation.end(), outline.begin(), outline.end());
    host.vdms[kSource].records = {{"1 1 0"}, operation};
  }

  std::int32_t Import(std::int32_t spindle = 0, bool sub = true) {
    const std::int32_t result = ImportDevice(0, spindle, sub, kSource);
    EXPECT_EQ(host.vdms[kSource].handle, 0U) << "the source is closed";
    EXPECT_EQ(host.vdms[kVdm].handle, 0U) << "the definition is closed";
    return result;
  }

  /// The numbers of the operations whose label is that of the source.
  std::vector<std::size_t> Taken() {
    std::vector<std::size_t> taken;
    for (std::size_t i = 0; i < host.vdms[kVdm].records.size(); ++i) {
      if (Items(i).size() > 1 && Items(i)[1] == "Own jaw") taken.push_back(i);
    }
    return taken;
  }
};

TEST_F(DeviceImport, OfAJawMakesLabelsVrmlOutlineAndPlacement) {
  PutSource("3 1 10.5 20.5", {"1 0 0 9 9 9 9", "1 30.5 0 9 9 9 9", "2 30.5 -10 9 9 9 4.25"});
  EXPECT_EQ(Import(), 0);
  EXPECT_THAT(
      Items(6),
      ElementsAre("2 1 4 2 3 8 1", "Own jaw", "of the shop", "#VRML V2.0", "", "Shape {}", "[Tool]\n",
                  "Name=000004\n", "[Mounting]\n", "Reference=G54 X0 Y0 Z0 I1 J0 K0 A90\n", "[Holder1]\n",
                  "Contour=G0 X0.000000 Y0.000000 \\\n", "        G1 X30.500000 Y0.000000 \\\n",
                  "        G2 X30.500000 Y-10.000000 R4.250000\n", "0 0 0"));
  EXPECT_THAT(host.boxes, IsEmpty());
  EXPECT_THAT(Taken(), ElementsAre(6));
}

TEST_F(DeviceImport, GoesWhereTheClassAndTheSpindleSay) {
  struct Case {
    std::string facts;
    std::int32_t spindle;
    bool sub;
    std::size_t operation;
  };
  for (const Case& row :
       {Case{"3 0 1 2", 0, true, 5}, Case{"3 0 1 2", 1, true, 7}, Case{"3 0 1 2", 9, false, 7},
        Case{"3 1 1 2", 0, false, 6}, Case{"3 1 1 2", 1, false, 8}, Case{"3 3 1 2", 0, true, 9},
        Case{"3 3 1 2", 1, true, 9}, Case{"3 3 1 2", 0, false, 7}, Case{"3", 0, true, 5},
        Case{"jaw", 0, true, 5}}) {
    host.vdms.erase(kVdm);
    BilletVdm(kVdm).ReOrg([](BilletVdm&, bool) {});
    PutSource(row.facts);
    EXPECT_EQ(Import(row.spindle, row.sub), 0);
    EXPECT_THAT(Taken(), ElementsAre(row.operation)) << row.facts << " on spindle " << row.spindle;
  }
}

TEST_F(DeviceImport, OfAnUnknownClassFailsSilently) {
  const auto before = host.vdms[kVdm].records;
  for (const char* facts : {"3 2 0 0", "3 4 0 0", "3 -1 0 0"}) {
    PutSource(facts);
    EXPECT_EQ(Import(), -1) << facts;
  }
  EXPECT_EQ(host.vdms[kVdm].records, before);
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(DeviceImport, WithoutAnOutlineLeavesAnEmptySectionForIt) {
  host.vdms[kSource].records = {{"1 1 0"}, {"2 1 3 1 1 1", "Own jaw", "Shape {}", "3 0 5 0"}};
  EXPECT_EQ(Import(), 0);
  EXPECT_THAT(Items(5), ElementsAre("2 1 4 1 1 0 1", "Own jaw", "Shape {}", "0 0 0"));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(DeviceImport, WithAnEmptyOutlineLeavesTheOldOne) {
  Items(6) = {"2 1 4 1 0 1 1", "label", "old D2T\n", "old placement"};
  PutSource("3 1 0 0");
  EXPECT_EQ(Import(), 0);
  EXPECT_THAT(Items(6), ElementsAre("2 1 4 2 3 1 1", "Own jaw", "of the shop", "#VRML V2.0", "", "Shape {}",
                                    "old D2T\n", "0 0 0"));
}

TEST_F(DeviceImport, ReplacesAnEarlierDevice) {
  PutSource("3 1 0 0", {"0 1 2 0 0 0 0", "1 3 4 0 0 0 0"});
  EXPECT_EQ(Import(), 0);
  const Record once = Items(6);
  EXPECT_EQ(Import(), 0);
  EXPECT_EQ(Items(6), once);
}

TEST_F(DeviceImport, ReadsMissingNumbersOfAnElementAsZero) {
  PutSource("3 1 0 0", {"3 7", "x", "5 1.5 2.5 0 0 0 -3"});
  EXPECT_EQ(Import(), 0);
  const Record& items = Items(6);
  EXPECT_THAT(
      Record(items.begin() + 11, items.end()),
      ElementsAre("Contour=G0 X7.000000 Y0.000000 R0.000000 \\\n", "        G0 X0.000000 Y0.000000 \\\n",
                  "        G5 X1.500000 Y2.500000 R-3.000000\n", "0 0 0"));
}

TEST_F(DeviceImport, FromAVdmThatIsMissingFails) {
  EXPECT_EQ(ImportDevice(0, 0, true, kSource), -1);
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("OrvoApi::MacroVdm|1900: Open: vdm doesn't exist|0"));
}

TEST_F(DeviceImport, IntoADefinitionThatIsMissingClosesTheSource) {
  PutSource("3 1 0 0");
  host.vdms.erase(kVdm);
  EXPECT_EQ(ImportDevice(0, 0, true, kSource), -1);
  EXPECT_EQ(host.vdms[kSource].handle, 0U);
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(BaseBox("Open: vdm doesn't exist")));
}

TEST_F(DeviceImport, OfTheDefinitionIntoItselfFails) {
  EXPECT_EQ(ImportDevice(0, 0, true, kVdm), -1);
  EXPECT_EQ(host.vdms[kVdm].handle, 0U);
  EXPECT_THAT(host.boxes, testing::Not(IsEmpty()));
}

TEST_F(DeviceImport, OfADamagedSourceReadsWhatStandsThere) {
  host.vdms[kSource].records = {{"1 1 0"}, {"2 1 1 1", "3 1 a label"}};
  EXPECT_EQ(Import(), 0);
  EXPECT_EQ(Items(6)[1], "3 1 a label") << "without facts the class is read from the label";
  const std::vector<std::string> boxes = host.TakeBoxes();
  EXPECT_EQ(boxes.front(), kSourceBox + "Operation 1 section 2 (0 based) out of range (1 sections)|0");
}

TEST_F(DeviceImport, OfASourceWithoutOperationsReports) {
  host.vdms[kSource].records = {};
  EXPECT_EQ(Import(), 0);
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(kSourceBox + "Operation 1 (0 based) out of range (0 oprations)|0"));
  EXPECT_THAT(Items(5), ElementsAre("2 1 4 0 0 0 1", "0 0 0"));
}

TEST_F(DeviceImport, EndsWhenTheSourceCountsItemsWithoutEnd) {
  host.vdms[kSource].records = {{"1 1 0"}, {"2 1 3 0 2000000000 0", "Shape {}"}};
  Import();
  EXPECT_LT(Items(5).size(), 100010U);
  EXPECT_EQ(Items(5)[1], "Shape {}");
}

}  // namespace
}  // namespace vanzet::test
