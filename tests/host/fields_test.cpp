#include "host/fields.h"

#include <gtest/gtest.h>

namespace vanzet::host {
namespace {

TEST(ParseIntPrefix, ReadsTheNumberAndCountsItsCharacters) {
  std::int32_t out = -1;
  EXPECT_EQ(ParseIntPrefix("42 x", out), 2U);
  EXPECT_EQ(out, 42);
  EXPECT_EQ(ParseIntPrefix("  -7", out), 4U) << "white space before the number is among the characters";
  EXPECT_EQ(out, -7);
}

TEST(ParseIntPrefix, LeavesTheOutputAloneWithoutANumber) {
  std::int32_t out = 5;
  for (const char* text : {"", "x1", "99999999999", " "}) {
    EXPECT_EQ(ParseIntPrefix(text, out), 0U) << text;
    EXPECT_EQ(out, 5) << text;
  }
}

TEST(ParseBoolPrefix, IsTrueForAnyNumberButZero) {
  bool out = false;
  EXPECT_EQ(ParseBoolPrefix("5", out), 1U);
  EXPECT_TRUE(out);
  EXPECT_EQ(ParseBoolPrefix("-1", out), 2U);
  EXPECT_TRUE(out);
  EXPECT_EQ(ParseBoolPrefix("0", out), 1U);
  EXPECT_FALSE(out);
  out = true;
  EXPECT_EQ(ParseBoolPrefix("true", out), 0U);
  EXPECT_TRUE(out);
}

TEST(ParseRealPrefix, ReadsWithAPoint) {
  double out = -1;
  EXPECT_EQ(ParseRealPrefix("12.5 abc", out), 4U);
  EXPECT_EQ(out, 12.5);
  EXPECT_EQ(ParseRealPrefix("12,5", out), 2U);
  EXPECT_EQ(out, 12.0);
  EXPECT_EQ(ParseRealPrefix("", out), 0U);
  EXPECT_EQ(ParseRealPrefix("1e999", out), 0U);
  EXPECT_EQ(out, 12.0);
}

TEST(ReadRealField, ReadsANumberAndFailsOnTheWordBehindIt) {
  const std::string text = "12.5 word";
  std::size_t position = 0;
  double out = 0;
  EXPECT_EQ(ReadRealField(text, position, out, 1.0), 4U);
  EXPECT_EQ(out, 12.5);
  EXPECT_EQ(position, 4U);
  EXPECT_EQ(ReadRealField(text, position, out, 1.0), 0U);
  EXPECT_EQ(out, 1.0);
  EXPECT_EQ(position, 5U) << "the position stays behind the blank";
}

TEST(ReadFields, ReportTheCharactersOfTheNumberAlone) {
  const std::string text = "   42  1 ";
  std::size_t position = 0;
  std::int32_t integer = 0;
  EXPECT_EQ(ReadIntField(text, position, integer, -1), 2U);
  EXPECT_EQ(position, 5U);
  bool flag = false;
  EXPECT_EQ(ReadBoolField(text, position, flag, false), 1U);
  EXPECT_TRUE(flag);
  EXPECT_EQ(position, 8U);
  EXPECT_EQ(ReadBoolField(text, position, flag, false), 0U);
  EXPECT_FALSE(flag) << "the default";
  EXPECT_EQ(position, 9U);
}

TEST(ReadIntField, StopsSkippingAtANulAndAtAByteWithItsHighBitSet) {
  for (const std::string& text : {std::string(" \0 7", 4), std::string(" \xC2\xA0 7")}) {
    std::size_t position = 0;
    std::int32_t out = 0;
    EXPECT_EQ(ReadIntField(text, position, out, -1), 0U);
    EXPECT_EQ(out, -1);
    EXPECT_EQ(position, 1U);
  }
}

TEST(ReadIntField, LeavesTheRestOfARealToTheNextRead) {
  const std::string text = "1.5";
  std::size_t position = 0;
  std::int32_t integer = 0;
  double real = 0;
  EXPECT_EQ(ReadIntField(text, position, integer, 0), 1U);
  EXPECT_EQ(integer, 1);
  EXPECT_EQ(ReadRealField(text, position, real, 0.0), 2U);
  EXPECT_EQ(real, 0.5);
}

TEST(ReadIntField, GivesTheDefaultAtAndBeyondTheEnd) {
  std::int32_t out = 0;
  for (std::size_t position : {std::size_t{2}, std::size_t{100}}) {
    EXPECT_EQ(ReadIntField("12", position, out, 3), 0U);
    EXPECT_EQ(out, 3);
    EXPECT_EQ(position, 2U);
  }
}

TEST(FindFirstToken, EndsAtTheNextWhiteSpace) {
  std::size_t length = 0;
  EXPECT_EQ(FindFirstToken("  ab cd", 0, length), 2U);
  EXPECT_EQ(length, 2U);
  EXPECT_EQ(FindFirstToken("ab", 0, length), 0U);
  EXPECT_EQ(length, 2U);
}

TEST(FindFirstToken, HasNoLengthWhenItOpensWithAQuote) {
  std::size_t length = 9;
  EXPECT_EQ(FindFirstToken("  'a text'", 0, length), 2U);
  EXPECT_EQ(length, 0U);
}

TEST(FindFirstToken, IgnoresThePosition) {
  std::size_t length = 0;
  EXPECT_EQ(FindFirstToken("ab cd", 3, length), 0U);
  EXPECT_EQ(length, 2U);
}

TEST(FindFirstToken, IsEmptyAtTheEndOfATextWithoutToken) {
  std::size_t length = 9;
  EXPECT_EQ(FindFirstToken("", 0, length), 0U);
  EXPECT_EQ(length, 0U);
  EXPECT_EQ(FindFirstToken("  ", 0, length), 2U);
  EXPECT_EQ(length, 0U);
}

}  // namespace
}  // namespace vanzet::host
