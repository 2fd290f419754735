#include "project/known_settings.h"

#include <gmock/gmock.h>

#include "project/project.h"
#include "project/sample.h"
#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::project {
namespace {

using testing::HasSubstr;

const std::filesystem::path kShare = VANZET_SOURCE_DIR "/share";

std::string RefusalOf(const std::string& word) {
  const auto read = ReadSettingChange(word);
  return read ? "" : read.fault().text;
}

TEST(SettingChange, IsReadWhateverTheCaseOfItsKey) {
  const auto read = ReadSettingChange("tailstockavailable=0");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->file, "bench.ini");
  EXPECT_EQ(read->section, "environment");
  EXPECT_EQ(read->key, "TailStockAvailable");
  EXPECT_EQ(read->value, "0");
  EXPECT_EQ(ReadSettingChange("MACHINE_NAME=a = b")->value, "a = b");
}

TEST(SettingChange, IsRefusedWithNearKeysAndWithTheRangeOfItsValue) {
  EXPECT_EQ(RefusalOf("TailStock=1"), "unknown setting 'TailStock'; did you mean: TailStockAvailable");
  EXPECT_EQ(RefusalOf("nr_spindle_spur=1"),
            "unknown setting 'nr_spindle_spur'; did you mean: NR_SPINDEL_SPUR");
  EXPECT_THAT(RefusalOf("xyz=1"), HasSubstr("unknown setting 'xyz'; the settings are: MACHINE_NAME, "));
  EXPECT_EQ(RefusalOf("LunAvailable=yes"), "LunAvailable: expected a whole number from 0 to 1, found 'yes'");
  EXPECT_EQ(RefusalOf("NR_SPINDEL_SPUR=51"),
            "NR_SPINDEL_SPUR: expected a whole number from 1 to 50, found '51'");
  EXPECT_EQ(RefusalOf("unit=furlong"), "unit: expected 'mm' or 'inch', found 'furlong'");
  EXPECT_EQ(RefusalOf("unit=inch"), "");
  EXPECT_EQ(RefusalOf("engine=host=db password=secret"), "");
  EXPECT_EQ(
      RefusalOf("engine=secret"),
      "engine: expected 'store.db' or the connection text of a PostgreSQL server: 'postgresql://...' or "
      "'host=... dbname=...'");
  EXPECT_EQ(RefusalOf("LunAvailable"), "expected KEY=VALUE, found 'LunAvailable'");
}

TEST(ChangeSettings, WritesEachValueIntoItsFileAndLeavesTheRest) {
  const test::TemporaryFolder folder;
  ASSERT_TRUE(MakeProject(folder / "lathe", "mill-turn", kShare));
  const std::string before = test::ReadBytes(folder / "lathe/bench.ini");
  ASSERT_TRUE(ChangeSettings(
      folder / "lathe", {*ReadSettingChange("SubSpindleAvailable=0"), *ReadSettingChange("NR_SPINDEL_SPUR=3"),
                         *ReadSettingChange("chord=0.1")}));
  const auto project = Project::Open(folder / "lathe", kShare);
  ASSERT_TRUE(project) << project.fault().Message();
  EXPECT_EQ(project->Environment("SubSpindleAvailable"), "0");
  EXPECT_EQ(*project->SpindleSpurs(), 3);
  EXPECT_EQ(project->settings().mesh.chord, 0.1);
  std::string expected = before;
  const std::string old = "SubSpindleAvailable = 1";
  expected.replace(expected.find(old), old.size(), "SubSpindleAvailable = 0");
  EXPECT_EQ(test::ReadBytes(folder / "lathe/bench.ini"), expected + "\n[mesh]\nchord = 0.1\n");
}

TEST(ChangeSettings, RefusesAValueThatALineCannotHold) {
  const test::TemporaryFolder folder;
  ASSERT_TRUE(MakeProject(folder / "lathe", "mill-turn", kShare));
  EXPECT_FALSE(ChangeSettings(folder / "lathe", {*ReadSettingChange("MACHINE_NAME=a\nb")}));
}

TEST(KnownSettings, AreAllInTheirPages) {
  const std::string pages = test::ReadBytes(VANZET_SOURCE_DIR "/docs/formats/bench-ini.md") +
                            test::ReadBytes(VANZET_SOURCE_DIR "/docs/formats/machine-ini.md");
  for (const std::string& key : KnownSettingKeys()) EXPECT_THAT(pages, HasSubstr(key));
}

}  // namespace
}  // namespace vanzet::project
