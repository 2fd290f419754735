#include "base/result.h"

#include <gtest/gtest.h>

namespace vanzet {
namespace {

TEST(Fault, TellsFileLineAndColumnBeforeTheText) {
  EXPECT_EQ((Fault{"expected a number, found 'x'", "machine.ini", 14, 3}.Told()),
            "machine.ini:14:3: expected a number, found 'x'");
  EXPECT_EQ((Fault{"is cut short", "a.vdm", 14}.Told()), "a.vdm:14: is cut short");
  EXPECT_EQ((Fault{"cannot be read", "a.vdm"}.Told()), "a.vdm: cannot be read");
}

TEST(Fault, TellsOnlyWhatIsKnown) {
  EXPECT_EQ(Fault{"nothing to do"}.Told(), "nothing to do");
  EXPECT_EQ((Fault{"unknown command", "", 3, 1}.Told()), "3:1: unknown command");
}

TEST(Fault, StaysOnOneLineWhateverItQuotes) {
  EXPECT_EQ((Fault{"unknown 'a\nb'", "x\ty"}.Told()), "x\\ty: unknown 'a\\nb'");
  EXPECT_EQ(Fault{"\x1b[1m W\xC3\xA4hlen \\"}.Told(), "\\x1b[1m W\xC3\xA4hlen \\");
}

TEST(Result, HoldsTheValueOrTheFault) {
  const Result<int> good = 5;
  const Result<int> bad = Fault{"no"};
  ASSERT_TRUE(good);
  EXPECT_EQ(*good, 5);
  ASSERT_FALSE(bad);
  EXPECT_EQ(bad.fault().text, "no");
}

TEST(Result, OfNothingIsDoneOrAFault) {
  EXPECT_TRUE(Result<void>{});
  const Result<void> bad = Fault{"no"};
  ASSERT_FALSE(bad);
  EXPECT_EQ(bad.fault().text, "no");
}

}  // namespace
}  // namespace vanzet
