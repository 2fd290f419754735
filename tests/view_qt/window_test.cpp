#include <QCheckBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTest>
#include <QWheelEvent>
#include <cmath>

#include "platform/message_box.h"
#include "view/ids.h"
#include "view/qt/page_panel.h"
#include "view/qt/picture_widget.h"
#include "view/qt/tree_panel.h"
#include "view_qt/window_fixture.h"

namespace vanzet::test {
namespace {

using testing::Contains;
using view::qt::DialogWindow;

class Window : public WindowTest {
 protected:
  static QLineEdit& Edit(DialogWindow& window, int id) {
    return *qobject_cast<QLineEdit*>(window.WidgetOf(id));
  }
  /// Types into an edit that is reached by the Tab key, over what it holds.
  static void TypeOver(DialogWindow& window, int id, const char* text) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    Edit(window, id).setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&Edit(window, id), text);
  }
  static void Key(DialogWindow& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window.focusWidget(), key, modifiers);
  }
};

TEST_F(Window, IsClosedByItsFrameAndByTheEscapeKey) {
  EXPECT_EQ(Serve([](DialogWindow& window) { window.close(); }), view::kClosedByFrame);
  EXPECT_EQ(Serve([](DialogWindow& window) { QTest::keyClick(&window, Qt::Key_Escape); }),
            view::kClosedByFrame);
}

TEST_F(Window, TakesTheEnterKeyForOk) {
  EXPECT_EQ(Serve([](DialogWindow& window) { Key(window, Qt::Key_Return); }), view::kClosedByOk)
      << "in the tree";
  EXPECT_EQ(Serve([&](DialogWindow& window) {
              Do(window, "select 19\n");
              Edit(window, control::kOuterDiameter).setFocus();
              Key(window, Qt::Key_Return);
            }),
            view::kClosedByOk);
}

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

TEST_F(Window, ShowsAndTakesInchesAndStoresMillimetres) {
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

TEST_F(Window, CutsNoDigitOnTheLeftOfAPickedValue) {
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

TEST_F(Window, ShowsTheDecimalSignOfItsLanguage) {
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

TEST_F(Window, TakesAnglesInDegreesWhateverTheUnitOfLengthsIs) {
  const UnitOfWindows inches("inch");
  host.bodies.byNumber = {{7, {"Part", false, {0, 0, 0, 1, 1, 1}}}};
  Serve([&](DialogWindow& window) {
    Do(window, "select 21\nset 2046 Part\nset 2045 2\nset 2032 15\n");
    QTest::mouseClick(window.WidgetOf(control::kSelect), Qt::LeftButton);
  });
  EXPECT_THAT(world.Stored(), Contains(testing::HasSubstr("3 0 50.800000 0.000000 15.000000")));
}

TEST_F(Window, PressesTheButtonThatHasTheFocus) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\nset 2022 50\nset 2023 60\n");
    window.WidgetOf(control::kSelectCylinder)->setFocus();
    Key(window, Qt::Key_Return);
  });
  EXPECT_THAT(world.Stored(), Contains(testing::HasSubstr("1 50.000000 60.000000")));
}

TEST_F(Window, TakesAColumnOfNumbersWithOneTabEach) {
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

TEST_F(Window, PicksTheValueWithTheFocusByAKey) {
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

TEST_F(Window, AsksForTheHelpOfThePageByF1) {
  Serve([&](DialogWindow& window) {
    EXPECT_EQ(window.property("helpPage").toString(), QStringLiteral("guide/pages.md"));
    Do(window, "select 19\n");
    EXPECT_EQ(window.property("helpPage").toString(), QStringLiteral("guide/pages.md#billet-cylindrical"));
    host.TakeCalls();
    Key(window, Qt::Key_F1);
    EXPECT_THAT(host.TakeCalls(), Contains("OrvoMacroExec('loadhelp', '')"));
  });
}

/// The relative luminance of a colour, as contrasts are computed.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
  const double first = Luminance(a) + 0.05, second = Luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

TEST_F(Window, FramesEditsAndBoxesVisiblyInLightAndDark) {
  const QPalette before = QApplication::palette();
  for (const QColor& ground : {QColor(0x24, 0x28, 0x2d), QColor(0xf1, 0xf3, 0xf5)}) {
    QApplication::setPalette(QPalette(ground, ground));
    Serve([&](DialogWindow& window) {
      Do(window, "select 19\nset 2138 0\n");
      window.Tree().setFocus();
      for (const int id : {control::kOuterDiameter, control::kHideBillet}) {
        QWidget& widget = *window.WidgetOf(id);
        const QImage image = widget.grab().toImage();
        const QColor edge = image.pixelColor(0, image.height() / 2);
        EXPECT_GE(Contrast(edge, ground), 3) << id << " " << edge.name().toStdString();
      }
    });
  }
  QApplication::setPalette(before);
}

TEST_F(Window, WalksTheTreeByKeys) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 18\n");
    Key(window, Qt::Key_Down);
    EXPECT_EQ(window.TheDialog().State().selectedNode, 19);
    EXPECT_NE(window.Page(), nullptr);
    EXPECT_EQ(window.focusWidget(), &window.Tree());
  });
}

TEST_F(Window, SelectsNothingAtItsStart) {
  Serve([](DialogWindow& window) {
    EXPECT_EQ(window.TheDialog().State().selectedNode, 0);
    EXPECT_TRUE(window.Tree().selectedItems().isEmpty());
    EXPECT_EQ(window.Page(), nullptr);
  });
}

TEST_F(Window, OffersTheMenuOfANodeByKeysToo) {
  for (const bool isByF10 : {false, true}) {
    Serve([&](DialogWindow& window) {
      Do(window, "select 18\n");
      responder.entry = command::kDeleteRecord;
      if (isByF10) return Key(window, Qt::Key_F10, Qt::ShiftModifier);
      // What a display makes of the menu key.
      QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(), QPoint());
      QApplication::sendEvent(&window.Tree(), &menu);
    });
    EXPECT_EQ(responder.entry, 0) << "chosen from the menu";
  }
}

TEST_F(Window, ARightClickOnANodeWithoutAMenuSelectsNothing) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\ncontext 3\n");
    EXPECT_EQ(window.TheDialog().State().selectedNode, 19);
    EXPECT_TRUE(window.Tree().selectedItems().constFirst()->text(0).startsWith(QStringLiteral("Billet")));
  });
}

TEST_F(Window, ShowsDefinedNodesInBold) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\nset 2022 50\nset 2023 60\n");
    EXPECT_FALSE(window.Tree().currentItem()->font(0).bold());
    Do(window, "press 2016\n");
    EXPECT_TRUE(window.Tree().currentItem()->font(0).bold());
  });
}

TEST_F(Window, HidesForAPickAndComesBackWhereItWas) {
  bool wasHidden = false;
  DialogWindow* shown = nullptr;
  const auto pick = host.onMacro;
  host.onMacro = [&](const std::string& name, const std::string& text) {
    wasHidden = !shown->isVisible();
    pick(name, text);
  };
  world.positions = {{0, 12, 20}};
  Serve([&](DialogWindow& window) {
    shown = &window;
    const QPoint place = window.pos();
    Do(window, "select 19\npress 2005\n");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.pos(), place);
    EXPECT_EQ(Edit(window, control::kOuterDiameter).text(), QStringLiteral("40"));
  });
  EXPECT_TRUE(wasHidden);
}

TEST_F(Window, LeavesTheHostsWindowUsable) {
  QMainWindow main;
  main.show();
  Serve(
      [&](DialogWindow& window) {
        EXPECT_EQ(window.parentWidget(), &main);
        EXPECT_TRUE(main.isEnabled());
        EXPECT_FALSE(window.isModal());
      },
      &main);
  EXPECT_TRUE(main.isVisible());
}

TEST_F(Window, IsClosedWhenItsParentGoes) {
  auto* main = new QMainWindow;
  EXPECT_EQ(Serve([&](DialogWindow&) { QTimer::singleShot(0, main, [main] { delete main; }); }, main),
            view::kClosedByFrame);
}

TEST_F(Window, IsClosedWhenTheApplicationEnds) {
  const auto end = [](DialogWindow& window) {
    QCoreApplication::quit();
    // The fixture closes a dialog that is still open after its use; that is not tested here.
    EXPECT_TRUE(window.isVisible());
  };
  EXPECT_EQ(Serve(end), view::kClosedByFrame);
}

TEST_F(Window, TellsBesideTheEditThatSomethingIsNoNumberAndStopsNobody) {
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

TEST_F(Window, MarksWhatSelectWillTakeBackBeforeItIsPressed) {
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

TEST_F(Window, NamesTheValuesThatSaveDemandsLetterByLetter) {
  QString refused;
  responder.onBox = [&](QMessageBox& box) { refused = RefusedLetter(box.text()); };
  for (const int node : {36, 37, 38, 39, 41, 42, 43, 44, 45, 46, 47, 48, 50, 51}) {
    Serve([&](DialogWindow& window) {
      Do(window, "select " + std::to_string(node) + "\nset 2123 New" + std::to_string(node) + "\n");
      for (char letter = 'A'; letter <= 'J'; ++letter) {
        refused.clear();
        const auto* const picture =
            dynamic_cast<view::qt::PictureWidget*>(window.WidgetOf(control::kNewPicture));
        const QString hint = picture->ShownSketch().notes.join(QLatin1Char('\n'));
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

TEST_F(Window, PutsTheFocusAndTheSelectionWhereTheDialogWantsThem) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\nset 2022 50\nset 2023 60\nset 2027 5\npress 2016\n");
    EXPECT_EQ(window.focusWidget(), window.WidgetOf(control::kBarLength));
    EXPECT_EQ(Edit(window, control::kBarLength).selectedText(), QStringLiteral("0"));
  });
}

TEST_F(Window, GoesOnFromAnEmptyPageToTheNodesBelow) {
  const auto go = [](DialogWindow& window, const char* text) {
    QApplication::processEvents();
    for (QPushButton* const way : window.findChildren<QPushButton*>()) {
      if (way->isVisible() && way->text() == QLatin1String(text))
        return QTest::mouseClick(way, Qt::LeftButton);
    }
    ADD_FAILURE() << text;
  };
  Serve([&](DialogWindow& window) {
    for (const char* text : {"Billet", "Mainspindle", "Billet cylindrical"}) go(window, text);
    EXPECT_EQ(window.TheDialog().State().selectedNode, 19);
    EXPECT_NE(window.Page(), nullptr);
  });
}

TEST_F(Window, SaysItsOwnWordsInGerman) {
  const LanguageOfWindows german("de");
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\n");
    EXPECT_EQ(window.WidgetOf(control::kOuterDiameter)->accessibleName(),
              QStringLiteral("A: Au\u00DFendurchmesser (mm), erforderlich"));
  });
}

TEST_F(Window, NamesTheValuesOfTheDeviceThatIsChosen) {
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

TEST_F(Window, ScrollsToWhereTheFocusGoes) {
  Serve([&](DialogWindow& window) {
    window.resize(900, 320);
    Do(window, "select 19\nset 2022 50\nset 2023 60\nset 2027 5\n");
    Edit(window, control::kOuterDiameter).setFocus();
    Do(window, "press 2016\n");
    EXPECT_FALSE(Edit(window, control::kBarLength).visibleRegion().isEmpty());
  });
}

TEST_F(Window, ChangesNothingByAWheelThatPassesOver) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 4\nset 2181 5\n");
    window.Tree().setFocus();
    QWheelEvent turn(QPointF(5, 5), QPointF(), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(window.WidgetOf(control::kJawSpin), &turn);
    EXPECT_EQ(qobject_cast<QSpinBox*>(window.WidgetOf(control::kJawSpin))->value(), 5);
  });
}

TEST_F(Window, ShowsBoxesInFrontOfItself) {
  QWidget* owner = nullptr;
  QString text;
  responder.onBox = [&](QMessageBox& box) {
    owner = box.parentWidget();
    text = box.text();
  };
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\npress 2016\n");
    EXPECT_EQ(owner, &window);
  });
  EXPECT_EQ(text, QStringLiteral("Remove Billet!"));
}

TEST_F(Window, KeepsBoxesToItselfInAHostWithAWindow) {
  QMainWindow main;
  main.resize(1600, 1000);
  main.show();
  const platform::MessageBox ofTheHost = {"Caption", "Text", platform::box::kOk, &main};
  QWidget* owner = nullptr;
  QPoint centre;
  responder.onBox = [&](QMessageBox& box) {
    owner = box.parentWidget();
    centre = box.frameGeometry().center();
  };
  Serve(
      [&](DialogWindow& window) {
        window.setGeometry(40, 60, 700, 500);
        view.Boxes().Present(ofTheHost);
        EXPECT_EQ(owner, &window);
        EXPECT_LT((centre - window.frameGeometry().center()).manhattanLength(), 40);
        window.Hide();
        view.Boxes().Present(ofTheHost);
        EXPECT_EQ(owner, &main) << "during a pick";
        window.ShowAgain();
      },
      &main);
  view.Boxes().Present(ofTheHost);
  EXPECT_EQ(owner, &main) << "after the dialog";
}

TEST_F(Window, HasTheKeyboardAgainAfterABox) {
  QMainWindow main;
  main.show();
  responder.onBox = [&](QMessageBox&) { main.activateWindow(); };
  Serve(
      [&](DialogWindow& window) {
        Do(window, "select 19\nset 2022 50\nset 2023 60\nset 2027 5\npress 2016\n");
        QApplication::processEvents();
        EXPECT_TRUE(window.isActiveWindow());
      },
      &main);
}

TEST_F(Window, MarksTheValueThatIsToBeTypedAgain) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 37\nset 2123 New\nset 2031 42\nset 2033 15\npress 2152\n");
    EXPECT_EQ(window.focusWidget(), window.WidgetOf(control::kEditC));
    EXPECT_EQ(Edit(window, control::kEditC).selectedText(), QStringLiteral("0"));
    QTest::keyClicks(window.focusWidget(), "20");
    EXPECT_EQ(Edit(window, control::kEditC).text(), QStringLiteral("20"));
  });
}

TEST_F(Window, RemembersItsSize) {
  Serve([](DialogWindow& window) { window.resize(1111, 777); });
  Serve([](DialogWindow& window) { EXPECT_EQ(window.size(), QSize(1111, 777)); });
}

TEST_F(Window, ServesAgainAndAgain) {
  for (int time = 0; time < 50; ++time) {
    EXPECT_EQ(Serve([&](DialogWindow& window) { Do(window, "select 3\nselect 19\npress 1\n"); }),
              view::kClosedByOk);
  }
  EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

}  // namespace
}  // namespace vanzet::test
