#include "view/qt/texts.h"

#include <gtest/gtest.h>

#include "support/catalogues.h"
#include "view/qt/labels.h"
#include "view/qt/page_layouts.h"

namespace vanzet::view::qt {
namespace {

class TextsTest : public testing::Test {
 protected:
  ~TextsTest() override { qputenv("VANZET_LANGUAGE", "en"); }
};

TEST_F(TextsTest, AreInTheLanguageThatIsNamed) {
  EXPECT_EQ(Translate("%1 must be less than %2."), QStringLiteral("%1 must be less than %2."));
  qputenv("VANZET_LANGUAGE", "de_AT");
  EXPECT_EQ(Translate("%1 must be less than %2."), QStringLiteral("%1 muss kleiner als %2 sein."));
  EXPECT_EQ(LanguageOfTexts(), QStringLiteral("de"));
}

TEST_F(TextsTest, AreEnglishWithoutACatalogue) {
  qputenv("VANZET_LANGUAGE", "fr");
  EXPECT_EQ(Translate("Not used"), QStringLiteral("Not used"));
  EXPECT_EQ(LanguageOfTexts(), QStringLiteral("en"));
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
  std::set<std::string> texts = test::MarkedTexts("src/view/qt");
  texts.merge(TextsOfTables());
  test::ExpectTranslated("view", texts);
}

TEST(MnemonicsTest, AreTheFirstFreeLetterThatBeginsAWord) {
  Mnemonics mnemonics;
  EXPECT_EQ(mnemonics.Mark(QStringLiteral("Load Configuration")), QStringLiteral("&Load Configuration"));
  EXPECT_EQ(mnemonics.Mark(QStringLiteral("Long Cut")), QStringLiteral("Long &Cut"));
  EXPECT_EQ(mnemonics.Mark(QStringLiteral("LLC")), QStringLiteral("LLC")) << "none is free";
  EXPECT_EQ(mnemonics.Mark(QStringLiteral("L&o")), QStringLiteral("L&&&o"));
}

TEST(MnemonicsTest, KeepToLettersOfEveryKeyboard) {
  EXPECT_EQ(Mnemonics().Mark(QStringLiteral("\u00D6l")), QStringLiteral("\u00D6&l"));
  EXPECT_EQ(Mnemonics().Mark(QStringLiteral(">>")), QStringLiteral(">>"));
}

TEST(MnemonicsTest, LeaveReservedLettersAlone) {
  Mnemonics mnemonics;
  mnemonics.Reserve(QStringLiteral("AB"));
  EXPECT_EQ(mnemonics.Mark(QStringLiteral("abc")), QStringLiteral("ab&c"));
  mnemonics.Release(QStringLiteral("AB"));
  EXPECT_EQ(mnemonics.Mark(QStringLiteral("ab")), QStringLiteral("&ab"));
}

TEST(MnemonicsTest, LeadToAValueByItsLetter) {
  Mnemonics mnemonics;
  mnemonics.Reserve(QStringLiteral("AB"));
  EXPECT_EQ(mnemonics.Mark(QStringLiteral("A")), QStringLiteral("&A"));
}

}  // namespace
}  // namespace vanzet::view::qt
