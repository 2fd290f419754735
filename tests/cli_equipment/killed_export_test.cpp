#include <chrono>
#include <thread>

#include "cli/run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

namespace fs = std::filesystem;

/// Exports that are killed while the exchange program works for them.
class KilledExport : public CommandLineTest {
 protected:
  KilledExport() {
    MakeUpgradedProject();
    EXPECT_EQ(Vanzet("define '" VANZET_SOURCE_DIR "/examples/definitions/bar-job.json' lathe").status, 0);
    fs::create_directory(folder / "temporary");
  }

  Outcome Export(const std::string& before = "") {
    return Vanzet("export lathe --out models --format step", "TMPDIR=\"$PWD/temporary\" " + before);
  }

  /// Kills who wants a file written; reads the 3D texts of the definition before.
  void PutKillingExchange() {
    PutExchange(
        "case $1 in write-step) echo step >\"$4\"; kill -9 $PPID;; esac\n"
        "exec '" VANZET_EXCHANGE_FILE "' \"$@\"\n");
  }

  void PutExchange(const std::string& script) {
    WriteBytes(folder / "exchange", "#!/bin/sh\n" + script);
    fs::permissions(folder / "exchange", fs::perms::owner_all);
  }

  std::vector<fs::path> TemporaryFiles() const {
    const fs::recursive_directory_iterator all(folder / "temporary");
    return {begin(all), end(all)};
  }
};

TEST_F(KilledExport, LeavesNothingAfterTheNextOne) {
  PutKillingExchange();
  EXPECT_EQ(Export("VANZET_EXCHANGE=\"$PWD/exchange\"").status, 128 + 9);
  EXPECT_EQ(TemporaryFiles().size(), 2U) << "a folder with a file";
  const Outcome next = Export();
  EXPECT_EQ(next.status, 0) << next.err;
  EXPECT_TRUE(TemporaryFiles().empty());
}

TEST_F(KilledExport, LeavesNothingInTheCurrentFolderWithoutATemporaryOne) {
  PutKillingExchange();
  fs::remove(folder / "temporary");
  EXPECT_EQ(Export("VANZET_EXCHANGE=\"$PWD/exchange\"").status, 128 + 9);
  for (const auto& entry : fs::directory_iterator(folder.path())) {
    EXPECT_FALSE(entry.path().filename().string().starts_with("vanzet-")) << entry.path();
  }
  // Removes what is in the system's own temporary folder instead.
  EXPECT_EQ(Vanzet("export lathe --out models --format step").status, 0);
}

TEST_F(KilledExport, EndsTheExchangeProgramWithIt) {
  // The program is started again with nobody left to read its reports.
  PutExchange("case $1 in write-step) kill -9 $PPID; '" VANZET_EXCHANGE_FILE
              "' \"$@\"; echo $? >status;; *) exec '" VANZET_EXCHANGE_FILE "' \"$@\";; esac\n");
  EXPECT_EQ(Export("VANZET_EXCHANGE=\"$PWD/exchange\"").status, 128 + 9);
  while (!fs::exists(folder / "status") || ReadBytes(folder / "status").empty()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_NE(ReadBytes(folder / "status"), "0\n");
}

TEST_F(KilledExport, OfAnotherProcessThatLivesKeepsItsFolder) {
  const fs::path theirs = folder / "temporary/vanzet-export-abcdef";
  fs::create_directory(theirs);
  const Outcome outcome = Vanzet("export lathe --out models --format step",
                                 "exec 9<temporary/vanzet-export-abcdef; flock 9; TMPDIR=\"$PWD/temporary\"");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_TRUE(fs::exists(theirs));
}

}  // namespace
}  // namespace vanzet::test
