#include <gmock/gmock.h>

#include <algorithm>

#include "faults/sweep.h"

namespace vanzet::faults {
namespace {

/// A project with a definition, and processes that change it at the same time.
class Crowd : public testing::TestWithParam<int> {
 protected:
  Crowd() {
    place_.PutGivenFiles();
    for (const Words& words :
         {Words{"new", "lathe"}, Words{"upgrade", "lathe"}, Words{"define", "old.json", "lathe"}}) {
      const Outcome run = place_.Vanzet(words);
      if (run.status != 0) throw std::runtime_error(run.err);
    }
  }

  /// Runs all at once, as many as there are; each has output of its own.
  std::vector<Outcome> AllAtOnce(const std::vector<Words>& all) const {
    std::vector<int> processes;
    for (const Words& words : all) {
      processes.push_back(place_.Start(words, "", std::to_string(processes.size())));
    }
    std::vector<Outcome> runs;
    for (const int process : processes) runs.push_back(place_.Finish(process, std::to_string(runs.size())));
    return runs;
  }

  std::string Store() const { return ContentOf(place_.work())["lathe/store.db"]; }

  Workplace place_;
};

TEST_P(Crowd, OfDefinitionsLeavesOneOfThemWhole) {
  const std::string old = Store();
  std::vector<Words> definitions;
  std::vector<std::string> wanted;
  for (int i = 0; i < GetParam(); ++i) {
    const std::string form = "form" + std::to_string(i) + ".json";
    test::WriteBytes(place_.work() / form, FormOf(50 + i));
    definitions.push_back({"define", form, "lathe"});
    ASSERT_EQ(place_.Vanzet(definitions.back()).status, 0);
    wanted.push_back(Store());
  }
  for (long round = 0; round < Points(); ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    ASSERT_EQ(place_.Vanzet({"define", "old.json", "lathe"}).status, 0);
    const std::vector<Outcome> runs = AllAtOnce(definitions);
    std::vector<std::string> possible;
    for (std::size_t i = 0; i < runs.size(); ++i) {
      if (runs[i].status == 0) possible.push_back(wanted[i]);
      if (runs[i].status == 0) continue;
      EXPECT_EQ(runs[i].status, 1) << runs[i].err;
      EXPECT_EQ(std::ranges::count(runs[i].err, '\n'), 1) << runs[i].err;
    }
    if (possible.empty()) possible.push_back(old);
    EXPECT_TRUE(std::ranges::find(possible, Store()) != possible.end())
        << "the store holds none of those done";
  }
}

TEST_P(Crowd, OfDevicesSavedLosesNone) {
  std::vector<Words> scripts;
  for (int i = 0; i < GetParam(); ++i) {
    const std::string script = "device" + std::to_string(i) + ".txt";
    test::WriteBytes(place_.work() / script,
                     "answer yes\nselect 36\nset 2123 \"Chuck X" + std::to_string(i) +
                         "\"\nset 2031 80\nset 2033 90\nset 2034 20\npress 2152\nclose\n");
    scripts.push_back({"script", "lathe", script});
  }
  const std::vector<Outcome> runs = AllAtOnce(scripts);
  const std::string catalogue = test::ReadBytes(place_.work() / "lathe/clampdevice.cld");
  for (std::size_t i = 0; i < runs.size(); ++i) {
    const std::string name = "Chuck X" + std::to_string(i) + "\n";
    const bool isThere = catalogue.find(name) != std::string::npos;
    EXPECT_TRUE(isThere || runs[i].status != 0) << name << runs[i].out;
  }
}

INSTANTIATE_TEST_SUITE_P(Of, Crowd, testing::Values(2, 4, 16),
                         [](const auto& number) { return std::to_string(number.param); });

}  // namespace
}  // namespace vanzet::faults
