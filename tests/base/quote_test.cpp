#include "base/quote.h"

#include <gtest/gtest.h>

namespace vanzet {
namespace {

TEST(Quote, ShowsAWordOfUpToFortyCharactersWhole) {
  EXPECT_EQ(Quoted(""), "''");
  EXPECT_EQ(Quoted("x"), "'x'");
  EXPECT_EQ(Quoted(std::string(40, 'x')), "'" + std::string(40, 'x') + "'");
}

TEST(Quote, CutsALongerWordAfterFortyCharacters) {
  EXPECT_EQ(Quoted(std::string(41, 'x')), "'" + std::string(40, 'x') + "...'");
}

TEST(Quote, CutsNoCharacterInTwo) {
  std::string umlauts;
  for (int i = 0; i < 40; ++i) umlauts += "\xC3\xBC";
  EXPECT_EQ(Quoted(umlauts), "'" + umlauts + "'");
  EXPECT_EQ(Quoted(umlauts + "x"), "'" + umlauts + "...'");
}

TEST(Quote, CountsAByteThatIsNotUtf8AsACharacter) {
  EXPECT_EQ(Quoted(std::string(41, '\xFF')), "'" + std::string(40, '\xFF') + "...'");
}

}  // namespace
}  // namespace vanzet
