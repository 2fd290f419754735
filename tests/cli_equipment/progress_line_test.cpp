#include "cli/progress_line.h"

#include <gtest/gtest.h>

#include <sstream>

namespace vanzet::cli {
namespace {

TEST(ProgressLine, ShowsWorkThatTakesLongAndErasesItself) {
  std::ostringstream terminal;
  std::chrono::steady_clock::time_point now;
  {
    ProgressLine line(terminal, [&] { return now; });
    line.Report(0.1);
    EXPECT_EQ(terminal.str(), "") << "nobody has waited yet";
    now += std::chrono::seconds(1);
    line.Report(0.25);
    line.Report(0.2599);
    EXPECT_EQ(terminal.str(), "\r\x1b[K3D files: 25 %");
    line.Report(1);
  }
  EXPECT_EQ(terminal.str(), "\r\x1b[K3D files: 25 %\r\x1b[K3D files: 100 %\r\x1b[K");
}

TEST(ProgressLine, MakesRoomForOtherTexts) {
  std::ostringstream terminal;
  std::chrono::steady_clock::time_point now;
  ProgressLine line(terminal, [&] { return now; });
  now += std::chrono::seconds(1);
  line.Show("1 of 2");
  line.Erase();
  line.Erase();
  line.Show("1 of 2");
  EXPECT_EQ(terminal.str(), "\r\x1b[K1 of 2\r\x1b[K\r\x1b[K1 of 2");
}

TEST(ProgressLine, WritesNothingWithoutAReport) {
  std::ostringstream terminal;
  { const ProgressLine line(terminal); }
  EXPECT_EQ(terminal.str(), "");
}

}  // namespace
}  // namespace vanzet::cli
