#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "support/places.h"
#include "view/ids.h"
#include "view/qt/page_panel.h"
#include "view/qt/tree_panel.h"
#include "view_qt/window_fixture.h"

namespace vanzet::test {
namespace {

using view::qt::DialogWindow;

class Unstored : public WindowTest {
 protected:
  static QString Line(DialogWindow& window) {
    return window.findChild<QLabel*>(QStringLiteral("line"))->text();
  }
  static bool IsMarked(const QString& text) { return text.endsWith(QChar(0x25CF)); }
  static bool IsButtonMarked(DialogWindow& window, int id) {
    return IsMarked(qobject_cast<QPushButton*>(window.WidgetOf(id))->text());
  }
  /// True for a selected node that is drawn with the sign and read out with the words of such values.
  static bool IsNodeMarked(DialogWindow& window) {
    const QTreeWidgetItem& item = *window.Tree().currentItem();
    EXPECT_FALSE(IsMarked(item.text(0))) << "the text is the node's own";
    const QString spoken = item.data(0, Qt::AccessibleTextRole).toString();
    return spoken.endsWith(QStringLiteral("values not stored yet"));
  }
};

TEST_F(Unstored, ValuesAreMarkedUntilTheyAreSelected) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\n");
    EXPECT_EQ(Line(window), QString());
    EXPECT_FALSE(IsButtonMarked(window, control::kSelectCylinder));
    Do(window, "set 2022 42\nset 2023 50\n");
    EXPECT_EQ(Line(window), QStringLiteral("Not stored yet: A, B"));
    EXPECT_EQ(window.property("unstored").toString(), QStringLiteral("A, B"));
    EXPECT_TRUE(IsButtonMarked(window, control::kSelectCylinder));
    EXPECT_TRUE(IsNodeMarked(window));
    Do(window, "press 2016\n");
    EXPECT_EQ(Line(window), QString());
    EXPECT_FALSE(IsButtonMarked(window, control::kSelectCylinder));
    EXPECT_FALSE(IsNodeMarked(window));
    Do(window, "set 2022 42.0\n");
    EXPECT_EQ(Line(window), QString()) << "the same number";
  });
}

TEST_F(Unstored, ValuesOfAPageThatIsLeftAreNamedAndStopNobody) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\nset 2022 42\nselect 34\n");
    EXPECT_EQ(window.TheDialog().State().selectedNode, 34);
    EXPECT_EQ(Line(window),
              QStringLiteral("Mainspindle: Billet cylindrical was left with values that were not stored: A"));
    EXPECT_FALSE(IsNodeMarked(window));
    Do(window, "select 16\n");
    EXPECT_EQ(Line(window), QString());
  });
  EXPECT_EQ(Serve([&](DialogWindow& window) { Do(window, "select 19\nset 2022 42\npress 1\n"); }),
            view::kClosedByOk);
}

TEST_F(Unstored, DeviceMarksTheButtonOfItsOwnGroup) {
  WriteBytes(world.catalogue, "Chuck 160\n1 80 85 20 0 0 0 0 0 0 0\n");
  Serve([&](DialogWindow& window) {
    Do(window, "select 3\nchoose 2124 \"Chuck 160\"\n");
    EXPECT_TRUE(IsButtonMarked(window, control::kSelectParametric));
    EXPECT_FALSE(IsButtonMarked(window, control::kSelectOwn));
    Do(window, "press 2154\nset 2021 other.vdm\n");
    EXPECT_FALSE(IsButtonMarked(window, control::kSelectParametric));
    EXPECT_TRUE(IsButtonMarked(window, control::kSelectOwn));
  });
}

TEST_F(Unstored, ValuesStayMarkedWhereTheStoreRefusedThem) {
  host.vdms.clear();
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\nset 2022 42\nset 2023 50\npress 2016\n");
    EXPECT_EQ(Line(window), QStringLiteral("Not stored yet: A, B"));
  });
}

TEST_F(Unstored, FolderPagesSummariseWhatIsStored) {
  WriteBytes(world.catalogue, "Chuck 160\n1 80 85 20 0 0 0 0 0 0 0\n");
  const auto summaries = [](DialogWindow& window) {
    QApplication::processEvents();
    QStringList texts;
    for (const QLabel* const label : window.findChildren<QLabel*>(QStringLiteral("summary"))) {
      if (label->isVisible()) texts.append(label->text());
    }
    return texts;
  };
  Serve([&](DialogWindow& window) {
    Do(window, "select 2\n");
    EXPECT_EQ(summaries(window), QStringList());
    Do(window, "select 3\nchoose 2124 \"Chuck 160\"\npress 2154\nselect 2\n");
    EXPECT_EQ(summaries(window), QStringList("Chuck 160"));
    Do(window, "select 19\nset 2022 42\nset 2023 50.5\npress 2016\nselect 17\n");
    EXPECT_EQ(summaries(window), QStringList("Billet cylindrical: A 42, B 50.5"));
  });
}

/// Uses the list of devices that the button beside the combo opens.
class Chooser : public WindowTest {
 protected:
  Chooser() {
    WriteBytes(world.catalogue, ReadBytes(VANZET_SOURCE_DIR "/share/samples/mill-turn/clampdevice.cld"));
  }

  /// Opens the list, and has `use` close it.
  static void Open(DialogWindow& window, const std::function<void(QDialog&)>& use) {
    QTimer::singleShot(0, [&] { use(*qobject_cast<QDialog*>(QApplication::activeModalWidget())); });
    QTest::mouseClick(window.Page()->findChild<QToolButton*>(QStringLiteral("chooser")), Qt::LeftButton);
  }

  static QStringList Entries(const QDialog& dialog) {
    const auto* const list = dialog.findChild<QListWidget*>();
    QStringList entries;
    for (int row = 0; row < list->count(); ++row) {
      if (!list->item(row)->isHidden())
        entries.append(list->item(row)->text().section(QLatin1Char('\n'), 0, 0));
    }
    return entries;
  }
};

TEST_F(Chooser, FindsADeviceByAnyWordAndTellsTheDialogAsTheListDoes) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 3\n");
    Open(window, [](QDialog& dialog) {
      EXPECT_GT(Entries(dialog).size(), 1);
      QTest::keyClicks(dialog.findChild<QLineEdit*>(), "chuck 210");
      EXPECT_EQ(Entries(dialog), QStringList("Chuck 210"));
      EXPECT_FALSE(dialog.findChild<QListWidget*>()->item(0)->icon().isNull());
      QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
    });
    const QLineEdit& outer = *qobject_cast<QLineEdit*>(window.WidgetOf(control::kEditA));
    EXPECT_EQ(outer.text(), QStringLiteral("105")) << "the values of the device";
    Do(window, "press 2154\n");
  });
  EXPECT_THAT(world.Stored(), testing::Contains(testing::HasSubstr("Chuck 210")));
}

TEST_F(Chooser, OfOwnDevicesOffersTheFilesBesideThoseThatWereUsed) {
  const auto device = [](const char* facts) {
    return "vdm 1\nrecord\nrecord\n.Own device\n.#VRML V2.0\n" + std::string(facts) + "end 2\n";
  };
  const auto files = world.catalogue.parent_path() / "own";
  std::filesystem::create_directories(files);
  WriteBytes(files / "a jaw.vdm", device(".3 1 10 20\n.0 0 0 9 9 9 0\n.1 30 0 9 9 9 0\n.2 30 -10 9 9 9 8\n"));
  WriteBytes(files / "b chuck.vdm", device(".3 0 10 20\n"));
  WriteBytes(files / "c other.vdm", "nothing of the kind");
  const QString jaw = QString::fromStdString((files / "a jaw.vdm").string());
  const QString chuck = QString::fromStdString((files / "b chuck.vdm").string());
  Serve([&](DialogWindow& window) {
    Do(window, "select 3\nset 2021 \"" + chuck.toStdString() + "\"\n");
    const auto open = [&](const std::function<void(QDialog&)>& use) {
      QTimer::singleShot(0, [&] { use(*qobject_cast<QDialog*>(QApplication::activeModalWidget())); });
      QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    };
    open([&](QDialog& dialog) {
      const auto& list = *dialog.findChild<QListWidget*>();
      EXPECT_EQ(Entries(dialog).mid(0, 3), (QStringList{"b chuck", "a jaw", "c other"}));
      EXPECT_TRUE(list.item(0)->text().contains(QStringLiteral("Clamp device: ")));
      EXPECT_TRUE(list.item(1)->text().contains(QStringLiteral("Jaw: ")));
      EXPECT_TRUE(list.item(2)->text().contains(QStringLiteral("Not an own device: ")));
      EXPECT_NE(list.item(1)->icon().pixmap(96, 60).toImage(), list.item(2)->icon().pixmap(96, 60).toImage());
      QTest::keyClicks(dialog.findChild<QLineEdit*>(), "jaw");
      QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
    });
    EXPECT_EQ(qobject_cast<QLineEdit*>(window.WidgetOf(control::kPath))->text(), jaw);
    open([&](QDialog& dialog) {
      EXPECT_EQ(Entries(dialog).value(0), "a jaw") << "it was used last";
      dialog.reject();
    });
    EXPECT_EQ(qobject_cast<QLineEdit*>(window.WidgetOf(control::kPath))->text(), jaw);
  });
}

TEST_F(Chooser, ListsWhatWasUsedLastFirst) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 3\nchoose 2124 \"Chuck 210\"\nchoose 2124 \"Chuck 160\"\n");
    Open(window, [](QDialog& dialog) {
      EXPECT_EQ(Entries(dialog).mid(0, 2), (QStringList{"Chuck 160", "Chuck 210"}));
      dialog.reject();
    });
    const view::DialogState& state = window.TheDialog().State();
    const auto list = std::ranges::find(state.controls, control::kDeviceList, &view::Control::id);
    EXPECT_EQ(list->text, "Chuck 160") << "nothing is chosen by a list that is dismissed";
  });
}

}  // namespace
}  // namespace vanzet::test
