#include "modeller/exchange/confinement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <thread>

#include "support/places.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;
namespace fs = std::filesystem;

/// A process after it gave up its rights; each case is tried in a process of its own.
class Confined : public testing::Test {
 protected:
  Confined() {
    WriteBytes(folder_ / "body.step", "content");
    WriteBytes(folder_ / "other.step", "content");
    WriteBytes(folder_ / "secret", "content");
    fs::create_directory(folder_ / "out");
    WriteBytes(folder_ / "out/old", "content");
  }

  /// Whether a confined process finds this true. Skips the test where the kernel has neither guard.
  void Expect(bool (*what)(const fs::path& folder), bool isTrue, bool needsLandlock = false) {
    enum Answer { kFalse, kTrue, kNotGuarded };
    const pid_t child = fork();
    if (child == 0) {
      const Confinement guards = Confine({{folder_ / "body.step", folder_ / "other.step"}, folder_ / "out"});
      if (needsLandlock ? guards.landlock == 0 : !guards.hasCallFilter) _exit(kNotGuarded);
      _exit(what(folder_.path()) ? kTrue : kFalse);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status)) << "signal " << WTERMSIG(status);
    if (WEXITSTATUS(status) == kNotGuarded) GTEST_SKIP() << "this kernel or build has no such guard";
    EXPECT_EQ(WEXITSTATUS(status), isTrue ? kTrue : kFalse);
  }
  void ExpectPossible(bool (*what)(const fs::path& folder)) { Expect(what, true); }
  void ExpectRefused(bool (*what)(const fs::path& folder)) { Expect(what, false); }

  const TemporaryFolder folder_;
};

TEST_F(Confined, ReadsItsFilesAndNoOther) {
  ExpectPossible([](const fs::path& folder) {
    return ReadBytes(folder / "body.step") == "content" && ReadBytes(folder / "other.step") == "content";
  });
  const auto readsASecret = [](const fs::path& folder) { return std::ifstream(folder / "secret").is_open(); };
  Expect(readsASecret, false, true);
  Expect([](const fs::path&) { return std::ifstream("/etc/passwd").is_open(); }, false, true);
}

TEST_F(Confined, WritesIntoItsFolderAndNowhereElse) {
  ExpectPossible([](const fs::path& folder) {
    std::ofstream made(folder / "out/new.glb");
    made << "bytes";
    return made.flush().good() && std::ofstream(folder / "out/old").is_open() &&
           fs::remove(folder / "out/new.glb");
  });
  Expect([](const fs::path& folder) { return std::ofstream(folder / "body.step").is_open(); }, false, true);
  Expect([](const fs::path& folder) { return std::ofstream(folder / "new").is_open(); }, false, true);
}

TEST_F(Confined, ReachesNoNetwork) {
  for (const auto family : {AF_INET, AF_UNIX}) {
    ASSERT_GE(socket(family, SOCK_STREAM, 0), 0) << "possible without confinement";
  }
  ExpectRefused([](const fs::path&) { return socket(AF_INET, SOCK_STREAM, 0) >= 0; });
  ExpectRefused([](const fs::path&) { return socket(AF_UNIX, SOCK_STREAM, 0) >= 0; });
}

TEST_F(Confined, StartsNoProgramAndNoProcess) {
  ExpectRefused([](const fs::path&) {
    execl("/bin/true", "true", nullptr);
    return false;
  });
  ExpectRefused([](const fs::path&) {
    const pid_t child = fork();
    if (child == 0) _exit(0);
    return child > 0;
  });
}

TEST_F(Confined, TouchesNoOtherProcess) {
  ExpectRefused([](const fs::path&) { return kill(getppid(), 0) == 0; });
  ExpectRefused([](const fs::path&) { return ptrace(PTRACE_ATTACH, getppid(), nullptr, nullptr) == 0; });
}

TEST_F(Confined, ComputesInThreadsAndEndsByItsOwnSignals) {
  ExpectPossible([](const fs::path&) {
    bool hasRun = false;
    std::thread([&] { hasRun = true; }).join();
    return hasRun;
  });
  ExpectPossible([](const fs::path&) {
    signal(SIGABRT, [](int) { _exit(1); });
    raise(SIGABRT);
    return false;
  });
}

TEST(ExchangeProgram, SaysWhichGuardsAreInForce) {
  FILE* program = popen("'" VANZET_EXCHANGE_FILE "' --limits", "r");
  ASSERT_NE(program, nullptr);
  std::array<char, 200> bytes = {};
  const std::size_t count = std::fread(bytes.data(), 1, bytes.size(), program);
  EXPECT_EQ(pclose(program), 0);
  EXPECT_THAT(std::string(bytes.data(), count),
              testing::MatchesRegex("landlock (no|[0-9]+)\ncall filter (no|yes)\n"));
}

}  // namespace
}  // namespace vanzet::modeller
