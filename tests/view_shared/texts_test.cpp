#include "view/shared/texts.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/catalogues.h"
#include "view/shared/page_layouts.h"

namespace vanzet::view {
namespace {

class TextsTest : public testing::Test {
 protected:
  TextsTest() {
    SetLocale({[] { return std::string("de_AT"); },
               [](const std::string& language) { return language == "de" ? ',' : '.'; }});
  }
  ~TextsTest() override { setenv("VANZET_LANGUAGE", "en", 1); }
};

TEST_F(TextsTest, AreInTheLanguageThatIsNamed) {
  EXPECT_EQ(Translate("%1 must be less than %2."), "%1 must be less than %2.");
  setenv("VANZET_LANGUAGE", "de_CH", 1);
  EXPECT_EQ(Translate("%1 must be less than %2."), "%1 muss kleiner als %2 sein.");
  EXPECT_EQ(LanguageOfTexts(), "de");
}

TEST_F(TextsTest, AreInTheLanguageOfTheLocaleWhereNoneIsNamed) {
  EXPECT_EQ(DecimalSign(), '.');
  unsetenv("VANZET_LANGUAGE");
  EXPECT_EQ(LanguageOfTexts(), "de");
  EXPECT_EQ(DecimalSign(), ',');
}

TEST_F(TextsTest, AreEnglishWithoutACatalogue) {
  setenv("VANZET_LANGUAGE", "fr", 1);
  EXPECT_EQ(Translate("Not used"), "Not used");
  EXPECT_EQ(LanguageOfTexts(), "en");
}

TEST_F(TextsTest, TakeValuesInTheirPlaces) {
  EXPECT_EQ(Filled("%2 of %1, 5 % %3 %", {"%2", "b"}), "b of %2, 5 % %3 %");
}

/// The texts of the tables of pages and devices, but empty ones.
std::set<std::string> TextsOfTables() {
  std::set<std::string> texts;
  for (const PageLayout& layout : PageLayouts()) {
    texts.insert(layout.noPicture);
    for (const FieldGroup& group : layout.groups) {
      texts.insert(group.title);
      for (const FieldRow& row : group.rows) texts.insert(row.name);
    }
  }
  for (std::int32_t type = 0; type < 200; ++type) {
    for (char letter = 'A'; letter <= 'J'; ++letter) {
      if (const devices::Letter* const named = FindNamedLetter(type, letter)) texts.insert(named->name);
    }
  }
  texts.erase("");
  return texts;
}

TEST_F(TextsTest, AreTranslatedIntoEveryLanguage) {
  std::set<std::string> texts = test::MarkedTexts("src/view");
  texts.merge(TextsOfTables());
  test::ExpectTranslated("view", texts);
}

}  // namespace
}  // namespace vanzet::view
