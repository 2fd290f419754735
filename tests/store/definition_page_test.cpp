#include "store/billet_records.h"
#include "store/clamp_records.h"
#include "store/datum_records.h"
#include "store/device_import.h"
#include "store/record_fixture.h"
#include "support/golden.h"
#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::test {
namespace {

/// docs/formats/definition.md, whose examples are what the operations write.
class DefinitionPage : public RecordTest {
 protected:
  void ExpectExample(const Record& items) {
    std::string text;
    for (const std::string& item : items) text += item + (item.ends_with('\n') ? "" : "\n");
    EXPECT_THAT(page, testing::HasSubstr("```\n" + text + "```\n"));
  }

  const std::string page = ReadBytes(VANZET_SOURCE_DIR "/docs/formats/definition.md");
};

TEST_F(DefinitionPage, ShowsAMainSpindleAsItIsWritten) {
  WriteClampDevice(0, 0, "Chuck 160", {.type = 1, .A = 80, .B = 90, .C = 21});
  WriteClampOptions(0, 0, false, 3);
  WriteJaw(0, 0, "D:\\shop\\jaw.vdm", {.type = 104, .B = 40});
  BilletRecord bar;
  bar.type = billet_type::kCylindric;
  bar.outerDiameter = 80;
  bar.partLength = 100;
  bar.frontAllowance = 2;
  bar.rearAllowance = 5;
  bar.barLength = 300;
  WriteBillet(0, 0, bar);
  ExpectExample(Items(1));
}

TEST_F(DefinitionPage, ShowsADatumAsItIsWritten) {
  WriteDatum(0, {.clampingOutMain = 12.5, .originMain = -3});
  ExpectExample({Items(3)[2]});
}

TEST_F(DefinitionPage, ShowsAnOutlineAsItIsImported) {
  host.vdms[1900].records = {{"1 1 0"},
                             {"2 1 4 1 0 1 2", "Jaw", "3 1 0 0", "1 0 0 0 0 0 0", "2 30 -10 0 0 0 4"}};
  ImportDevice(0, 0, true, 1900);
  ExpectExample({Items(6).begin() + 2, Items(6).end() - 1});
}

}  // namespace
}  // namespace vanzet::test
