#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>

#include "view/ids.h"
#include "view/qt/page_panel.h"
#include "view/qt/picture_widget.h"
#include "view/shared/texts.h"
#include "view_qt/window_fixture.h"

// Values as they are shown, typed and marked.

namespace vanzet::test {
namespace {

using testing::Contains;
using view::qt::DialogWindow;

class Values : public WindowTest {};

/// The unit of lengths of windows while this is alive.
class UnitOfWindows {
 public:
  explicit UnitOfWindows(const char* unit) { qputenv("VANZET_UNIT", unit); }
  ~UnitOfWindows() { qunsetenv("VANZET_UNIT"); }
  UnitOfWindows(const UnitOfWindows&) = delete;
  UnitOfWindows& operator=(const UnitOfWindows&) = delete;
};

QStringList TextsOfLabels(DialogWindow& window) {
  QStringList texts;
  for (const QLabel* const label : window.findChildren<QLabel*>()) texts.append(label->text());
  return texts;
}

TEST_F(Values, ShowsAndTakesInchesAndStoresMillimetres) {
  const UnitOfWindows inches("inch");
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\n");
    EXPECT_TRUE(TextsOfLabels(window).contains("in"));
    EXPECT_FALSE(TextsOfLabels(window).contains("mm"));
    TypeOver(window, control::kOuterDiameter, "2.");
    EXPECT_EQ(Edit(window, control::kOuterDiameter).text(), "2.") << "as it is typed";
    TypeOver(window, control::kCylinderLength, "3,125");
    QTest::mouseClick(window.WidgetOf(control::kSelectCylinder), Qt::LeftButton);
  });
  EXPECT_THAT(world.Stored(), Contains(testing::HasSubstr("1 50.800000 79.375000")));
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\n");
    EXPECT_EQ(Edit(window, control::kOuterDiameter).text(), "2");
    EXPECT_EQ(Edit(window, control::kCylinderLength).text(), "3.125");
    TypeOver(window, control::kOuterDiameter, "2x");
    EXPECT_EQ(Edit(window, control::kOuterDiameter).text(), "2x");
  });
}

/// The language of windows while this is alive.
class LanguageOfWindows {
 public:
  explicit LanguageOfWindows(const char* language) { qputenv("VANZET_LANGUAGE", language); }
  ~LanguageOfWindows() { qputenv("VANZET_LANGUAGE", "en"); }
  LanguageOfWindows(const LanguageOfWindows&) = delete;
  LanguageOfWindows& operator=(const LanguageOfWindows&) = delete;
};

TEST_F(Values, CutsNoDigitOnTheLeftOfAPickedValue) {
  world.positions = {{0, 12, 298.226433430515 / 2}};
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\nset 2023 60\npress 2005\n");
    QLineEdit& edit = Edit(window, control::kOuterDiameter);
    EXPECT_EQ(edit.text(), QStringLiteral("298.2264")) << "without the focus";
    EXPECT_EQ(edit.cursorPosition(), 0);
    edit.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(edit.text(), QStringLiteral("298.226433430515"));
    EXPECT_EQ(edit.selectedText(), edit.text()) << "as after every tab";
    EXPECT_GT(edit.contentsRect().width(), edit.fontMetrics().horizontalAdvance(edit.text()));
    Edit(window, control::kBarLength).setFocus(Qt::TabFocusReason);
    EXPECT_EQ(edit.text(), QStringLiteral("298.2264"));
    Do(window, "press 2016\n");
  });
  EXPECT_THAT(world.Stored(), Contains(testing::HasSubstr("1 298.226433 60.000000")));
}

TEST_F(Values, ShowsTheDecimalSignOfItsLanguage) {
  const LanguageOfWindows german("de");
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\nset 2022 42.5\nset 2023 60,25\n");
    EXPECT_EQ(Edit(window, control::kCylinderLength).text(), QStringLiteral("60,25"));
    EXPECT_EQ(Edit(window, control::kOuterDiameter).text(), QStringLiteral("42,5"));
    QTest::mouseClick(&Edit(window, control::kFrontAllowance), Qt::LeftButton);
    QTest::keyClick(&Edit(window, control::kFrontAllowance), Qt::Key_End);
    QTest::keyClicks(&Edit(window, control::kFrontAllowance), ".125");
    EXPECT_EQ(Edit(window, control::kFrontAllowance).text(), QStringLiteral("0.125")) << "as it is typed";
    Do(window, "press 2016\n");
  });
  EXPECT_THAT(world.Stored(), Contains(testing::HasSubstr("1 42.500000 60.250000 0.125000")));
}

TEST_F(Values, TakesAnglesInDegreesWhateverTheUnitOfLengthsIs) {
  const UnitOfWindows inches("inch");
  host.bodies.byNumber = {{7, {"Part", false, {0, 0, 0, 1, 1, 1}}}};
  Serve([&](DialogWindow& window) {
    Do(window, "select 21\nset 2046 Part\nset 2045 2\nset 2032 15\n");
    QTest::mouseClick(window.WidgetOf(control::kSelect), Qt::LeftButton);
  });
  EXPECT_THAT(world.Stored(), Contains(testing::HasSubstr("3 0 50.800000 0.000000 15.000000")));
}

TEST_F(Values, TakesAColumnOfNumbersWithOneTabEach) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\n");
    TypeOver(window, control::kOuterDiameter, "42");
    for (const char* value : {"50", "1", "2", "10", "100"}) {
      Key(window, Qt::Key_Tab);
      QTest::keyClicks(window.focusWidget(), value);
    }
    Do(window, "press 2016\n");
  });
  EXPECT_THAT(world.Stored(), Contains("1.8 1 42.000000 50.000000 1.000000 2.000000 10.000000 0 100.000000"));
}

TEST_F(Values, PicksTheValueWithTheFocusByAKey) {
  world.positions = {{0, 12, 20}};
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\n");
    Edit(window, control::kOuterDiameter).setFocus();
    Key(window, Qt::Key_F4);
    EXPECT_EQ(Edit(window, control::kOuterDiameter).text(), QStringLiteral("40"));
    Edit(window, control::kFrontAllowance).setFocus();
    Key(window, Qt::Key_F4);
    EXPECT_TRUE(window.isVisible()) << "a value that cannot be picked";
  });
}

TEST_F(Values, TellsBesideTheEditThatSomethingIsNoNumberAndStopsNobody) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\nset 2024 1,5\n");
    EXPECT_TRUE(Edit(window, control::kFrontAllowance).accessibleDescription().isEmpty())
        << "a comma is a point";
    Do(window, "set 2024 1.5x\n");
    EXPECT_EQ(Edit(window, control::kFrontAllowance).accessibleDescription(), QStringLiteral("Not a number"));
    EXPECT_TRUE(Edit(window, control::kFrontAllowance).actions().constFirst()->isVisible());
    EXPECT_EQ(Edit(window, control::kFrontAllowance).text(), QStringLiteral("1.5x"));
    Do(window, "set 2024 \"\"\n");
    EXPECT_TRUE(Edit(window, control::kFrontAllowance).accessibleDescription().isEmpty()) << "empty is 0";
  });
}

TEST_F(Values, MarksWhatSelectWillTakeBackBeforeItIsPressed) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\nset 2022 40\nset 2023 50\nset 2027 10\n");
    const QLineEdit& bar = Edit(window, control::kBarLength);
    EXPECT_EQ(bar.accessibleDescription(), QStringLiteral("F must be 0 or at least B + C + D = 50."));
    EXPECT_NE(bar.palette().color(QPalette::Text), window.palette().color(QPalette::Text));
    Do(window, "set 2027 50\nset 2026 45\n");
    EXPECT_EQ(bar.accessibleDescription(), QString());
    EXPECT_EQ(bar.palette().color(QPalette::Text), window.palette().color(QPalette::Text));
    EXPECT_EQ(Edit(window, control::kInnerDiameter).accessibleDescription(),
              QStringLiteral("E must not exceed A."));
    EXPECT_EQ(Edit(window, control::kOuterDiameter).accessibleDescription(), QString());
  });
}

/// The letter that Save refuses the value of, out of "Value # is missing!"; empty in any other text.
QString RefusedLetter(const QString& text) {
  return text.startsWith(QLatin1String("Value ")) ? text.section(QLatin1Char(' '), 1, 1) : QString();
}

TEST_F(Values, NamesTheValuesThatSaveDemandsLetterByLetter) {
  QString refused;
  responder.onBox = [&](QMessageBox& box) { refused = RefusedLetter(box.text()); };
  for (const int node : {36, 37, 38, 39, 41, 42, 43, 44, 45, 46, 47, 48, 50, 51}) {
    Serve([&](DialogWindow& window) {
      Do(window, "select " + std::to_string(node) + "\nset 2123 New" + std::to_string(node) + "\n");
      for (char letter = 'A'; letter <= 'J'; ++letter) {
        refused.clear();
        const auto* const picture =
            dynamic_cast<view::qt::PictureWidget*>(window.WidgetOf(control::kNewPicture));
        const QString hint = QString::fromStdString(view::Joined(picture->ShownSketch().notes, "\n"));
        Do(window, "press 2152\n");
        if (refused.isEmpty()) break;
        EXPECT_TRUE(hint.contains("Save needs a value of " + refused)) << node << hint.toStdString();
        const int edit = control::EditOfLetter(refused[0].toLatin1());
        EXPECT_TRUE(Edit(window, edit).accessibleName().endsWith("needed")) << node;
        Do(window, "set " + std::to_string(edit) + " 7\n");
      }
      EXPECT_TRUE(refused.isEmpty()) << node;
    });
  }
}

TEST_F(Values, SaysItsOwnWordsInGerman) {
  const LanguageOfWindows german("de");
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\n");
    EXPECT_EQ(window.WidgetOf(control::kOuterDiameter)->accessibleName(),
              QStringLiteral("A: Au\u00DFendurchmesser (mm), erforderlich"));
  });
}

TEST_F(Values, NamesTheValuesOfTheDeviceThatIsChosen) {
  WriteBytes(world.catalogue, "Soft\n9 38 62 12 24 0 0 0 0 0 0\n");
  Serve([&](DialogWindow& window) {
    Do(window, "select 4\n");
    EXPECT_FALSE(window.WidgetOf(control::kEditD)->isVisible()) << "no device, no letters";
    Do(window, "choose 2124 Soft\n");
    EXPECT_EQ(window.WidgetOf(control::kEditD)->accessibleName(), QStringLiteral("D: Thickness (mm)"));
    EXPECT_TRUE(window.WidgetOf(control::kEditD)->isVisible());
    EXPECT_FALSE(window.WidgetOf(control::kEditE)->isVisible()) << "the type does not have it";
  });
}

TEST_F(Values, MarksTheValueThatIsToBeTypedAgain) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 37\nset 2123 New\nset 2031 42\nset 2033 15\npress 2152\n");
    EXPECT_EQ(window.focusWidget(), window.WidgetOf(control::kEditC));
    EXPECT_EQ(Edit(window, control::kEditC).selectedText(), QStringLiteral("0"));
    QTest::keyClicks(window.focusWidget(), "20");
    EXPECT_EQ(Edit(window, control::kEditC).text(), QStringLiteral("20"));
  });
}

}  // namespace
}  // namespace vanzet::test
