#include "base/letter_case.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace vanzet {
namespace {

TEST(EqualWithoutCase, ComparesLettersOfTheAlphabetOnly) {
  EXPECT_TRUE(EqualWithoutCase("Common", "cOMMON"));
  EXPECT_FALSE(EqualWithoutCase("Common", "Commons"));
  EXPECT_FALSE(EqualWithoutCase("[", "{"));
  EXPECT_FALSE(EqualWithoutCase("\xC4", "\xE4"));
}

TEST(LessWithoutCase, OrdersAMapWhoseKeysHaveNoCase) {
  std::map<std::string, int, LessWithoutCase> map{{"Tmp", 1}, {"b", 2}};
  EXPECT_EQ(map.find(std::string_view("TMP"))->second, 1);
  EXPECT_EQ(map.begin()->first, "b");
}

}  // namespace
}  // namespace vanzet
