#include "vdm/embedded/engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "support/engine_calls.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::vdm {
namespace {

using test::Get;
using test::Records;
using test::RecordsOf;
using test::RemoveFrom;
using test::Told;
using test::VdmOf;
using test::WriteTo;
using testing::HasSubstr;
using Perms = std::filesystem::perms;

class SqliteStore : public testing::Test {
 protected:
  void Write(std::uint32_t number, const Records& records) {
    SqliteEngine engine(file);
    ASSERT_EQ(Told(WriteTo(engine, number, VdmOf(records))), "");
  }
  Records Read(std::uint32_t number) {
    SqliteEngine engine(file);
    return ReadBy(engine, number);
  }
  static Records ReadBy(SqliteEngine& engine, std::uint32_t number) {
    return RecordsOf(Get(engine.Read({Number{number}})).at(Number{number}));
  }

  /// Runs SQL on the file behind the engine's back; gives the first column of the last row.
  std::string Sql(const std::string& text) {
    sqlite3* database = nullptr;
    std::string found;
    const auto keep = [](void* into, int, char** columns, char**) {
      *static_cast<std::string*>(into) = columns[0] == nullptr ? "" : columns[0];
      return 0;
    };
    EXPECT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, text.c_str(), keep, &found, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
    return found;
  }

  /// Expects the same fault of all operations, and that the file is unchanged.
  void ExpectRefusal(const std::string& what) {
    const std::string before = test::ReadBytes(file);
    const std::string told = file.string() + ": " + what;
    SqliteEngine engine(file);
    EXPECT_EQ(Told(engine.Numbers()), told);
    EXPECT_EQ(Told(engine.Exists(Number{1})), told);
    EXPECT_EQ(Told(engine.Open(Number{1})), told);
    EXPECT_EQ(Told(engine.Read({Number{1}})), told);
    EXPECT_EQ(Told(WriteTo(engine, 1, Vdm())), told);
    EXPECT_EQ(Told(RemoveFrom(engine, 1)), told);
    EXPECT_EQ(test::ReadBytes(file), before);
  }

  test::TemporaryFolder folder;
  const std::filesystem::path file = folder / "store.db";
};

TEST_F(SqliteStore, IsMadeByTheFirstWriteAndNotByReading) {
  SqliteEngine engine(file);
  Get(engine.Numbers());
  Get(engine.Read({Number{1}}));
  EXPECT_EQ(Told(RemoveFrom(engine, 1)), "");
  EXPECT_FALSE(std::filesystem::exists(file));
  EXPECT_EQ(Told(WriteTo(engine, 1, Vdm())), "");
  EXPECT_TRUE(std::filesystem::exists(file));
}

TEST_F(SqliteStore, TakesAnEmptyFileForAnEmptyStore) {
  test::WriteBytes(file, "");
  EXPECT_TRUE(Get(SqliteEngine(file).Numbers()).empty());
  Write(1, {{"a"}});
  EXPECT_EQ(Read(1), Records{{"a"}});
}

TEST_F(SqliteStore, BearsItsMarkAndItsSchema) {
  Write(1, {});
  EXPECT_EQ(Sql("PRAGMA application_id"), "1986951796");
  EXPECT_EQ(Sql("PRAGMA user_version"), "2");
}

TEST_F(SqliteStore, RefusesAFileThatIsNoDatabase) {
  test::Dice dice(3);
  std::string bytes(5000, ' ');
  for (char& c : bytes) c = static_cast<char>(dice.UpTo(255));
  test::WriteBytes(file, bytes);
  ExpectRefusal("is not a database");
}

TEST_F(SqliteStore, RefusesADatabaseOfAnotherProgram) {
  Sql("CREATE TABLE mine(a)");
  ExpectRefusal("is a database of another program");
  Sql("PRAGMA application_id=4711; PRAGMA user_version=1");
  ExpectRefusal("is a database of another program");
}

TEST_F(SqliteStore, RefusesTheSchemaOfANewerVersion) {
  Write(1, {{"a"}});
  Sql("PRAGMA user_version=3");
  ExpectRefusal("belongs to a newer version: it has schema 3, this version knows 2");
}

TEST_F(SqliteStore, RefusesASchemaThatNoVersionWrote) {
  Write(1, {{"a"}});
  Sql("PRAGMA user_version=0");
  ExpectRefusal("is damaged: unknown schema 0");
}

TEST_F(SqliteStore, RefusesAFolderInThePlaceOfTheFile) {
  std::filesystem::create_directory(file);
  EXPECT_EQ(Told(SqliteEngine(file).Numbers()), file.string() + ": is not a regular file");
  SqliteEngine engine(file);
  EXPECT_EQ(Told(WriteTo(engine, 1, Vdm())), file.string() + ": is not a regular file");
}

TEST_F(SqliteStore, IsReadButNotWrittenWithoutAWritePermission) {
  Write(1, {{"a"}});
  std::filesystem::permissions(file, Perms::owner_read | Perms::group_read);
  SqliteEngine engine(file);
  EXPECT_EQ(ReadBy(engine, 1), Records{{"a"}});
  EXPECT_EQ(Told(WriteTo(engine, 1, Vdm())), file.string() + ": is read-only");
  EXPECT_EQ(Told(RemoveFrom(engine, 1)), file.string() + ": is read-only");
  EXPECT_EQ(Read(1), Records{{"a"}});
}

TEST_F(SqliteStore, IsNotMadeInAFolderWithoutAWritePermission) {
  std::filesystem::permissions(folder.path(), Perms::owner_read | Perms::owner_exec);
  SqliteEngine engine(file);
  EXPECT_TRUE(Get(engine.Numbers()).empty());
  EXPECT_EQ(Told(WriteTo(engine, 1, Vdm())), file.string() + ": is read-only");
  EXPECT_FALSE(std::filesystem::exists(file));
  std::filesystem::permissions(folder.path(), Perms::owner_all);
}

TEST_F(SqliteStore, KeepsTheOldStateWheneverTheDiskGetsFull) {
  const Records large(30, {std::string(4000, 'x')});
  Write(1, {{"old"}, {"older"}});
  int pages = 1;
  for (; pages < 100; ++pages) {
    SqliteEngine engine(file, {.maxPages = pages});
    const auto written = WriteTo(engine, 1, VdmOf(large));
    if (written) break;
    EXPECT_EQ(Told(written), file.string() + ": the disk is full");
    EXPECT_EQ(Read(1), (Records{{"old"}, {"older"}}));
    EXPECT_EQ(Sql("SELECT count(*) FROM record"), "2");
  }
  EXPECT_EQ(Read(1), large);
  EXPECT_GT(pages, 30) << "the disk was hardly ever full";
}

TEST_F(SqliteStore, StaysEmptyWheneverTheDiskGetsFullBeforeTheFirstWriteIsDone) {
  int pages = 1;
  for (; pages < 100; ++pages) {
    SqliteEngine engine(file, {.maxPages = pages});
    const auto written = WriteTo(engine, 1, VdmOf({{"a"}}));
    if (written) break;
    EXPECT_EQ(Told(written), file.string() + ": the disk is full");
    EXPECT_TRUE(Get(SqliteEngine(file).Numbers()).empty());
  }
  EXPECT_EQ(Read(1), Records{{"a"}});
  EXPECT_GT(pages, 2) << "the disk was hardly ever full";
}

TEST_F(SqliteStore, IsUsedOnAfterAFullDisk) {
  SqliteEngine engine(file, {.maxPages = 20});
  EXPECT_FALSE(WriteTo(engine, 1, VdmOf(Records(100, {std::string(4000, 'x')}))));
  EXPECT_EQ(Told(WriteTo(engine, 1, VdmOf({{"small"}}))), "");
  EXPECT_EQ(Read(1), Records{{"small"}});
}

TEST_F(SqliteStore, TellsWhichRecordIsDamagedAndReadsTheOthers) {
  const std::string damages[] = {
      "items=7",
      "items=-1",
      "items=9223372036854775807",
      "content=CAST('no end' AS BLOB)",
      "content=CAST(printf('%.5000c', 'x') AS BLOB) || x'00', items=1",
      "content=''",
      "content='text', items='text'",
  };
  for (const std::string& damage : damages) {
    Write(1, {{"good"}, {"bad"}});
    Sql("UPDATE record SET " + damage + " WHERE key=(SELECT max(record) FROM place WHERE position=1)");
    SqliteEngine engine(file);
    const Vdm opened = std::move(*Get(engine.Open(Number{1})));
    EXPECT_EQ((*Get(opened.Read(0)))[0], "good");
    EXPECT_THAT(Told(opened.Read(1)), HasSubstr("is damaged: record")) << damage;
    EXPECT_THAT(Told(engine.Read({Number{1}})), HasSubstr("of VDM 1: ")) << damage;
  }
}

TEST_F(SqliteStore, TellsOfBytesThatWereChangedInARecord) {
  Write(1, {{"Chuck 160"}, {"good"}});
  Sql("UPDATE record SET content=replace(content, '160', '760') WHERE key=1");
  SqliteEngine engine(file);
  EXPECT_EQ(Told(engine.Read({Number{1}})),
            file.string() +
                ": is damaged: record 1, of VDM 1: its checksum is another one: its bytes were changed");
  EXPECT_EQ((*Get(Get(engine.Open(Number{1}))->Read(1)))[0], "good");
}

TEST_F(SqliteStore, NumbersItsCommitsAndSaysWhoMadeThem) {
  Write(1, {{"a"}});
  Write(2, {{"b"}});
  EXPECT_EQ(Sql("SELECT number FROM generation"), "2");
  EXPECT_EQ(Sql("SELECT count(*) FROM generation"), "2");
  EXPECT_EQ(Sql("SELECT occasion FROM generation WHERE occasion='test'"), "test");
  EXPECT_THAT(Sql("SELECT time FROM generation"), testing::MatchesRegex("20..-..-..T..:..:..Z"));
  EXPECT_NE(Sql("SELECT user || host || program FROM generation"), "");
  EXPECT_EQ(Sql("SELECT first FROM vdm WHERE number=1"), "1");
  EXPECT_EQ(Sql("SELECT first FROM vdm WHERE number=2"), "2");
}

/// A store as the first version wrote it.
constexpr const char* kFirstSchema = R"(
  PRAGMA application_id=1986951796;
  PRAGMA user_version=1;
  CREATE TABLE vdm(number INTEGER PRIMARY KEY);
  CREATE TABLE place(vdm INTEGER NOT NULL, position INTEGER NOT NULL, record INTEGER NOT NULL,
                     PRIMARY KEY(vdm, position)) WITHOUT ROWID;
  CREATE TABLE record(key INTEGER PRIMARY KEY, items INTEGER NOT NULL, content BLOB NOT NULL);
  INSERT INTO vdm VALUES(1000), (1001);
  INSERT INTO record VALUES(3, 2, x'61006200'), (4, 1, x'6300');
  INSERT INTO place VALUES(1000, 0, 4), (1000, 1, 3);
)";

TEST_F(SqliteStore, ReadsTheFirstSchemaWithoutChangingTheFile) {
  Sql(kFirstSchema);
  const std::string before = test::ReadBytes(file);
  SqliteEngine engine(file);
  EXPECT_EQ(Get(engine.Numbers()), (std::vector<Number>{Number{1000}, Number{1001}}));
  EXPECT_TRUE(Get(engine.Exists(Number{1001})));
  EXPECT_FALSE(Get(engine.Exists(Number{1})));
  EXPECT_EQ(ReadBy(engine, 1000), (Records{{"c"}, {"a", "b"}}));
  EXPECT_FALSE(Get(engine.UnfinishedFile()));
  EXPECT_EQ(test::ReadBytes(file), before);
}

TEST_F(SqliteStore, BringsTheFirstSchemaToTheCurrentOneWithTheFirstCommit) {
  Sql(kFirstSchema);
  SqliteEngine engine(file);
  Vdm opened = std::move(*Get(engine.Open(Number{1000})));
  (*Get(opened.Edit(0)))[0] = "changed";
  EXPECT_EQ(Told(WriteTo(engine, 1000, opened)), "");
  EXPECT_EQ(ReadBy(engine, 1000), (Records{{"changed"}, {"a", "b"}}));
  EXPECT_EQ(ReadBy(engine, 1001), Records{});
  EXPECT_EQ(Sql("PRAGMA user_version"), "2");
  EXPECT_EQ(Sql("SELECT count(*) FROM sqlite_schema WHERE name LIKE '%1'"), "0") << "nothing old is left";
  Sql("UPDATE record SET content=x'61007a00' WHERE key=3");
  EXPECT_THAT(Told(engine.Read({Number{1000}})), HasSubstr("checksum")) << "of records that were taken over";
}

TEST_F(SqliteStore, KeepsTheStateBeforeTheMigrationAsTheFirstGeneration) {
  Sql(kFirstSchema);
  SqliteEngine engine(file);
  EXPECT_TRUE(Get(engine.ListChanges({})).empty());
  EXPECT_EQ(Told(engine.ReadAt(1, {})), file.string() + ": has no generations yet");
  EXPECT_EQ(Told(WriteTo(engine, 1000, VdmOf({{"new"}}))), "");
  const auto changes = Get(engine.ListChanges(Number{1000}));
  ASSERT_EQ(changes.size(), 2u);
  EXPECT_EQ(changes[0].generation.occasion, "migration");
  EXPECT_EQ(changes[1].generation.number, 2);
  EXPECT_EQ(RecordsOf(Get(engine.ReadAt(1, {})).at(Number{1000})), (Records{{"c"}, {"a", "b"}}));
}

TEST_F(SqliteStore, CopiesAStoreOfTheFirstSchemaAsTheFirstGeneration) {
  Sql(kFirstSchema);
  SqliteEngine engine(file), copy(folder / "copy.db");
  EXPECT_EQ(Told(copy.Fill([&](const GenerationVisitor& visitor) { return engine.Visit({}, visitor); })), "");
  EXPECT_EQ(RecordsOf(Get(copy.ReadAt(1, {})).at(Number{1000})), (Records{{"c"}, {"a", "b"}}));
  EXPECT_EQ(Sql("PRAGMA user_version"), "1") << "the original";
}

TEST_F(SqliteStore, StaysOfTheFirstSchemaWhereItCannotBeBroughtToTheCurrentOne) {
  Sql(kFirstSchema);
  SqliteEngine engine(file, {.maxPages = 5});
  EXPECT_EQ(Told(WriteTo(engine, 1000, VdmOf({{"new"}}))), file.string() + ": the disk is full");
  EXPECT_EQ(Read(1000), (Records{{"c"}, {"a", "b"}}));
  EXPECT_EQ(Sql("PRAGMA user_version"), "1");
}

TEST_F(SqliteStore, TellsOfAMissingRecord) {
  Write(1, {{"a"}, {"b"}});
  Sql("DELETE FROM record WHERE key=(SELECT record FROM place WHERE position=1)");
  EXPECT_THAT(Told(SqliteEngine(file).Read({Number{1}})), HasSubstr("of VDM 1: it is missing"));
}

TEST_F(SqliteStore, TellsOfAMissingPlace) {
  Write(1, {{"a"}, {"b"}});
  Sql("DELETE FROM place WHERE position=0");
  EXPECT_EQ(Told(SqliteEngine(file).Open(Number{1})), file.string() + ": is damaged: VDM 1 has no record 0");
}

TEST_F(SqliteStore, TellsOfANumberThatNoVdmCanHave) {
  Write(1, {});
  Sql("INSERT INTO vdm VALUES(-1, 9223372036854775807, 1)");
  EXPECT_EQ(Told(SqliteEngine(file).Numbers()), file.string() + ": is damaged: no such VDM number: -1");
}

TEST_F(SqliteStore, SurvivesBytesThatWereChangedAnywhere) {
  Write(1, Records(20, {std::string(900, 'x'), "y"}));
  const std::string whole = test::ReadBytes(file);
  test::Dice dice(5);
  for (int round = 0; round < 300; ++round) {
    std::string damaged = whole;
    for (std::size_t n = 1 + dice.UpTo(30); n > 0; --n) {
      damaged[dice.UpTo(damaged.size() - 1)] = static_cast<char>(dice.UpTo(255));
    }
    test::WriteBytes(file, damaged.substr(0, dice.UpTo(3) == 0 ? dice.UpTo(damaged.size()) : damaged.size()));
    SqliteEngine engine(file);
    const auto read = engine.Read({Number{1}});
    if (!read) {
      EXPECT_EQ(read.fault().file, file.string());
    }
    static_cast<void>(WriteTo(engine, 1, VdmOf({{"new"}})));
  }
}

TEST_F(SqliteStore, DoesNotWriteRecordsAnewThatNobodyEdited) {
  Write(1, {{std::string(1000, 'x')}, {"small"}});
  Sql("CREATE TABLE written(key); CREATE TRIGGER note AFTER UPDATE ON record BEGIN "
      "INSERT INTO written VALUES(new.key); END; CREATE TRIGGER notenew AFTER INSERT ON record BEGIN "
      "INSERT INTO written VALUES(new.key); END");
  SqliteEngine engine(file);
  Vdm opened = std::move(*Get(engine.Open(Number{1})));
  Get(opened.Read(0));
  (*Get(opened.Edit(1)))[0] = "changed";
  opened.Insert(0, Record({"first"}));
  EXPECT_EQ(Told(WriteTo(engine, 1, opened)), "");
  EXPECT_EQ(Sql("SELECT count(*) FROM written"), "2");
  EXPECT_EQ(Sql("SELECT count(*) FROM written WHERE key=(SELECT record FROM place WHERE position=1)"), "0");
}

TEST_F(SqliteStore, LeavesNoRowsBehindThatNeedNotBeKept) {
  SqliteEngine engine(file);
  const auto apply = [&](const std::optional<Vdm>& content) {
    Changes changes;
    changes.emplace(Number{1}, content);
    const std::string occasion = "test";
    EXPECT_EQ(Told(engine.Apply({changes, nullptr, occasion, {}, 0})), "");
  };
  apply(VdmOf({{"a"}, {"b"}}));
  apply(VdmOf({{"c"}}));
  EXPECT_EQ(Sql("SELECT count(*) FROM record"), "1");
  EXPECT_EQ(Sql("SELECT count(*) FROM generation"), "1");
  apply(std::nullopt);
  EXPECT_EQ(Sql("SELECT (SELECT count(*) FROM record) + (SELECT count(*) FROM place)"), "0");
}

TEST_F(SqliteStore, WritesNoRecordTwiceThatIsTheSameInTheNextGeneration) {
  Write(1, {{"a", "b"}, {"c"}, {"c"}});
  Write(1, {{"new"}, {"c"}, {"a", "b"}, {"c"}});
  EXPECT_EQ(Sql("SELECT count(*) FROM record"), "4");
  EXPECT_EQ(Read(1), (Records{{"new"}, {"c"}, {"a", "b"}, {"c"}}));
}

TEST_F(SqliteStore, WritesOnlyThePlacesThatHaveAnotherRecord) {
  Write(1, Records(50, {"same"}));
  SqliteEngine engine(file);
  Vdm opened = std::move(*Get(engine.Open(Number{1})));
  (*Get(opened.Edit(7)))[0] = "changed";
  EXPECT_EQ(Told(WriteTo(engine, 1, opened)), "");
  EXPECT_EQ(Sql("SELECT count(*) FROM place"), "51");
}

TEST_F(SqliteStore, GoesOnFromAStoreThatKeptTheLastGenerationAlone) {
  Write(1, {{"a"}});
  Write(2, {{"b"}});
  Sql("DELETE FROM generation WHERE number=1");
  Write(1, {{"c"}});
  SqliteEngine engine(file);
  const auto changes = Get(engine.ListChanges(Number{1}));
  ASSERT_EQ(changes.size(), 2u);
  EXPECT_EQ(changes[0].generation.user, "?");
  EXPECT_EQ(changes[1].generation.number, 3);
  EXPECT_EQ(RecordsOf(Get(engine.ReadAt(1, Number{1})).at(Number{1})), Records{{"a"}});
}

TEST_F(SqliteStore, SeesWhatAnotherEngineWrote) {
  SqliteEngine first(file), second(file);
  EXPECT_FALSE(Get(second.Exists(Number{1})));
  EXPECT_EQ(Told(WriteTo(first, 1, VdmOf({{"a"}}))), "");
  EXPECT_EQ(ReadBy(second, 1), Records{{"a"}});
}

TEST_F(SqliteStore, WritesToTheFileThatStandsThereNow) {
  SqliteEngine engine(file);
  EXPECT_EQ(Told(WriteTo(engine, 1, VdmOf({{"a"}}))), "");
  std::filesystem::remove(file);
  EXPECT_TRUE(Get(engine.Numbers()).empty());
  EXPECT_EQ(Told(WriteTo(engine, 2, VdmOf({{"b"}}))), "");
  EXPECT_EQ(Read(2), Records{{"b"}});
}

TEST_F(SqliteStore, WaitsForAnotherWriterOnlyAsLongAsItIsTold) {
  Write(1, {{"a"}});
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  SqliteEngine engine(file, {.busyTimeout = 10});
  EXPECT_EQ(Told(WriteTo(engine, 1, Vdm())), file.string() + ": another process is writing it");
  EXPECT_EQ(Told(engine.Read({Number{1}})), file.string() + ": another process is writing it");
  sqlite3_close(other);
  EXPECT_EQ(ReadBy(engine, 1), Records{{"a"}});
}

}  // namespace
}  // namespace vanzet::vdm
