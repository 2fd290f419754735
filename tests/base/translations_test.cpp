#include "base/translations.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "support/catalogues.h"
#include "support/temporary_folder.h"

namespace vanzet {
namespace {

using testing::ElementsAre;
using testing::Key;
using testing::Pair;

Translations Read(const std::string& text) {
  const auto translations = Translations::Read(text, "texts.de.txt");
  EXPECT_TRUE(translations) << translations.fault().Message();
  return translations ? *translations : Translations();
}

TEST(TranslationsTest, AreFoundBySectionAndEnglishText) {
  const Translations texts = Read(
      "# German\nlanguage Deutsch\n\n[view]\nEquipment\n= Ausr\u00FCstung\n"
      "  [window]\r\n\tEquipment \r\n=Spannmittel\r\n");
  EXPECT_EQ(texts.LanguageName(), "Deutsch");
  EXPECT_EQ(texts.Translate("view", "Equipment"), "Ausr\u00FCstung");
  EXPECT_EQ(texts.Translate("window", "Equipment"), "Spannmittel");
}

TEST(TranslationsTest, AreTheEnglishTextWhereThereIsNone) {
  const Translations texts = Read("language Deutsch\n[view]\nYes\n= Ja\n");
  EXPECT_EQ(texts.Translate("view", "No"), "No");
  EXPECT_EQ(texts.Translate("window", "Yes"), "Yes");
  EXPECT_EQ(Translations().Translate("view", "Yes"), "Yes");
  EXPECT_EQ(Translations().LanguageName(), "English");
}

TEST(TranslationsTest, MayHoldLineEndsBlanksAndSigns) {
  const Translations texts = Read("\xEF\xBB\xBFlanguage X\n[a]\n\\# \\[x]\\s\n= \\= a\\nb \\\\ = #\n");
  EXPECT_THAT(texts.Sections().at("a"), ElementsAre(Pair("# [x] ", "= a\nb \\ = #")));
}

TEST(TranslationsTest, OfASectionMayBeInTwoPlaces) {
  const Translations texts = Read("language X\n[a]\n1\n= I\n[b]\n1\n= i\n[a]\n2\n= II\n");
  EXPECT_THAT(texts.Sections().at("a"), ElementsAre(Pair("1", "I"), Pair("2", "II")));
}

struct Refusal {
  const char* text;
  const char* message;
  friend void PrintTo(const Refusal& refusal, std::ostream* out) { *out << refusal.message; }
};

class BrokenTranslations : public testing::TestWithParam<Refusal> {};

TEST_P(BrokenTranslations, AreRefusedWithTheirLine) {
  const auto translations = Translations::Read(GetParam().text, "t.txt");
  ASSERT_FALSE(translations);
  EXPECT_EQ(translations.fault().Message(), GetParam().message);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lines, BrokenTranslations, testing::Values(
    Refusal{"", "t.txt: expected 'language NAME'"},
    Refusal{"# only a comment\n", "t.txt: expected 'language NAME'"},
    Refusal{"\nlanguage \n", "t.txt:2:1: expected 'language NAME'"},
    Refusal{"[a]\n", "t.txt:1:1: expected 'language NAME'"},
    Refusal{"language X\nYes\n", "t.txt:2:1: expected '[section]' before the first text"},
    Refusal{"language X\n[a\n", "t.txt:2:1: expected '[section]'"},
    Refusal{"language X\n[]\n", "t.txt:2:1: expected '[section]'"},
    Refusal{"language X\n[a]\n= Ja\n", "t.txt:3:1: expected an English text before its translation"},
    Refusal{"language X\n[a]\nYes\n= Ja\n= Ja\n", "t.txt:5:1: expected an English text before its translation"},
    Refusal{"language X\n[a]\nYes\n  No\n", "t.txt:4:3: expected '= TRANSLATION' after an English text"},
    Refusal{"language X\n[a]\nYes\n[b]\n", "t.txt:4:1: expected '= TRANSLATION' after an English text"},
    Refusal{"language X\n[a]\nYes\n", "t.txt:3: expected '= TRANSLATION' after an English text"},
    Refusal{"language X\n[a]\nYes\n=\n", "t.txt:4:1: the translation is empty"},
    Refusal{"language X\n[a]\nYes\n= Ja\nYes\n", "t.txt:5:1: this text has a translation already"},
    Refusal{"language X\n[a]\nYes\n= J\\a\n",
            "t.txt:4:4: unknown escape: expected \\n, \\s, \\\\, \\#, \\[ or \\="},
    Refusal{"language X\n[a]\n Yes\\\n",
            "t.txt:3:5: unknown escape: expected \\n, \\s, \\\\, \\#, \\[ or \\="},
    Refusal{"language X\n[a]\nY\x01s\n", "t.txt:3: not a text file: the line has a control character"},
    Refusal{"language X\n[a]\nYes\n= J\xFF\n", "t.txt:4:4: expected UTF-8"}),
    [](const auto& refusal) { return "Number" + std::to_string(refusal.index); });
// clang-format on

TEST(BrokenTranslationsTest, QuoteTheirLine) {
  const auto translations = Translations::Read("language X\r\n  [a\r\n", "t.txt");
  EXPECT_EQ(translations.fault().source, "  [a");
}

TEST(LanguageOfLocaleTest, IsItsFirstPartInSmallLetters) {
  EXPECT_EQ(LanguageOfLocale("de_AT.UTF-8"), "de");
  EXPECT_EQ(LanguageOfLocale("DE"), "de");
  EXPECT_EQ(LanguageOfLocale("../de"), "");
  EXPECT_EQ(LanguageOfLocale(""), "");
}

class LanguagesTest : public testing::Test {
 protected:
  void Write(const std::string& name, const std::string& text) {
    test::WriteBytes(share.path() / "messages" / name, text);
  }
  const test::TemporaryFolder share;
};

TEST_F(LanguagesTest, AreEnglishAndThoseThatHaveACatalogue) {
  Write("texts.nl.txt", "language Nederlands\n");
  Write("texts.de.txt", "language Deutsch\n");
  Write("texts.broken.txt", "Deutsch\n");
  Write("texts.txt", "language None\n");
  Write("de.txt", "language Numbers\n");
  std::map<std::string, std::string> names;
  for (const Language& language : AvailableLanguages(share.path())) names[language.code] = language.name;
  EXPECT_THAT(names, ElementsAre(Pair("de", "Deutsch"), Pair("en", "English"), Pair("nl", "Nederlands")));
  EXPECT_EQ(AvailableLanguages(share.path()).front().code, "en");
  EXPECT_EQ(AvailableLanguages(share.path() / "none").size(), 1);
}

TEST_F(LanguagesTest, WithoutACatalogueAreMissing) {
  const auto missing = LoadTranslations(share.path(), "fr");
  ASSERT_FALSE(missing);
  EXPECT_EQ(missing.fault().kind, FaultKind::kMissing);
  EXPECT_EQ(LoadTranslations(share.path(), "../fr").fault().kind, FaultKind::kMissing);
  EXPECT_TRUE(LoadTranslations(share.path(), "en"));
}

TEST(Catalogues, HoldTheSectionsOfOurProgramsOnly) {
  for (const auto& [code, catalogue] : test::Catalogues())
    EXPECT_THAT(catalogue.Sections(),
                testing::Each(Key(testing::AnyOf("check", "cli", "definition", "section", "sheet", "show",
                                                 "view", "window"))))
        << code;
}

}  // namespace
}  // namespace vanzet
