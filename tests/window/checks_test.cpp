#include <QDialog>
#include <QPushButton>
#include <QStatusBar>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>

#include "window/commands/dialog_page.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using window::Command;

/// Values of the cylindric page by which the bar does not pass through the bore of the chuck, and those that
/// mend it.
constexpr const char *kTooThick = "select 19\nset 2022 80\npress 2016\npress 1\n",
                     *kThinner = "select 19\nset 2022 42\npress 2016\npress 1\n";

class Checks : public WindowTest {
 protected:
  window::CheckDock& dock() { return Part<window::CheckDock>(); }
  QTreeWidget& list() { return dock().tree(); }
  QToolButton& count() { return *window->statusBar()->findChild<QToolButton*>("checkCount"); }
  QPushButton& button(const char* name) { return *dock().findChild<QPushButton*>(name); }

  /// The number of the row with a rule; below 0: it is not listed.
  int RowOf(const QString& rule) {
    for (int row = 0; row < list().topLevelItemCount(); ++row) {
      if (list().topLevelItem(row)->text(1) == rule) return row;
    }
    return -1;
  }
  bool Lists(const QString& rule) {
    return QTest::qWaitFor([&] { return RowOf(rule) >= 0; }, 20'000);
  }
  void OpenTooThick() {
    OpenSample(true);
    Play(kTooThick);
    ASSERT_TRUE(Lists("EQ-203"));
  }
  static void CloseDialog() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      auto* const dialog = qobject_cast<QDialog*>(widget);
      if (dialog != nullptr && dialog->isVisible()) return static_cast<void>(dialog->close());
    }
  }
  void ClickOn(const QString& rule) {
    window->show();
    dock().raise();
    QTreeWidgetItem* const row = list().topLevelItem(RowOf(rule));
    list().scrollToItem(row);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, list().visualItemRect(row).center());
  }
};

TEST_F(Checks, ListWhatIsFoundAfterEachStoredStep) {
  OpenTooThick();
  const QTreeWidgetItem* const row = list().topLevelItem(RowOf("EQ-203"));
  EXPECT_EQ(row->text(0), "error");
  EXPECT_EQ(row->text(2), "Spindle 1, main spindle");
  EXPECT_TRUE(row->text(3).startsWith("The clamp device and the billet cut ")) << row->text(3).toStdString();
  EXPECT_FALSE(row->icon(0).isNull());
  EXPECT_TRUE(count().text().contains("Errors: 1")) << count().text().toStdString();
  EXPECT_FALSE(count().isHidden());
  Play(kThinner);
  EXPECT_TRUE(QTest::qWaitFor([&] { return RowOf("EQ-203") < 0; }, 20'000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !count().text().contains("Errors: 1"); }));
}

TEST_F(Checks, AreInFrontOfTheMessagesWhenSomethingIsFoundFirst) {
  Part<window::MessageDock>().raise();
  OpenTooThick();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !list().visibleRegion().isEmpty(); }, 20'000));
  Part<window::MessageDock>().raise();
  EXPECT_TRUE(QTest::qWaitFor([&] { return list().visibleRegion().isEmpty(); }));
  actions().ActionOf("de")->trigger();
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return list().topLevelItem(RowOf("EQ-203"))->text(0) == "Fehler"; }, 20'000));
  QTest::qWait(50);
  EXPECT_TRUE(list().visibleRegion().isEmpty()) << "a person who reads the messages is left there";
}

TEST_F(Checks, SpeakTheLanguageOfTheWindow) {
  OpenTooThick();
  actions().ActionOf("de")->trigger();
  const auto text = [&] {
    const int row = RowOf("EQ-203");
    return row < 0 ? QString() : list().topLevelItem(row)->text(3);
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return text().contains("Rohteil"); }, 20'000)) << text().toStdString();
  EXPECT_EQ(dock().windowTitle(), "Prüfungen");
  EXPECT_EQ(list().topLevelItem(RowOf("EQ-203"))->text(0), "Fehler");
  EXPECT_EQ(list().topLevelItem(RowOf("EQ-203"))->text(2), "Spindel 1, Hauptspindel");
  EXPECT_TRUE(count().text().contains("Fehler: 1"));
}

TEST_F(Checks, PointOutTheClickedFindingInBothViews) {
  OpenTooThick();
  const double before = drawing().frame().scale();
  ClickOn("EQ-203");
  ASSERT_TRUE(drawing().pointedAt());
  const QPointF ring = drawing().frame().ToScreen(*drawing().pointedAt());
  EXPECT_TRUE(drawing().rect().contains(ring.toPoint()));
  EXPECT_GT(drawing().frame().scale(), before) << "nearer";
  EXPECT_EQ(equipment().pointedAt(), QStringList({"main chuck", "main billet"}));
  Play(kThinner);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !drawing().pointedAt(); }, 20'000)) << "it is mended";
  EXPECT_TRUE(equipment().pointedAt().isEmpty());
}

TEST_F(Checks, OpenThePageOfTheValue) {
  OpenTooThick();
  ClickOn("EQ-203");
  QString page;
  int looks = 0;
  When([&] { return window::SelectedPage() == "Billet cylindrical" || ++looks > 200; },
       [&] {
         page = window::SelectedPage();
         CloseDialog();
       });
  QTest::mouseClick(&button("openPage"), Qt::LeftButton);
  EXPECT_EQ(page, "Billet cylindrical");
}

TEST_F(Checks, ExplainARule) {
  OpenTooThick();
  EXPECT_FALSE(button("openRule").isEnabled()) << "no finding is chosen";
  ClickOn("EQ-203");
  QTest::mouseClick(&button("openRule"), Qt::LeftButton);
  const QString text = Part<window::HelpWindow>().findChild<QTextBrowser*>()->toPlainText();
  EXPECT_TRUE(text.contains("EQ-203: A device cuts into the billet")) << text.left(200).toStdString();
}

TEST_F(Checks, AreReachedFromTheCount) {
  OpenTooThick();
  window->show();
  dock().hide();
  QTest::mouseClick(&count(), Qt::LeftButton);
  EXPECT_TRUE(dock().isVisible());
}

TEST_F(Checks, SayWhyAProjectCannotBeChecked) {
  OpenSample(true);
  WriteBytes(folder / "lathe/bench.ini", ReadBytes(folder / "lathe/bench.ini") + "[check]\nEQ-203=loud\n");
  actions()[Command::kRefresh]->trigger();
  const auto state = [&] { return dock().findChild<QLabel*>("checkState")->text(); };
  EXPECT_TRUE(QTest::qWaitFor([&] { return state().contains("not 'loud'"); }, 20'000))
      << state().toStdString();
  EXPECT_TRUE(count().isHidden());
}

}  // namespace
}  // namespace vanzet::test
