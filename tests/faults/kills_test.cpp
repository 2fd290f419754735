#include <gmock/gmock.h>

#include <csignal>
#include <thread>

#include "faults/sweep.h"

namespace vanzet::faults {
namespace {

class RandomKills : public testing::TestWithParam<Command> {};

/// Kills a run of the command at that moment, unless it has ended before.
Outcome RunUntil(std::chrono::microseconds moment, const Case& work, const Workplace& place) {
  place.CopyFrom(work.before);
  const int process = place.Start(work.command.words);
  std::this_thread::sleep_for(moment);
  kill(process, SIGKILL);
  return place.Finish(process);
}

TEST_P(RandomKills, AtAnyMomentLeaveTheOldStateOrTheNewOne) {
  const Case work(GetParam());
  const Workplace place;
  std::mt19937 random(Seed());
  std::uniform_int_distribution<long> moments(0, work.time.count());
  for (long i = 0; i < Kills(); ++i) {
    const std::chrono::microseconds moment(moments(random));
    SCOPED_TRACE("killed after " + std::to_string(moment.count()) + " us");
    Check(work, place, RunUntil(moment, work, place));
  }
}

INSTANTIATE_TEST_SUITE_P(Of, RandomKills, testing::ValuesIn(Commands()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vanzet::faults
