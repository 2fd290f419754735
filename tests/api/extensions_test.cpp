#include <gtest/gtest.h>

#include "api/host_fixture.h"

namespace vanzet::test {
namespace {

using Extensions = HostTest;

TEST_F(Extensions, ShowAFaultOfTheModuleWithItsPlace) {
  VanzetReportFault("unknown control '9999'", "job.txt", 2, 7, "press 9999", 0);
  EXPECT_THAT(panel.lines, testing::ElementsAre("job.txt:2:7: unknown control '9999'"));
}

TEST_F(Extensions, TakeNullTextsAndUnknownKinds) {
  VanzetReportFault("the disk is full", nullptr, 0, 0, nullptr, 99);
  EXPECT_THAT(panel.lines, testing::ElementsAre("the disk is full"));
}

TEST_F(Extensions, KeepTheWorkOfAnEventWhereTheHostAsksForIt) {
  EXPECT_EQ(VanzetEventHandled(), 1);
  host->keepEvent = [] { return Result<void>(Fault{"the disk is full"}); };
  EXPECT_EQ(VanzetEventHandled(), 0);
  host->keepEvent = [] { return Result<void>(); };
  EXPECT_EQ(VanzetEventHandled(), 1);
}

TEST_F(Extensions, SayWhetherTheSystemHasFailed) {
  VanzetReportFault("unknown control '9999'", "job.txt", 2, 7, "press 9999",
                    static_cast<std::int32_t>(FaultKind::kRefused));
  EXPECT_EQ(VanzetHasFailed(), 0);
  VanzetReportFault("the disk is full", nullptr, 0, 0, nullptr,
                    static_cast<std::int32_t>(FaultKind::kSystem));
  EXPECT_EQ(VanzetHasFailed(), 1);
}

TEST_F(Extensions, DoNothingWithoutAHost) {
  scope.reset();
  VanzetReportFault("nobody hears this", nullptr, 0, 0, nullptr, 0);
  EXPECT_EQ(VanzetEventHandled(), 1);
  EXPECT_EQ(VanzetHasFailed(), 0);
  EXPECT_THAT(panel.lines, testing::IsEmpty());
}

}  // namespace
}  // namespace vanzet::test
