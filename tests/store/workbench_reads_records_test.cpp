#include "project/definition.h"
#include "store/billet_records.h"
#include "store/clamp_records.h"
#include "store/datum_records.h"
#include "store/device_import.h"
#include "store/finish_part_records.h"
#include "store/record_fixture.h"
#include "support/vdm_values.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The reader behind `vanzet show`, over what the operations write.
class WorkbenchReads : public RecordTest {
 protected:
  project::Definition Shown() { return Get(project::ReadDefinition(VdmOf(host.vdms[kVdm].records))); }
};

TEST_F(WorkbenchReads, EveryRecordThatTheStoreWrites) {
  WriteClampDevice(0, 0, "Chuck", {.type = 1, .A = 80});
  WriteClampOptions(0, 0, true, 4);
  WriteJaw(0, 1, "Jaw", {.type = 9, .A = 30});
  WriteCenter(0, true, "Center", {.type = 13, .A = 120});
  BilletRecord billet;
  billet.type = billet_type::kFromFigures;
  billet.figureOutside = "outside";
  WriteBillet(0, 0, billet);
  WriteFinishPart(0, 1, {finish_part_type::kFromFigures, "a", "b", ""});
  WriteDatum(0, {1, 2, 3, 4});
  WriteBezel(0, {1});
  const project::Definition shown = Shown();
  EXPECT_FALSE(shown.IsDamaged());
  EXPECT_EQ(shown.version, 100);
  ASSERT_EQ(shown.operations.size(), 18U);
  EXPECT_EQ(shown.operations[1].sections[1][2], "1 4");
  EXPECT_THAT(shown.operations[1].sections[3], ElementsAre("MainBillet", "2 0 0.000000", "outside", ""));
  EXPECT_EQ(shown.operations[2].sections[2][0], "Jaw");
  EXPECT_EQ(shown.operations[10].sections[1][0], "Center");
  EXPECT_THAT(shown.operations[17].sections[1], ElementsAre("1", "a", "b"));
  EXPECT_EQ(shown.operations[4].sections[1][0], "1");
}

TEST_F(WorkbenchReads, AnImportedDeviceUnderTheLabelThatCameWithIt) {
  host.vdms[1900].records = {{"1 1 0"}, {"2 1 4 1 1 1 1", "Own", "Shape {}", "3 0 0 0", "1 2 3 0 0 0 0"}};
  ImportDevice(0, 0, true, 1900);
  const project::Definition shown = Shown();
  EXPECT_FALSE(shown.IsDamaged());
  EXPECT_EQ(shown.operations[5].Label(), "Own");
  EXPECT_EQ(shown.operations[5].sections[2].size(), 6U);
  EXPECT_THAT(shown.operations[5].sections[3], ElementsAre("0 0 0"));
}

TEST_F(WorkbenchReads, RecordsMadeAnewInADamagedDefinition) {
  host.vdms[kVdm].records[1] = {"2 1 1 1", "Main Spindle"};
  host.vdms[kVdm].records[2] = {""};
  WriteJaw(0, 0, "Jaw", {});
  WriteBillet(0, 0, {});
  const project::Definition shown = Shown();
  EXPECT_THAT(shown.operations[1].damage, IsEmpty());
  EXPECT_EQ(shown.operations[1].sections.size(), 4U);
}

}  // namespace
}  // namespace vanzet::test
