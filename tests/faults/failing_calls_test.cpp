#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

#include "faults/sweep.h"

namespace vanzet::faults {
namespace {

struct Kind {
  const char* family;
  const char* effect;
  bool isLasting = false;  ///< all calls from then on go wrong too, as when a disk is full
};

// clang-format off
constexpr Kind kKinds[] = {
    {"open",   "EACCES"}, {"open",  "EMFILE"}, {"open",  "ENOSPC"},
    {"read",   "EIO"},    {"read",  "EINTR"},  {"read",  "short"},
    {"write",  "ENOSPC"}, {"write", "EIO"},    {"write", "EINTR"}, {"write", "short"}, {"write", "ENOSPC", true},
    {"sync",   "EIO"},    {"name",  "EACCES"}, {"name",  "ENOSPC"},
    {"lock",   "ENOLCK"}, {"lock",  "EINTR"},  {"map",   "ENOMEM"},
    {"memory", "ENOMEM"},
};
// clang-format on

class FailingCalls : public testing::TestWithParam<Command> {};

TEST_P(FailingCalls, LeaveTheOldStateOrTheNewOneAndAReason) {
  const Case work(GetParam());
  const Workplace place;
  std::mt19937 random(Seed());
  for (const Kind& kind : kKinds) {
    if (!IsTried(kind.family)) continue;
    // Where Open CASCADE gets no memory for a part of a mesh, it can leave that part out without a word.
    for (const long number : Draw(work.counts.at(kind.family), random)) {
      const std::string lasting = kind.isLasting ? "+ " : " ";
      Try(work, place, kind.family + (" " + std::to_string(number)) + lasting + kind.effect);
    }
  }
}

TEST_P(FailingCalls, SignalsLeaveTheOldStateOrTheNewOne) {
  const Case work(GetParam());
  const Workplace place;
  std::mt19937 random(Seed());
  for (const char* signal : {"SIGKILL", "SIGTERM", "SIGINT", "SIGHUP"}) {
    for (const long number : Draw(work.counts.at("file"), random)) {
      Try(work, place, "file " + std::to_string(number) + " " + signal);
    }
  }
}

TEST(CallsOfARun, PutNothingOnTheDiskThatTheRunAloneNeeds) {
  const auto script = std::ranges::find(Commands(), "Script", &Command::name);
  const Case work(*script);
  // Two transactions of the store, each with its journal, and the drawing between them.
  EXPECT_LE(work.counts.at("sync"), 12);
}

/// Runs a command with its first call of a family failing, then with its second, until it makes no such call,
/// and has each run looked at. `fault` is written after the number: "+ ENOLCK lathe/store.lock".
void FailEachCall(const char* command, const std::string& family, const std::string& fault,
                  const std::function<void(const Outcome& run)>& look) {
  const Case work(*std::ranges::find(Commands(), command, &Command::name));
  const Workplace place;
  for (long number = 1;; ++number) {
    SCOPED_TRACE(family + " " + std::to_string(number) + fault);
    place.CopyFrom(work.before);
    const Outcome run = place.Vanzet(work.command.words, family + " " + std::to_string(number) + fault);
    if (run.report.empty()) break;
    look(run);
  }
}

TEST(FailingLocks, AreAskedForAgainWhereTheSystemHasNoneAtTheMoment) {
  FailEachCall("Upgrade", "lock", " ENOLCK lathe/store.lock",
               [](const Outcome& run) { EXPECT_EQ(run.status, 0) << run.err; });
}

TEST(FailingLocks, AreOneLineWhereTheSystemNeverHasOne) {
  FailEachCall("Upgrade", "lock", "+ ENOLCK lathe/store.lock", [](const Outcome& run) {
    // The end of the process releases what could not be released before.
    if (run.status == 0) return;
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err,
                testing::MatchesRegex("vanzet: [^\n]*/lathe/store.lock: cannot be locked: [^\n]*\n"));
  });
}

// Some thousand allocations of a definition are for meshes; what the kernel leaves out for lack of memory
// must not become another mesh.
TEST(FailingMemory, ChangesNoMesh) {
  constexpr long kPoints = 40;
  const Case work(*std::ranges::find(Commands(), "Define", &Command::name));
  const Workplace place;
  for (long i = 1; i <= kPoints; ++i) {
    Try(work, place, "memory " + std::to_string(work.counts.at("memory") * i / kPoints) + " ENOMEM");
  }
}

TEST(FailingReads, OfAStoreAreNotTakenForDamage) {
  for (const char* const name : {"StoreCheck", "StoreRepair"}) {
    const Case work(*std::ranges::find(Commands(), name, &Command::name));
    const Workplace place;
    for (long number = 1; number <= work.counts.at("read"); ++number) {
      Try(work, place, "read " + std::to_string(number) + " EIO");
    }
  }
}

TEST(FailingOpens, OfATranscriptAreNotADialogThatWasNotOpened) {
  FailEachCall("ScriptTranscript", "open", " EACCES transcript.jsonl", [](const Outcome& run) {
    EXPECT_EQ(run.status, 1) << run.out;
    EXPECT_THAT(run.err, testing::HasSubstr("transcript.jsonl: cannot be "));
  });
}

TEST(FailingOpens, HideNoFindingOfACheck) {
  const auto check = std::ranges::find(Commands(), "StoreCheck", &Command::name);
  const Case work(*check);
  const Workplace place;
  for (long number = 1;; ++number) {
    place.CopyFrom(work.before);
    std::filesystem::create_directories(place.work() / "lathe/tmp/4711");
    const Outcome run =
        place.Vanzet(work.command.words, "open " + std::to_string(number) + " EACCES lathe/tmp");
    EXPECT_EQ(run.status, run.report.empty() ? 3 : 1) << number << ": " << run.out;
    if (run.report.empty()) break;
  }
}

INSTANTIATE_TEST_SUITE_P(Of, FailingCalls, testing::ValuesIn(Commands()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vanzet::faults
