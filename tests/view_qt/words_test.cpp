#include "view/qt/words.h"

#include <gtest/gtest.h>

#include "view/qt/mnemonics.h"

namespace vanzet::view::qt {
namespace {

class WordsTest : public testing::Test {
 protected:
  ~WordsTest() override { qputenv("VANZET_LANGUAGE", "en"); }
  const Words words = {"%1 and %2", "%1 und %2"};
};

TEST_F(WordsTest, AreSaidInTheLanguageThatIsNamed) {
  EXPECT_EQ(Said(words, QStringLiteral("A"), QStringLiteral("%1")), QStringLiteral("A and A"));
  qputenv("VANZET_LANGUAGE", "de_AT");
  EXPECT_EQ(Said(words, QStringLiteral("A"), QStringLiteral("B")), QStringLiteral("A und B"));
  qputenv("VANZET_LANGUAGE", "fr");
  EXPECT_EQ(Said(words, QStringLiteral("A"), QStringLiteral("B")), QStringLiteral("A and B"));
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
