#include <sys/stat.h>

#include "run_vanzet.h"

namespace vanzet::test {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::HasSubstr;

/// Things that can have the name of a file and that must not be read.
enum class Thing { kPipe, kLinkToZeros, kFolder };

constexpr Thing kThings[] = {Thing::kPipe, Thing::kLinkToZeros, Thing::kFolder};

/// Without it a command that waits for a pipe or reads zeros without end would stop the suite. The sanitizer
/// takes more memory than any limit.
#if defined(__SANITIZE_ADDRESS__)
constexpr const char* kGuard = "timeout -s KILL 20";
#else
constexpr const char* kGuard = "ulimit -v 4000000; timeout -s KILL 20";
#endif

class OddFiles : public CommandLineTest {
 protected:
  OddFiles() { MakeUpgradedProject(); }

  void Put(const fs::path& file, Thing thing) {
    fs::remove_all(file);
    switch (thing) {
      case Thing::kPipe: ASSERT_EQ(mkfifo(file.c_str(), 0600), 0); break;
      case Thing::kLinkToZeros: fs::create_symlink("/dev/zero", file); break;
      case Thing::kFolder: fs::create_directory(file); break;
    }
  }

  /// One line that names the file, and status 1.
  void ExpectRefused(const std::string& arguments, const std::string& message,
                     const std::string& input = "") {
    const Outcome run = Vanzet(arguments, kGuard, input);
    EXPECT_EQ(run.status, 1) << arguments;
    EXPECT_THAT(run.err, HasSubstr(message)) << arguments;
    EXPECT_EQ(std::ranges::count(run.err, '\n'), 1) << arguments << "\n" << run.err;
  }

  const std::string chuck =
      R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "Chuck 160"}}}, {"spur": 1}]})";
};

TEST_F(OddFiles, OfTheSettingsAreRefused) {
  for (const Thing thing : kThings) {
    Put(folder / "lathe/bench.ini", thing);
    ExpectRefused("show lathe", "bench.ini: is not a regular file");
  }
}

TEST_F(OddFiles, OfTheStoreAreRefused) {
  for (const std::string name : {"store.db", "store.db-journal", "store.db-wal", "store.db-shm"}) {
    for (const Thing thing : kThings) {
      std::filesystem::remove_all(folder / "lathe");
      MakeUpgradedProject();
      Put(folder / "lathe" / name, thing);
      for (const char* command : {"show lathe", "items lathe", "upgrade lathe"}) {
        ExpectRefused(command, name + ": is not a regular file");
      }
    }
  }
}

TEST_F(OddFiles, OfTheMachineAreRefused) {
  for (const Thing thing : kThings) {
    Put(folder / "lathe/machine.ini", thing);
    ExpectRefused("upgrade lathe", "machine.ini: is not a regular file");
    ExpectRefused("script lathe - --transcript run.jsonl", "machine.ini: is not a regular file", "close\n");
  }
}

TEST_F(OddFiles, OfTheCatalogueEndADefine) {
  for (const Thing thing : kThings) {
    Put(folder / "lathe/clampdevice.cld", thing);
    ExpectRefused("define - lathe", "clampdevice.cld: is not a regular file", chuck);
  }
}

TEST_F(OddFiles, OfTheCatalogueAreReportedByAScript) {
  for (const Thing thing : kThings) {
    Put(folder / "lathe/clampdevice.cld", thing);
    ExpectRefused("script lathe - --transcript run.jsonl", "clampdevice.cld: is not a regular file",
                  "close\n");
  }
}

TEST_F(OddFiles, OfAnotherCatalogueEndADefine) {
  WriteBytes(folder / "lathe/bench.ini",
             ReadBytes(folder / "lathe/bench.ini") + "\n[project]\nCLAMP_DB_PATH = /dev/zero\n");
  ExpectRefused("define - lathe", "/dev/zero: is not a regular file", chuck);
}

}  // namespace
}  // namespace vanzet::test
