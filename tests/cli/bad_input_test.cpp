#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>
#include <random>

#include "run_vanzet.h"

#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class BadInput : public CommandLineTest {
 protected:
  /// One message on standard error that names the file, exit status 1, and nothing on standard output. The
  /// line of a text file, with a caret, may follow the message; it is indented.
  void ExpectRefused(const std::string& arguments, const std::string& file) {
    const Outcome run = Vanzet(arguments);
    EXPECT_EQ(run.status, 1) << arguments;
    EXPECT_THAT(run.err, StartsWith("vanzet: ")) << arguments;
    EXPECT_THAT(run.err, HasSubstr(file)) << arguments;
    const std::string rest = run.err.substr(run.err.find('\n') + 1);
    EXPECT_THAT(rest, testing::AnyOf("", testing::MatchesRegex("  .*\n[ \t]+\\^\n"))) << run.err;
    EXPECT_EQ(run.out, "") << arguments;
  }

  static std::string RandomBytes() {
    std::mt19937 random(3);
    std::string bytes(100000, '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    return bytes;
  }

  void Sql(const char* statement) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open((folder / "lathe/store.db").c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, statement, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(database);
  }
};

TEST_F(BadInput, AFolderThatIsNoProject) {
  WriteBytes(folder / "letters/letter.txt", "");
  ExpectRefused("show letters", "letters");
  ExpectRefused("upgrade letters", "letters");
  ExpectRefused("show nowhere", "nowhere");
  EXPECT_FALSE(std::filesystem::exists(folder / "letters/store.db"));
}

TEST_F(BadInput, AStoreThatIsNoDatabase) {
  MakeUpgradedProject();
  const std::string bytes = RandomBytes();
  WriteBytes(folder / "lathe/store.db", bytes);
  ExpectRefused("show lathe", "store.db");
  ExpectRefused("items lathe", "store.db");
  ExpectRefused("upgrade lathe", "store.db");
  EXPECT_EQ(ReadBytes(folder / "lathe/store.db"), bytes);
}

TEST_F(BadInput, AStoreOrALockThatIsNoRegularFile) {
  for (const char* name : {"store.db", "store.lock"}) {
    for (const bool isPipe : {false, true}) {
      MakeProjectWithoutDefinitions();
      const std::filesystem::path file = folder / "lathe" / name;
      if (isPipe) {
        ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
      } else {
        std::filesystem::create_directories(file);
      }
      ExpectRefused("upgrade lathe", name);
      std::filesystem::remove_all(folder / "lathe");
    }
  }
}

TEST_F(BadInput, ADefinitionFileThatIsAPipe) {
  MakeUpgradedProject();
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  ExpectRefused("vdm check pipe", "pipe");
  ExpectRefused("vdm load lathe pipe 1000", "pipe");
  ExpectRefused("upgrade lathe --trace pipe", "pipe");
}

TEST_F(BadInput, ATraceOverTheStore) {
  MakeUpgradedProject();
  ExpectRefused("upgrade lathe --trace lathe/store.db", "store.db");
  EXPECT_EQ(Vanzet("show lathe").status, 0);
}

TEST_F(BadInput, ATraceThatFillsTheDisk) {
  MakeProject();
  const Outcome upgraded = Vanzet("upgrade lathe --trace /dev/full");
  EXPECT_EQ(upgraded.status, 1);
  EXPECT_THAT(upgraded.err, HasSubstr("/dev/full: the trace cannot be continued"));
}

TEST_F(BadInput, ANameOverTwoLinesIsToldOnOne) {
  ExpectRefused("show $'a\\nb'", "a\\nb");
}

TEST_F(BadInput, AStoreOfANewerSchema) {
  MakeUpgradedProject();
  Sql("PRAGMA user_version = 99");
  ExpectRefused("show lathe", "store.db");
  const std::string before = ReadBytes(folder / "lathe/store.db");
  ExpectRefused("upgrade lathe", "store.db");
  EXPECT_EQ(ReadBytes(folder / "lathe/store.db"), before);
}

TEST_F(BadInput, AStoreThatIsReadOnly) {
  MakeUpgradedProject();
  WriteBytes(folder / "x.vdm", "vdm 1\nend 0\n");
  std::filesystem::permissions(folder / "lathe/store.db", std::filesystem::perms::owner_read);
  const std::string before = ReadBytes(folder / "lathe/store.db");
  EXPECT_EQ(Vanzet("show lathe").status, 0) << "reading works";
  ExpectRefused("vdm load lathe x.vdm 1000", "store.db");
  EXPECT_EQ(ReadBytes(folder / "lathe/store.db"), before);
}

TEST_F(BadInput, AFullDiskWhileAnUpgradeIsStored) {
  MakeProjectWithoutDefinitions();
  const Outcome upgraded = Vanzet("upgrade lathe", "ulimit -f 4;");
  EXPECT_EQ(upgraded.status, 1);
  EXPECT_THAT(upgraded.err, HasSubstr("store.db"));
  EXPECT_EQ(Vanzet("upgrade lathe").status, 0) << "and nothing stands in the way when there is room again";
}

TEST_F(BadInput, ADamagedDrawingIsToldOnce) {
  MakeUpgradedProject();
  WriteBytes(folder / "lathe/drawing.txt", "noise\n");
  const Outcome played =
      Vanzet("script lathe '" VANZET_SOURCE_DIR "/examples/scripts/bar-job.txt' --transcript run.jsonl");
  EXPECT_EQ(played.status, 1);
  EXPECT_THAT(played.err, HasSubstr("lathe/drawing.txt:1: "));
  EXPECT_EQ(std::ranges::count(played.err, '\n'), 1) << played.err;
}

TEST_F(BadInput, AFullDiskWhileAnUpgradeIsStoredIsToldOnce) {
  MakeProjectWithoutDefinitions();
  const Outcome upgraded = Vanzet("upgrade lathe", "ulimit -f 4;");
  EXPECT_EQ(upgraded.status, 1);
  EXPECT_EQ(std::ranges::count(upgraded.err, '\n'), 1) << upgraded.err;
}

TEST_F(BadInput, AFullDiskWhileADefinitionIsReplaced) {
  MakeUpgradedProject();
  const std::string before = Vanzet("items lathe").out;
  std::string big = "vdm 1\nrecord\n";
  for (int i = 0; i < 3000; ++i) big += "." + std::string(100, 'x') + "\n";
  WriteBytes(folder / "big.vdm", big + "end 1\n");
  const Outcome loaded = Vanzet("vdm load lathe big.vdm 1000", "ulimit -f 64;");
  EXPECT_EQ(loaded.status, 1);
  EXPECT_THAT(loaded.err, HasSubstr("store.db"));
  EXPECT_EQ(Vanzet("items lathe").out, before);
}

TEST_F(BadInput, AFullDiskWhileAVdmIsSaved) {
  MakeUpgradedProject();
  WriteBytes(folder / "job.vdm", "old");
  const Outcome saved = Vanzet("vdm save lathe 1000 job.vdm", "ulimit -f 0;");
  EXPECT_EQ(saved.status, 1);
  EXPECT_EQ(ReadBytes(folder / "job.vdm"), "old");
}

TEST_F(BadInput, SettingsThatAreNoText) {
  MakeUpgradedProject();
  WriteBytes(folder / "lathe/bench.ini", RandomBytes());
  ExpectRefused("show lathe", "bench.ini:");
  ExpectRefused("upgrade lathe", "bench.ini:");
}

TEST_F(BadInput, SettingsOfAHundredMegabytes) {
  MakeUpgradedProject();
  std::filesystem::resize_file(folder / "lathe/bench.ini", 100'000'000);
  ExpectRefused("show lathe", "bench.ini: is larger than 16 MiB");
}

TEST_F(BadInput, AMachineThatIsNoTextOrTooLarge) {
  MakeUpgradedProject();
  const std::string before = ReadBytes(folder / "lathe/store.db");
  WriteBytes(folder / "lathe/machine.ini", RandomBytes());
  ExpectRefused("upgrade lathe", "machine.ini:");
  std::filesystem::resize_file(folder / "lathe/machine.ini", 100'000'000);
  ExpectRefused("upgrade lathe", "machine.ini: is larger than 16 MiB");
  EXPECT_EQ(ReadBytes(folder / "lathe/store.db"), before);
}

TEST_F(BadInput, VariablesThatNameNoNumber) {
  MakeUpgradedProject();
  WriteBytes(folder / "lathe/bench.ini", "[variables]\ni_billet_vdm = first\n");
  ExpectRefused("show lathe", "bench.ini:2:16: i_billet_vdm: expected an integer, found 'first'");
}

TEST_F(BadInput, AMeshThatTheModellerRefuses) {
  MakeUpgradedProject();
  WriteBytes(folder / "lathe/bench.ini", "[mesh]\nchord = 0.001\n");
  ExpectRefused("upgrade lathe", "bench.ini:2:9: 'chord' is a number from 0.005 to 100, not '0.001'");
  WriteBytes(folder / "lathe/bench.ini", "[mesh]\nchord = 0.005\nangle = 2\n");
  const Outcome defined =
      Vanzet("define - lathe", "",
             R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "Chuck 160"}}}, {"spur": 1}]})");
  EXPECT_EQ(defined.status, 0) << "the finest that is allowed: " << defined.err;
}

TEST_F(BadInput, TextsOutsideOfTheFolderOfTexts) {
  MakeUpgradedProject();
  WriteBytes(folder / "lathe/bench.ini", "[language]\nmessages = ../messages/de\n");
  ExpectRefused("show lathe", "bench.ini:2:12: no such catalogue of texts: '../messages/de'");
}

TEST_F(BadInput, AModuleThatIsNotThere) {
  MakeProject();
  const Outcome upgraded = Vanzet("upgrade lathe", "VANZET_MODULE=/no/such/module.so");
  EXPECT_EQ(upgraded.status, 1);
  EXPECT_THAT(upgraded.err, HasSubstr("/no/such/module.so"));
}

TEST_F(BadInput, ATraceThatCannotBeWritten) {
  MakeProjectWithoutDefinitions();
  ExpectRefused("upgrade lathe --trace /no/such/folder/calls.jsonl", "/no/such/folder/calls.jsonl");
  EXPECT_FALSE(std::filesystem::exists(folder / "lathe/store.db"));
}

}  // namespace
}  // namespace vanzet::test
