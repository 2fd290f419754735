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
#include "support/contrast.h"
#include "view/ids.h"
#include "view/qt/page_panel.h"
#include "view/qt/picture_widget.h"
#include "view/qt/tree_panel.h"
#include "view_qt/window_fixture.h"

namespace vanzet::test {
namespace {

using testing::Contains;
using view::qt::DialogWindow;

class Window : public WindowTest {};

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

TEST_F(Window, PressesTheButtonThatHasTheFocus) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\nset 2022 50\nset 2023 60\n");
    window.WidgetOf(control::kSelectCylinder)->setFocus();
    Key(window, Qt::Key_Return);
  });
  EXPECT_THAT(world.Stored(), Contains(testing::HasSubstr("1 50.000000 60.000000")));
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
