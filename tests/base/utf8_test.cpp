#include "base/utf8.h"

#include <gtest/gtest.h>

namespace vanzet {
namespace {

TEST(Utf8, HasCharactersOfOneToFourBytes) {
  EXPECT_EQ(Utf8Length("a"), 1U);
  EXPECT_EQ(Utf8Length(std::string_view("\0", 1)), 1U);
  EXPECT_EQ(Utf8Length("\xC3\xA4hnlich"), 2U);
  EXPECT_EQ(Utf8Length(kNoUtf8), 3U);
  EXPECT_EQ(Utf8Length("\xF4\x8F\xBF\xBF"), 4U) << "the last character there is";
}

TEST(Utf8, HasNoOtherCharacters) {
  EXPECT_EQ(Utf8Length(""), 0U);
  EXPECT_EQ(Utf8Length("\xE4hnlich"), 0U) << "Latin-1";
  EXPECT_EQ(Utf8Length("\x80"), 0U) << "a byte that goes on with nothing";
  EXPECT_EQ(Utf8Length("\xE2\x82"), 0U) << "cut short";
  EXPECT_EQ(Utf8Length("\xC0\x80"), 0U) << "longer than needed";
  EXPECT_EQ(Utf8Length("\xED\xA0\x80"), 0U) << "half of a pair";
  EXPECT_EQ(Utf8Length("\xF4\x90\x80\x80"), 0U) << "beyond the last character";
  EXPECT_EQ(Utf8Length("\xFF"), 0U);
}

TEST(Utf8, IsMadeOfCharacters) {
  std::string text;
  for (const std::uint32_t character : {0x41U, 0xE4U, 0x20ACU, 0x1F529U, 0xD800U, 0x110000U}) {
    AppendUtf8(text, character);
  }
  EXPECT_EQ(text, "A\xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\xA9" + std::string(kNoUtf8) + std::string(kNoUtf8));
}

}  // namespace
}  // namespace vanzet
