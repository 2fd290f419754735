#include <sstream>
#include <tuple>

#include "dialog/dialog_fixture.h"
#include "support/failing_call.h"

namespace vanzet::test {
namespace {

/// A person's work from the first click to the end, on a machine that has all.
struct Story {
  const char* name;
  const char* script;

  friend void PrintTo(const Story& story, std::ostream* out) { *out << story.name; }
};

constexpr Story kStories[] = {
    {"devices",
     "select 3\nchoose 2124 0\npress 2154\nselect 4\nchoose 2124 0\nset 2141 1\npress 2154\n"
     "select 3\nset 2021 /own.vdm\npress 2155\nselect 15\nchoose 2124 0\npress 2154\ncontext 2 51000\n"},
    {"billets",
     "select 19\npress 2006\npress 2018\nset 2022 80\nset 2023 100\npress 2016\nselect 24\npress 2010\n"
     "press 2015\nselect 21\npress 2018\npress 2015\ncontext 18 51000\n"},
    {"the_rest",
     "select 32\npress 2018\npress 2015\nselect 34\npress 2201\nset 2207 5\npress 2015\nselect 16\nset 2019 "
     "1\n"
     "press 2015\nselect 36\nchoose 2123 0\nanswer yes\npress 2152\nset 2123 \"Chuck 1\"\nanswer yes\npress "
     "2127\n"
     "press 2012\ncontext 33 51000\n"},
    {"load_and_ok",
     "file \"/old.vdm\"\nanswer yes\npress 2144\nfile \"/no/such/folder/x.vdm\"\npress 2153\npress 1\n"},
};

/// A world in which every step of the stories works.
struct FullWorld : DialogWorld {
  FullWorld() {
    SetMachine({.sub = true, .tail = true, .lun = true});
    WriteBytes(catalogue, "Chuck 1\n1 80 90 20\nJaw 1\n5 1 2 3 4 5 6 7 8\nCenter 1\n13 1 2 3 4 5 6 7\n");
    files["/own.vdm"] = {{"2 1 0"}, {"2 1 4 1 1 1 0", "Label", "#VRML V2.0 utf8\n", "3 0 5"}};
    auto old = host.vdms[1000].records;
    old[1][3] = "1 80 90 20";
    old[2][3] = "2 10 20 30 4 5 1";
    old[10][3] = "13 40 20 10 5 60 10 60";
    files["/old.vdm"] = old;
    positions = {{0, 40, 20}, {0, 7, 3}};
    figures = {{151, 3}};
    figureNames = {{3, "shaft"}};
    host.bodies.byNumber = {{7, {"Part", false, {0, 0, 0, 0.1, 0.05, 1}}}};
    host.bodies.picks = {7, 7, 7};
    host.integers["i_return"] = 17;
    host.environment["HideBilletOut"] = "1";
    host.calls.clear();
  }
};

/// True for a function whose failure leaves its own mark on what is stored.
bool Stores(const std::string& name) {
  for (const char* reading : {"OrvoMacroVdmExists", "OrvoMacroVdmOpen", "OrvoMacroVdmCheckOpen"}) {
    if (name == reading) return false;
  }
  return name.starts_with("OrvoMacroVdm") || name == "OrvoCommand";
}

/// The records whose header does not count the items that they have.
std::vector<std::size_t> HalfRecords(const FakeHost::Vdm& vdm) {
  std::vector<std::size_t> half;
  for (std::size_t i = 0; i < vdm.records.size(); ++i) {
    std::istringstream header(vdm.records[i].front());
    std::size_t kind = 0, flag = 0, sections = 0, items = 1;
    header >> kind >> flag >> sections;
    for (std::size_t count = 0; header >> count;) items += count;
    if (items != vdm.records[i].size()) half.push_back(i);
  }
  return half;
}

/// True for a function by which a host can say no.
bool CanRefuse(const std::string& call) {
  return call.starts_with("OrvoReadGlobal") || call.starts_with("OrvoWriteGlobal$") ||
         call.starts_with("OrvoMacroVdmExists") || call.starts_with("OrvoMacroVdmOpen") ||
         call.starts_with("OrvoMacroVdmCheckOpen");
}

/// The numbers of the calls that a story makes undisturbed; of those that a host can refuse for refusals.
std::vector<int> CallsToTry(const Story& story, Failure failure) {
  FullWorld world;
  const auto events = world.Run(story.script).events;
  for (const std::string& event : events)
    EXPECT_FALSE(event.starts_with("box 0 [")) << "undisturbed: " << event;
  std::vector<int> numbers;
  for (std::size_t i = 0; i < world.host.calls.size(); ++i) {
    const bool isTried = failure == Failure::kMissing || CanRefuse(world.host.calls[i]);
    if (isTried) numbers.push_back(static_cast<int>(i) + 1);
  }
  return numbers;
}

class FailingCalls : public testing::TestWithParam<std::tuple<Story, Failure>> {};

TEST_P(FailingCalls, EndWithTheDialogClosedAndNoRecordHalfWritten) {
  const auto& [story, failure] = GetParam();
  const std::vector<int> numbers = CallsToTry(story, failure);
  EXPECT_GT(numbers.size(), 30U) << "calls were counted";
  for (const int number : numbers) {
    FullWorld world;
    const FailingCall failing(world.host, failure, number);
    const auto events = world.Run(story.script).events;
    const std::string& failed = failing.name();
    ASSERT_NE(failed, "") << "call " << number << " was reached";
    SCOPED_TRACE(failed + ", call " + std::to_string(number));
    ASSERT_FALSE(events.empty());
    EXPECT_TRUE(events.back().starts_with("closed "));
    for (const auto& [vdm, content] : world.host.vdms) {
      // Where closing itself goes wrong, or the host says that nothing is open, it stays so.
      if (failed != "OrvoMacroVdmClose" && failed != "OrvoMacroVdmCheckOpen") {
        EXPECT_EQ(content.handle, 0U) << vdm;
      }
      EXPECT_TRUE(Stores(failed) || HalfRecords(content).empty()) << vdm;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Of, FailingCalls,
                         testing::Combine(testing::ValuesIn(kStories),
                                          testing::Values(Failure::kRefused, Failure::kMissing)),
                         [](const auto& tested) {
                           return std::string(std::get<0>(tested.param).name) +
                                  (std::get<1>(tested.param) == Failure::kRefused ? "_refused" : "_missing");
                         });

}  // namespace
}  // namespace vanzet::test
