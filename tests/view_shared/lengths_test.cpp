#include "view/shared/lengths.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "view/shared/texts.h"

namespace vanzet::view {
namespace {

class LengthsTest : public testing::Test {
 protected:
  LengthsTest() {
    setenv("VANZET_LANGUAGE", "de", 1);
    SetLocale({[] { return std::string(); },
               [](const std::string& language) { return language == "de" ? ',' : '.'; }});
  }
  ~LengthsTest() override {
    setenv("VANZET_LANGUAGE", "en", 1);
    unsetenv("VANZET_UNIT");
  }

  static Control Edit(const std::string& text, double number) {
    return {.text = text, .isReal = true, .number = number};
  }
};

TEST_F(LengthsTest, RestWithFourDecimalsAndTheSignOfTheLanguage) {
  EXPECT_EQ(RestingText(Edit("298.226433430515", 298.226433430515), LengthUnit::kMillimetre), "298,2264");
  EXPECT_EQ(RestingText(Edit("0.00001", 0.00001), LengthUnit::kMillimetre), "0,00001") << "which is not 0";
  EXPECT_EQ(RestingText(Edit("50.8", 50.8), LengthUnit::kInch), "2");
  EXPECT_EQ(RestingText({.text = "2x", .isReal = true}, LengthUnit::kInch), "2x");
  EXPECT_EQ(RestingText(Edit(" ", 0), LengthUnit::kInch), " ") << "an empty edit is not a 0";
}

TEST_F(LengthsTest, StayAsTheyAreTypedWhileTheyMeanTheSame) {
  EXPECT_EQ(EditedText(Edit("50.8", 50.8), "2.", LengthUnit::kInch), "2.");
  EXPECT_EQ(EditedText(Edit("50.8", 50.8), "3", LengthUnit::kInch), "2");
  EXPECT_EQ(EditedText(Edit("298.226433430515", 298.226433430515), "", LengthUnit::kMillimetre),
            "298,226433430515");
}

TEST_F(LengthsTest, GoToTheDialogInMillimetres) {
  EXPECT_EQ(DialogText("3,125", LengthUnit::kInch), "79.375");
  EXPECT_EQ(DialogText("2x", LengthUnit::kInch), "2x");
  EXPECT_EQ(DialogText("3,125", LengthUnit::kMillimetre), "3,125");
}

TEST_F(LengthsTest, AreLabelledInTheUnitOfTheMoment) {
  EXPECT_EQ(LengthLabel(42.123456), "42,1235");
  setenv("VANZET_UNIT", "inch", 1);
  EXPECT_EQ(LengthLabel(50.8), "2");
}

}  // namespace
}  // namespace vanzet::view
