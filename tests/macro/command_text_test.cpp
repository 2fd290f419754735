#include "macro/command_text.h"

#include <cmath>
#include <limits>

#include "macro/macro_fixture.h"

namespace vanzet::macro {
namespace {

using testing::ElementsAre;

TEST(FormatReal, WritesSixDecimalsAndAPoint) {
  EXPECT_EQ(FormatReal(5), "5.000000");
  EXPECT_EQ(FormatReal(12.5), "12.500000");
  EXPECT_EQ(FormatReal(-0.25), "-0.250000");
  EXPECT_EQ(FormatReal(1.0 / 3), "0.333333");
  EXPECT_EQ(FormatReal(2.0 / 3), "0.666667");
}

TEST(FormatReal, KeepsTheSignOfAZero) {
  EXPECT_EQ(FormatReal(0.0), "0.000000");
  EXPECT_EQ(FormatReal(-0.0), "-0.000000");
  EXPECT_EQ(FormatReal(-1e-9), "-0.000000");
}

TEST(FormatReal, WritesNoExponentHoweverLargeOrSmall) {
  EXPECT_EQ(FormatReal(1e21), "1000000000000000000000.000000");
  EXPECT_EQ(FormatReal(1e-7), "0.000000");
  const std::string largest = FormatReal(-std::numeric_limits<double>::max());
  EXPECT_EQ(largest.size(), 1 + 309 + 7U);
  EXPECT_TRUE(largest.starts_with("-179769313486231570"));
}

TEST(FormatInt, WritesPlainDecimals) {
  EXPECT_EQ(FormatInt(30000), "30000");
  EXPECT_EQ(FormatInt(0), "0");
  EXPECT_EQ(FormatInt(std::numeric_limits<std::int32_t>::min()), "-2147483648");
}

class SendLineTest : public test::MacroTest {};

TEST_F(SendLineTest, SendsItsPartsAsOneLine) {
  SendLine("s101=h ", 2.5);
  SendLine("k", std::int32_t{30001}, " p100 ", std::string("as101"), std::string_view(" ek"));
  EXPECT_THAT(TakeLines(), ElementsAre("s101=h 2.500000", "k30001 p100 as101 ek"));
}

}  // namespace
}  // namespace vanzet::macro
