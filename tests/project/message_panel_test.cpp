#include "project/message_panel.h"

#include <gtest/gtest.h>

#include <vector>

namespace vanzet::project {
namespace {

class KeepingPanel final : public MessagePanel {
 public:
  std::vector<std::string> lines;

 private:
  void Show(const Fault& fault) override { lines.push_back(fault.Message()); }
};

Fault FullDisk(const std::string& line = "") {
  const Fault fault{.text = "the disk is full", .file = "store.db", .kind = FaultKind::kSystem};
  return line.empty() ? fault : Fault{.text = fault.Message(), .file = line, .kind = fault.kind};
}

TEST(MessagePanel, ShowsALastingCauseOnceAndCountsEachFault) {
  KeepingPanel panel;
  for (int call = 0; call < 13; ++call) panel.Tell(FullDisk());
  EXPECT_EQ(panel.lines, std::vector<std::string>{"store.db: the disk is full"});
  EXPECT_EQ(panel.faults(), 13);
}

TEST(MessagePanel, KnowsALastingCauseBehindTheMacroLineThatMetIt) {
  KeepingPanel panel;
  panel.Tell(FullDisk("'red -1'"));
  panel.Tell(FullDisk("'s100=h 0'"));
  panel.Tell(FullDisk());
  EXPECT_EQ(panel.lines, std::vector<std::string>{"'red -1': store.db: the disk is full"});
}

TEST(MessagePanel, ShowsEachCause) {
  KeepingPanel panel;
  panel.Tell(FullDisk());
  panel.Tell({.text = "is damaged", .file = "store.db", .kind = FaultKind::kDamaged});
  panel.Tell({.text = "VDM 1000 is open elsewhere", .kind = FaultKind::kBusy});
  panel.Tell({.text = "VDM 1001 is open elsewhere", .kind = FaultKind::kBusy});
  EXPECT_EQ(panel.lines.size(), 4U);
}

TEST(MessagePanel, KnowsWhetherTheSystemHasFailed) {
  KeepingPanel panel;
  panel.Tell({"unknown command 'rubbish'", "'rubbish'", 1});
  panel.Tell({.text = "is damaged", .file = "drawing.txt", .kind = FaultKind::kDamaged});
  EXPECT_FALSE(panel.HasSystemFailed());
  panel.Tell(FullDisk());
  EXPECT_TRUE(panel.HasSystemFailed());
  panel.BeginRun();
  EXPECT_FALSE(panel.HasSystemFailed());
}

TEST(MessagePanel, ShowsNoRefusalOfACallThatFollowsFromAFailureOfTheSystem) {
  KeepingPanel panel;
  panel.TellOfCall({"s101 does not exist", "'p100=s101 s104'", 6});
  panel.TellOfCall(FullDisk());
  panel.TellOfCall({"s102 does not exist", "'p100=s102 s104'", 6});
  panel.TellOfCall({.text = "cannot be locked", .file = "store.lock", .kind = FaultKind::kSystem});
  EXPECT_EQ(panel.lines,
            (std::vector<std::string>{"'p100=s101 s104':6: s101 does not exist", "store.db: the disk is full",
                                      "store.lock: cannot be locked"}));
  EXPECT_EQ(panel.faults(), 4);
}

TEST(MessagePanel, ShowsARefusalEachTime) {
  KeepingPanel panel;
  for (int call = 0; call < 2; ++call) panel.Tell({"unknown command 'rubbish'", "'rubbish'", 1});
  EXPECT_EQ(panel.lines.size(), 2U);
}

TEST(MessagePanel, ShowsALastingCauseAgainInTheNextRun) {
  KeepingPanel panel;
  panel.Tell(FullDisk());
  panel.BeginRun();
  panel.Tell(FullDisk());
  EXPECT_EQ(panel.lines.size(), 2U);
}

TEST(MessagePanel, CountsWhatWasReportedElsewhereWithoutShowingIt) {
  KeepingPanel panel;
  panel.Tell(ReportedFault());
  EXPECT_TRUE(panel.lines.empty());
  EXPECT_EQ(panel.faults(), 1);
}

}  // namespace
}  // namespace vanzet::project
