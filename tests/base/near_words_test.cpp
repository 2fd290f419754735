#include "base/near_words.h"

#include <gmock/gmock.h>

namespace vanzet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(NearWords, AreThoseOfSimilarSpellingInTheirOrder) {
  EXPECT_THAT(NearWords("shwo", {"script", "show", "store"}), ElementsAre("show"));
  EXPECT_THAT(NearWords("lathes", {"mill-turn", "lathe", "late"}), ElementsAre("lathe", "late"));
  EXPECT_THAT(NearWords("dance", {"script", "show", ""}), IsEmpty());
}

TEST(NearWords, OfALetterAreNone) {
  EXPECT_THAT(NearWords("Z", {"spur", "A", "B"}), IsEmpty());
}

TEST(NearWords, OfAVeryLongWordAreNone) {
  EXPECT_THAT(NearWords(std::string(100000, 'x'), {"spur", "outer_diameter"}), IsEmpty());
}

TEST(NearWords, AreThoseOfWhichOneIsAPart) {
  EXPECT_THAT(NearWords("mill", {"lathe", "mill-turn"}), ElementsAre("mill-turn"));
  EXPECT_THAT(NearWords("outer_diameter_of_the_part", {"outer_diameter"}), ElementsAre("outer_diameter"));
}

TEST(NearWords, DoNotMatchByAPartThatIsShort) {
  EXPECT_THAT(NearWords("tu", {"mill-turn"}), IsEmpty());
}

TEST(NearWords, CountCapitalsAsSmallLetters) {
  EXPECT_THAT(NearWords("SOFT JAW", {"Soft jaw 160", "Chuck 160"}), ElementsAre("Soft jaw 160"));
}

TEST(DidYouMean, NamesTheNearestFirstAndAtMostThree) {
  EXPECT_EQ(DidYouMean("shwo", {"new", "show", "shop"}), "; did you mean 'show' or 'shop'?");
  EXPECT_EQ(DidYouMean("aaa", {"aab", "aac", "aad", "aaa1"}), "; did you mean 'aab' or 'aac' or 'aad'?");
  EXPECT_EQ(DidYouMean("dance", {"new", "show"}), "");
}

TEST(DidYouMean, NamesPartsOnlyWhereNoSpellingIsSimilar) {
  EXPECT_EQ(DidYouMean("main/chuk", {"main", "main/chuck"}), "; did you mean 'main/chuck'?");
  EXPECT_EQ(DidYouMean("chuck", {"main", "main/chuck"}), "; did you mean 'main/chuck'?");
}

}  // namespace
}  // namespace vanzet
