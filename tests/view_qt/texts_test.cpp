#include "view/qt/texts.h"

#include <gtest/gtest.h>

#include <QLocale>

namespace vanzet::view::qt {
namespace {

class TextsOfTheViewTest : public testing::Test {
 protected:
  ~TextsOfTheViewTest() override {
    qputenv("VANZET_LANGUAGE", "en");
    QLocale::setDefault(QLocale::system());
  }
};

TEST_F(TextsOfTheViewTest, AreInTheLanguageOfTheApplicationWhereNoneIsNamed) {
  EXPECT_EQ(Translate("%1 must be less than %2."), QStringLiteral("%1 must be less than %2."));
  qunsetenv("VANZET_LANGUAGE");
  QLocale::setDefault(QLocale(QStringLiteral("de_AT")));
  EXPECT_EQ(Translate("%1 must be less than %2."), QStringLiteral("%1 muss kleiner als %2 sein."));
  EXPECT_EQ(DecimalSign(), ',');
}

}  // namespace
}  // namespace vanzet::view::qt
