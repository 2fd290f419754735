#include "vdm/embedded/store_care.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include "support/engine_calls.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"
#include "vdm/embedded/engine.h"

namespace vanzet::vdm {
namespace {

using test::Get;
using test::Records;
using test::RecordsOf;
using test::Told;
using test::VdmOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class StoreCare : public testing::Test {
 protected:
  void Write(std::uint32_t number, const Records& records) {
    SqliteEngine engine(file);
    ASSERT_EQ(Told(test::WriteTo(engine, number, VdmOf(records))), "");
  }
  Records Read(const std::filesystem::path& store, std::uint32_t number) {
    SqliteEngine engine(store);
    return RecordsOf(Get(engine.Read({Number{number}})).at(Number{number}));
  }
  void Sql(const std::string& text) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, text.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
  }

  test::TemporaryFolder folder;
  const std::filesystem::path file = folder / "store.db";
  const test::TemporaryFolder scratchFolder;
  const std::filesystem::path& scratch = scratchFolder.path();
};

TEST_F(StoreCare, FindsNothingInASoundStoreOrInNone) {
  EXPECT_THAT(Get(CheckStore(file)), IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(file));
  Write(1, {{"a"}, {"b", "c"}});
  Write(2, {});
  EXPECT_THAT(Get(CheckStore(file)), IsEmpty());
  EXPECT_EQ(Get(RepairStore(file, scratch)).aside, "");
}

TEST_F(StoreCare, FindsEachKindOfDamage) {
  struct Damage {
    const char* sql;
    const char* finding;
  };
  const Damage damages[] = {
      {"UPDATE record SET content=x'7a00' WHERE key=2", "record 2, of VDM 1: its checksum is another one"},
      {"UPDATE record SET items=5 WHERE key=2", "record 2, of VDM 1: it holds 1 items and not 5"},
      {"DELETE FROM record WHERE key=2", "record 2, of VDM 1: it is missing"},
      {"DELETE FROM place WHERE position=1", "VDM 1 has no record 1"},
      {"DELETE FROM place WHERE position=1", "1 records belong to no VDM"},
      {"DELETE FROM vdm", "3 places belong to no VDM"},
      {"UPDATE place SET record=1 WHERE position=2", "1 records are at two places"},
      {"INSERT INTO vdm VALUES(-5, 9223372036854775807, 1)", "no such VDM number: -5"},
  };
  for (const Damage& damage : damages) {
    std::filesystem::remove(file);
    Write(1, {{"a"}, {"b"}, {"c"}});
    Sql(damage.sql);
    EXPECT_THAT(Get(CheckStore(file)), testing::Contains(HasSubstr(damage.finding))) << damage.sql;
  }
}

TEST_F(StoreCare, FindsAFileThatIsCutOrIsNoDatabase) {
  Write(1, Records(40, {std::string(1000, 'x')}));
  const std::string whole = test::ReadBytes(file);
  test::WriteBytes(file, whole.substr(0, whole.size() / 2));
  EXPECT_THAT(Get(CheckStore(file)), testing::Not(IsEmpty()));
  test::WriteBytes(file, std::string(5000, 'x'));
  EXPECT_THAT(Get(CheckStore(file)), ElementsAre(HasSubstr("is not a database")));
}

TEST_F(StoreCare, RefusesTheStoreOfANewerVersionOrAnotherProgram) {
  Sql("CREATE TABLE mine(a)");
  EXPECT_THAT(Told(CheckStore(file)), HasSubstr("is a database of another program"));
  EXPECT_THAT(Told(RepairStore(file, scratch)), HasSubstr("is a database of another program"));
  std::filesystem::remove(file);
  Write(1, {});
  Sql("PRAGMA user_version=99");
  EXPECT_THAT(Told(RepairStore(file, scratch)), HasSubstr("belongs to a newer version"));
}

TEST_F(StoreCare, KeepsWhatCanBeReadAndSetsTheDamagedFileAside) {
  Write(1, {{"a"}, {"b"}, {"c"}});
  Write(2, {{"whole"}});
  Sql("UPDATE record SET content=x'7a00' WHERE key=2");
  const std::string damaged = test::ReadBytes(file);
  const StoreRepair repair = Get(RepairStore(file, scratch));
  EXPECT_EQ(repair.vdms, 2u);
  EXPECT_EQ(repair.records, 3u);
  EXPECT_THAT(repair.missing, ElementsAre(HasSubstr("record 2, of VDM 1")));
  EXPECT_EQ(repair.aside, folder / "store.db.damaged");
  EXPECT_EQ(test::ReadBytes(repair.aside), damaged);
  EXPECT_EQ(Read(file, 1), (Records{{"a"}, {"c"}}));
  EXPECT_EQ(Read(file, 2), Records{{"whole"}});
  EXPECT_THAT(Get(CheckStore(file)), IsEmpty());
}

TEST_F(StoreCare, OverwritesNoFileThatWasSetAsideBefore) {
  test::WriteBytes(folder / "store.db.damaged", "older");
  test::WriteBytes(file, std::string(5000, 'x'));
  EXPECT_EQ(Get(RepairStore(file, scratch)).aside, folder / "store.db.damaged-1");
  EXPECT_EQ(test::ReadBytes(folder / "store.db.damaged"), "older");
  SqliteEngine engine(file);
  EXPECT_THAT(Get(engine.Numbers()), IsEmpty());
}

TEST_F(StoreCare, TakesTheNameThatARepairWhichWasKilledHasGiven) {
  Write(1, {{"a"}, {"b"}});
  Sql("UPDATE record SET content=x'7a00' WHERE key=2");
  const std::string damaged = test::ReadBytes(file);
  std::filesystem::create_hard_link(file, folder / "store.db.damaged");
  EXPECT_EQ(Get(RepairStore(file, scratch)).aside, folder / "store.db.damaged");
  EXPECT_EQ(test::ReadBytes(folder / "store.db.damaged"), damaged);
  EXPECT_EQ(Read(file, 1), Records{{"a"}});
  EXPECT_FALSE(std::filesystem::exists(folder / "store.db.damaged-1"));
}

TEST_F(StoreCare, FindsEachKindOfDamageInFormerGenerations) {
  struct Damage {
    const char* sql;
    const char* finding;
  };
  const Damage damages[] = {
      {"UPDATE record SET content=x'7a00' WHERE key=2", "record 2, of VDM 1: its checksum is another one"},
      {"DELETE FROM record WHERE key=2", "record 2, of VDM 1: it is missing"},
      {"DELETE FROM place WHERE last=1 AND position=1", "VDM 1 has no record 1 in generation 1"},
      {"UPDATE place SET first=9 WHERE last=1 AND position=1", "1 places end before they begin"},
      {"UPDATE vdm SET first=9 WHERE last=1", "1 states of VDMs end before they begin"},
      {"UPDATE place SET first=3 WHERE first=2", "the generations do not lead to the current content"},
  };
  for (const Damage& damage : damages) {
    std::filesystem::remove(file);
    Write(1, {{"a"}, {"b"}, {"c"}});
    Write(1, {{"a"}, {"new"}, {"c"}});
    EXPECT_THAT(Get(CheckStore(file)), IsEmpty());
    Sql(damage.sql);
    EXPECT_THAT(Get(CheckStore(file)), testing::Contains(HasSubstr(damage.finding))) << damage.sql;
  }
}

TEST_F(StoreCare, KeepsFormerGenerationsWhereItRepairs) {
  Write(1, {{"a"}, {"b"}, {"c"}});
  Write(1, {{"a"}, {"new"}, {"c"}});
  Write(2, {{"whole"}});
  Sql("UPDATE record SET content=x'7a00' WHERE key=2");
  const StoreRepair repair = Get(RepairStore(file, scratch));
  EXPECT_THAT(repair.missing, ElementsAre(HasSubstr("record 2, of VDM 1")));
  EXPECT_EQ(Read(file, 1), (Records{{"a"}, {"new"}, {"c"}}));
  SqliteEngine engine(file);
  EXPECT_EQ(RecordsOf(Get(engine.ReadAt(1, {})).at(Number{1})), (Records{{"a"}, {"c"}}));
  EXPECT_EQ(Get(engine.ListChanges({})).size(), 3u);
  EXPECT_THAT(Get(CheckStore(file)), IsEmpty());
}

TEST_F(StoreCare, KeepsTheLastGenerationWhereTheFormerOnesCannotBeTold) {
  Write(1, {{"a"}});
  Write(1, {{"b"}});
  Sql("UPDATE place SET first=5 WHERE last=9223372036854775807");
  const StoreRepair repair = Get(RepairStore(file, scratch));
  EXPECT_THAT(repair.missing, testing::Contains("the former generations"));
  EXPECT_EQ(Read(file, 1), Records{{"b"}});
  EXPECT_THAT(Get(CheckStore(file)), IsEmpty());
}

TEST_F(StoreCare, CopiesAStoreWhileItIsOpen) {
  Write(1, {{"a"}, {"b"}});
  SqliteEngine engine(file);
  const auto opened = Get(engine.Open(Number{1}));
  EXPECT_EQ(Told(CopyStore(file, folder / "copy.db")), "");
  EXPECT_EQ(Read(folder / "copy.db", 1), (Records{{"a"}, {"b"}}));
  EXPECT_THAT(Get(CheckStore(folder / "copy.db")), IsEmpty());
  EXPECT_EQ(CopyStore(folder / "none.db", folder / "copy2.db").fault().kind, FaultKind::kMissing);
}

}  // namespace
}  // namespace vanzet::vdm
