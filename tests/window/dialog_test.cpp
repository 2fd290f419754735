#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QTextBrowser>
#include <QTreeWidget>

#include "support/places.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using window::Command;

class Dialogs : public WindowTest {
 protected:
  /// The dialog on the screen, or null.
  static QDialog* OnScreen() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* const dialog = qobject_cast<QDialog*>(widget);
      if (dialog != nullptr && dialog->isVisible()) return dialog;
    }
    return nullptr;
  }

  static void SelectNode(const QDialog& dialog, const QString& text) {
    auto* const tree = dialog.findChild<QTreeWidget*>();
    tree->setCurrentItem(tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive).value(0));
  }
};

TEST_F(Dialogs, OnAScreenMakeWayForAPickAndComeBackWithIt) {
  OpenSample();
  QString diameter;
  When([] { return OnScreen() != nullptr; },
       [] {
         SelectNode(*OnScreen(), "Billet cylindrical");
         OnScreen()->findChild<QAbstractButton*>("2005")->click();
       });
  When([this] { return IsPicking(); },
       [&] {
         EXPECT_EQ(OnScreen(), nullptr);
         drawing().Fit();
         Click(drawing(), At(10, 30));
         When([] { return OnScreen() != nullptr; },
              [&] {
                diameter = OnScreen()->findChild<QLineEdit*>("2022")->text();
                EXPECT_EQ(OnScreen()->parentWidget(), window.get());
                OnScreen()->close();
              });
       });
  window->equipmentCommands().Define();
  EXPECT_NEAR(diameter.toDouble(), 60, 2);
  EXPECT_FALSE(window->session()->isAtWork());
  EXPECT_TRUE(actions()[Command::kDefinition]->isEnabled());
}

TEST_F(Dialogs, LeaveTheViewsAsTheDefinitionIsThen) {
  OpenSample();
  const QImage drawn = drawing().grab().toImage(), seen = equipment().grab().toImage();
  Play(ReadBytes(VANZET_SOURCE_DIR "/examples/scripts/bar-job.txt"));
  EXPECT_NE(drawing().grab().toImage(), drawn);
  EXPECT_NE(equipment().grab().toImage(), seen);
  QTreeWidgetItem* const chuck = definition().tree().topLevelItem(0)->child(1);
  EXPECT_EQ(chuck->child(1)->child(0)->text(1), "Chuck 160");
}

TEST_F(Dialogs, ReportTheLinesTheySendAndTheAnswersTheyRead) {
  OpenSample(true);
  EXPECT_THAT(Messages(), HasSubstr("> win 1"));
  EXPECT_THAT(Messages(), HasSubstr("< $_return = '"));
  EXPECT_THAT(Messages(), Not(HasSubstr("OrvoMacroVdmOpen(")));
  messages().Clear();
  EXPECT_EQ(Messages(), "");
}

TEST_F(Dialogs, ShowTheirPagesWhereTheyAskForHelp) {
  OpenSample();
  Play("press 2012\n");
  auto* const help = window->findChild<QWidget*>("help");
  ASSERT_NE(help, nullptr);
  EXPECT_TRUE(help->isVisible());
  EXPECT_TRUE(help->findChild<QTextBrowser*>()->source().path().endsWith("guide/pages.md"));
  EXPECT_TRUE(help->findChild<QTextBrowser*>()->toPlainText().contains("Billet cylindrical"));
}

TEST_F(Dialogs, MakeTheDefinitionsThatAreMissing) {
  ASSERT_TRUE(window->projectCommands().Make(folder / "lathe", "mill-turn"));
  EXPECT_EQ(definition().tree().topLevelItem(0)->text(1), "no definition yet");
  actions()[Command::kUpgrade]->trigger();
  EXPECT_EQ(definition().tree().topLevelItem(0)->text(1), "VDM 1000, v100");
}

TEST_F(Dialogs, ThatFailAreReportedOnce) {
  OpenSample();
  setenv("VANZET_MODULE", "/no/such/module.so", 1);
  window->equipmentCommands().Define();
  unsetenv("VANZET_MODULE");
  EXPECT_THAT(notice().Message().toStdString(), HasSubstr("/no/such/module.so"));
  EXPECT_THAT(Messages(), HasSubstr("/no/such/module.so"));
  EXPECT_FALSE(window->session()->isAtWork());
}

}  // namespace
}  // namespace vanzet::test
