#include "view/shared/mnemonics.h"

#include <gtest/gtest.h>

namespace vanzet::view {
namespace {

TEST(MnemonicsTest, AreTheFirstFreeLetterThatBeginsAWord) {
  Mnemonics mnemonics;
  EXPECT_EQ(mnemonics.Mark("Load Configuration"), "&Load Configuration");
  EXPECT_EQ(mnemonics.Mark("Long Cut"), "Long &Cut");
  EXPECT_EQ(mnemonics.Mark("LLC"), "LLC") << "none is free";
  EXPECT_EQ(mnemonics.Mark("L&o"), "L&&&o");
}

TEST(MnemonicsTest, KeepToLettersOfEveryKeyboard) {
  EXPECT_EQ(Mnemonics().Mark("\u00D6l"), "\u00D6&l");
  EXPECT_EQ(Mnemonics().Mark(">>"), ">>");
  EXPECT_EQ(Mnemonics().Mark("\u00DCbel \u201Cab"), "\u00DCbel \u201C&ab") << "which begins a word";
}

TEST(MnemonicsTest, LeaveReservedLettersAlone) {
  Mnemonics mnemonics;
  mnemonics.Reserve("AB");
  EXPECT_EQ(mnemonics.Mark("abc"), "ab&c");
  mnemonics.Release("AB");
  EXPECT_EQ(mnemonics.Mark("ab"), "&ab");
}

TEST(MnemonicsTest, LeadToAValueByItsLetter) {
  Mnemonics mnemonics;
  mnemonics.Reserve("AB");
  EXPECT_EQ(mnemonics.Mark("A"), "&A");
}

}  // namespace
}  // namespace vanzet::view
