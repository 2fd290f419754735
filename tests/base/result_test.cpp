#include "base/result.h"

#include <gtest/gtest.h>

#include <memory>

namespace vanzet {
namespace {

TEST(Fault, TellsFileLineAndColumnBeforeTheText) {
  EXPECT_EQ((Fault{"expected a number, found 'x'", "machine.ini", 14, 3}.Message()),
            "machine.ini:14:3: expected a number, found 'x'");
  EXPECT_EQ((Fault{"is cut short", "a.vdm", 14}.Message()), "a.vdm:14: is cut short");
  EXPECT_EQ((Fault{"cannot be read", "a.vdm"}.Message()), "a.vdm: cannot be read");
}

TEST(Fault, TellsOnlyWhatIsKnown) {
  EXPECT_EQ(Fault{"nothing to do"}.Message(), "nothing to do");
  EXPECT_EQ((Fault{"unknown command", "", 3, 1}.Message()), "3:1: unknown command");
}

TEST(Fault, StaysOnOneLineWhateverItQuotes) {
  EXPECT_EQ((Fault{"unknown 'a\nb'", "x\ty"}.Message()), "x\\ty: unknown 'a\\nb'");
  EXPECT_EQ(Fault{"\x1b[1m W\xC3\xA4hlen \\"}.Message(), "\\x1b[1m W\xC3\xA4hlen \\");
}

TEST(Fault, GivesATerminalNothingToActOn) {
  EXPECT_EQ((Fault{"\x7F\xC2\x9B[2J \x9B[2J"}.Message()), "\\x7f\\xc2\\x9b[2J \\x9b[2J");
  EXPECT_EQ((Fault{"W\xE4hlen \xC3\x9B \xC2\xA0"}.Message()), "W\xE4hlen \xC3\x9B \xC2\xA0")
      << "letters stay";
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

Result<int> Half(int number) {
  if (number % 2 != 0) return Fault{std::to_string(number) + " is odd"};
  return number / 2;
}

Result<int> Quarter(int number) {
  VANZET_TRY(const int half, Half(number));
  VANZET_TRY(const int quarter, Half(half));
  return quarter;
}

Result<void> CheckQuarter(int number, bool& isChecked) {
  VANZET_DO(Half(number) ? Result<void>() : Fault{"no half"});
  isChecked = true;
  return {};
}

TEST(Try, DeclaresTheValueOrReturnsTheFault) {
  EXPECT_EQ(*Quarter(12), 3);
  EXPECT_EQ(Quarter(7).fault().text, "7 is odd");
  EXPECT_EQ(Quarter(6).fault().text, "3 is odd");
}

TEST(Try, MovesTheValueOut) {
  const auto moved = []() -> Result<std::size_t> {
    VANZET_TRY(const auto owner, Result<std::unique_ptr<int>>(std::make_unique<int>(4)));
    return static_cast<std::size_t>(*owner);
  }();
  EXPECT_EQ(*moved, 4U);
}

TEST(Do, GoesOnOrReturnsTheFault) {
  bool isChecked = false;
  EXPECT_EQ(CheckQuarter(3, isChecked).fault().text, "no half");
  EXPECT_FALSE(isChecked);
  EXPECT_TRUE(CheckQuarter(4, isChecked));
  EXPECT_TRUE(isChecked);
}

TEST(Fault, IsARefusalUnlessItSaysOtherwise) {
  EXPECT_EQ(Fault{"no"}.kind, FaultKind::kRefused);
  EXPECT_EQ((Fault{.text = "no such VDM", .kind = FaultKind::kMissing}).kind, FaultKind::kMissing);
}

}  // namespace
}  // namespace vanzet
