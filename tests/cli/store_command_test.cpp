#include <sqlite3.h>

#include "run_vanzet.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class StoreCommand : public CommandLineTest {
 protected:
  void Damage() {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open((folder / "lathe/store.db").c_str(), &database), SQLITE_OK);
    EXPECT_EQ(
        sqlite3_exec(
            database,
            "UPDATE record SET content=CAST(replace(CAST(content AS TEXT), 'Center', 'Cantor') AS BLOB) "
            "WHERE instr(content, CAST('Center' AS BLOB)) > 0",
            nullptr, nullptr, nullptr),
        SQLITE_OK);
    EXPECT_GT(sqlite3_changes(database), 0);
    sqlite3_close(database);
  }
};

TEST_F(StoreCommand, ChecksASoundProject) {
  MakeUpgradedProject();
  const Outcome checked = Vanzet("store check lathe");
  EXPECT_EQ(checked.status, 0);
  EXPECT_EQ(checked.out, "nothing was found\n");
  EXPECT_EQ(Vanzet("store check lathe --json").out, "{\n  \"findings\": []\n}\n");
}

TEST_F(StoreCommand, FindsBytesThatWereChangedAndRepairsTheRest) {
  MakeUpgradedProject();
  Damage();
  EXPECT_THAT(Vanzet("show lathe").err, HasSubstr("store.db: is damaged: record "));
  const Outcome checked = Vanzet("store check lathe");
  EXPECT_EQ(checked.status, 3);
  EXPECT_THAT(checked.out, HasSubstr("store.db: is damaged: record "));
  EXPECT_THAT(checked.out, HasSubstr("its checksum is another one"));
  EXPECT_THAT(checked.err, IsEmpty());
  const Outcome repaired = Vanzet("store repair lathe");
  EXPECT_EQ(repaired.status, 0) << repaired.err;
  EXPECT_THAT(repaired.out, HasSubstr("missing: "));
  EXPECT_THAT(repaired.out, HasSubstr("kept 2 VDMs with "));
  EXPECT_TRUE(std::filesystem::exists(folder / "lathe/store.db.damaged"));
  EXPECT_EQ(Vanzet("store check lathe").status, 0);
  EXPECT_EQ(Vanzet("upgrade lathe").status, 0);
  EXPECT_EQ(Vanzet("store repair lathe").out, "the store is sound; nothing was changed\n");
}

TEST_F(StoreCommand, FindsADamagedDrawingAnOddCatalogueAndLeftovers) {
  MakeUpgradedProject();
  WriteBytes(folder / "lathe/drawing.txt", "drawing 1\nrubbish\n");
  WriteBytes(folder / "lathe/clampdevice.cld", "Chuck 1\nrubbish\n");
  std::filesystem::create_directories(folder / "lathe/tmp/4711");
  const Outcome checked = Vanzet("store check lathe");
  EXPECT_EQ(checked.status, 3);
  EXPECT_THAT(checked.out, HasSubstr("drawing.txt: line 2: "));
  EXPECT_THAT(checked.out, HasSubstr("clampdevice.cld: line 2: the value line does not begin with the type"));
  EXPECT_THAT(checked.out, HasSubstr("tmp/4711: is left from a run that was killed\n"));
}

TEST_F(StoreCommand, SavesAWholeCopy) {
  MakeUpgradedProject();
  EXPECT_EQ(Vanzet("store backup lathe monday.db").out, "saved the store to monday.db\n");
  const std::string items = Vanzet("items lathe").out;
  std::filesystem::copy_file(folder / "monday.db", folder / "lathe/store.db",
                             std::filesystem::copy_options::overwrite_existing);
  EXPECT_EQ(Vanzet("items lathe").out, items);
  EXPECT_EQ(Vanzet("store check lathe").status, 0);
  EXPECT_EQ(Vanzet("store backup lathe lathe/store.db").status, 1);
  std::filesystem::create_directory(folder / "empty");
  EXPECT_THAT(Vanzet("store backup empty x.db").err, HasSubstr("the project has no store yet"));
}

}  // namespace
}  // namespace vanzet::test
