#include <gtest/gtest.h>

#include "sheet/words.h"
#include "support/catalogues.h"

namespace vanzet::sheet {
namespace {

TEST(Sheet, IsTranslatedIntoEveryLanguage) {
  test::ExpectTranslated(kTextSection, test::MarkedTexts("bench/sheet"));
}

TEST(Words, MeasureInTheUnitOfTheSheet) {
  const Translations english;
  EXPECT_EQ((Words{english}.Measured(42)), "42 mm");
  EXPECT_EQ((Words{english}.Measured(12.34567)), "12.346 mm");
  EXPECT_EQ((Words{english, LengthUnit::kInch}.Measured(42)), "1.6535 inch");
}

TEST(Words, PutATermIntoItsPlaceOnce) {
  const Translations english;
  EXPECT_EQ(Words{english}.With("Drawing of %1", "a %1"), "Drawing of a %1");
}

}  // namespace
}  // namespace vanzet::sheet
