#include <QAbstractButton>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTextBrowser>
#include <QTreeWidget>

#include "support/places.h"
#include "vdm/store.h"
#include "view/ids.h"
#include "window/commands/dialog_page.h"
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

  static void Type(const QDialog& dialog, const char* edit, const char* text) {
    auto* const line = dialog.findChild<QLineEdit*>(edit);
    line->selectAll();
    QTest::keyClicks(line, text);
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
         QTest::mouseClick(OnScreen()->findChild<QAbstractButton*>("2005"), Qt::LeftButton);
       });
  When([this] { return IsPicking(); },
       [&] {
         EXPECT_EQ(OnScreen(), nullptr);
         EXPECT_THAT(hint().findChild<QLabel*>()->text().toStdString(), HasSubstr("Outer diameter"));
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

TEST_F(Dialogs, OpenAtThePageOfTheRowThatIsDoubleClicked) {
  OpenSample(true);
  QString page;
  const auto selected = [] {
    const auto* const tree = OnScreen() == nullptr ? nullptr : OnScreen()->findChild<QTreeWidget*>();
    return tree == nullptr || tree->currentItem() == nullptr ? QString() : tree->currentItem()->text(0);
  };
  int looks = 0;
  When([&] { return selected() == "Billet cylindrical" || ++looks > 200; },
       [&] {
         page = selected();
         OnScreen()->close();
       });
  QTreeWidget& tree = definition().tree();
  QTreeWidgetItem* const billet = tree.findItems("Billet", Qt::MatchExactly | Qt::MatchRecursive).value(0);
  tree.scrollToItem(billet);
  const QPoint place = tree.visualItemRect(billet).center();
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, place);
  QTest::mouseDClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, place);
  QTest::mouseRelease(tree.viewport(), Qt::LeftButton, Qt::NoModifier, place);
  EXPECT_EQ(page, "Billet cylindrical");
}

TEST_F(Dialogs, OpenAtThePageOfTheBodyThatIsDoubleClicked) {
  OpenSample(true);
  actions()[Command::kFront]->trigger();
  // A dialog beside the views has changed their sizes.
  const auto inSpace = [this](const geometry::Point3d& point) {
    const auto place = scene::Camera(equipment().look()).Project(point);
    return QPointF(place.x, place.y).toPoint();
  };
  const auto pageAfter = [this](QWidget& view, const QPoint& place, const QString& expected) {
    QString page;
    int looks = 0;
    When([&] { return window::SelectedPage() == expected || ++looks > 100; },
         [&] {
           page = window::SelectedPage();
           if (OnScreen() != nullptr) OnScreen()->close();
         });
    QTest::mouseDClick(&view, Qt::LeftButton, Qt::NoModifier, place);
    QCoreApplication::processEvents();
    return page;
  };
  EXPECT_EQ(pageAfter(drawing(), At(-70, 40), "Jaw"), "Jaw");
  EXPECT_EQ(pageAfter(drawing(), At(-10, 15), "Billet cylindrical"), "Billet cylindrical");
  EXPECT_EQ(pageAfter(equipment(), inSpace({-120, 70, 0}), "Chuck"), "Chuck");
}

TEST_F(Dialogs, ShowWhatIsStoredWhileTheyAreUp) {
  OpenSample();
  ASSERT_FALSE(equipment().BodyNames().contains("main billet"));
  When([] { return OnScreen() != nullptr; },
       [this] {
         SelectNode(*OnScreen(), "Billet cylindrical");
         Type(*OnScreen(), "2022", "42");
         Type(*OnScreen(), "2023", "50");
         EXPECT_TRUE(
             QTest::qWaitFor([this] { return equipment().BodyNames().contains("main billet, not stored"); }));
         EXPECT_FALSE(equipment().BodyNames().contains("main billet"));
         QTest::mouseClick(OnScreen()->findChild<QAbstractButton*>("2016"), Qt::LeftButton);
         EXPECT_TRUE(
             QTest::qWaitFor([this] { return equipment().BodyNames() == QStringList("main billet"); }));
         ASSERT_NE(drawing().section(), nullptr);
         EXPECT_NEAR(section::BoxOf(drawing().section()->section).max.y, 21, 1e-9);
         OnScreen()->close();
       });
  window->equipmentCommands().Define();
  EXPECT_EQ(equipment().BodyNames(), QStringList("main billet"));
}

TEST_F(Dialogs, ShowASteadyRestAsSoonAsItsBoxIsTicked) {
  OpenSample(true);
  ASSERT_FALSE(equipment().BodyNames().contains("steady rest"));
  When([] { return OnScreen() != nullptr; },
       [&] {
         SelectNode(*OnScreen(), "Bezel");
         auto* const box = OnScreen()->findChild<QAbstractButton*>(QString::number(control::kUseBezel));
         QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
         EXPECT_TRUE(box->isChecked());
         const auto isPale = [this] { return equipment().BodyNames().contains("steady rest, not stored"); };
         EXPECT_TRUE(QTest::qWaitFor(isPale));
         EXPECT_NE(OnScreen()->property("unstored").toString(), QString());
         OnScreen()->close();
       });
  window->equipmentCommands().Define();
  EXPECT_FALSE(equipment().BodyNames().contains("steady rest"));
}

TEST_F(Dialogs, ShowADeviceBeforeItsSimulationDataAreMade) {
  OpenSample(true);
  const auto chuckDepth = [this] {
    for (const auto& body : drawing().section()->section.bodies) {
      if (body.name == "main chuck") return section::BoxOf(body.region).Width();
    }
    return 0.0;
  };
  EXPECT_NEAR(chuckDepth(), 90, 1e-9);
  When([] { return OnScreen() != nullptr; },
       [&] {
         SelectNode(*OnScreen(), "Chuck");
         const QString letter = QString::number(control::EditOfLetter('B'));
         Type(*OnScreen(), letter.toLatin1().constData(), "70");
         const auto isPale = [this] { return equipment().BodyNames().contains("main chuck, not stored"); };
         EXPECT_TRUE(QTest::qWaitFor(isPale));
         EXPECT_NEAR(chuckDepth(), 90, 1e-9) << "what is stored stays until it is selected";
         OnScreen()->close();
       });
  window->equipmentCommands().Define();
  EXPECT_NEAR(chuckDepth(), 90, 1e-9);
  EXPECT_FALSE(equipment().BodyNames().contains("main chuck, not stored"));
}

TEST_F(Dialogs, ComeUpWhereTheUserHasPutThem) {
  OpenSample();
  QPoint first, second;
  const QRect before = window->geometry();
  When([] { return OnScreen() != nullptr; },
       [&] {
         first = OnScreen()->pos();
         OnScreen()->move(60, 90);
         OnScreen()->close();
       });
  window->equipmentCommands().Define();
  EXPECT_EQ(window->geometry(), before) << "the window gets its size back";
  When([] { return OnScreen() != nullptr; },
       [&] {
         second = OnScreen()->pos();
         OnScreen()->close();
       });
  window->equipmentCommands().Define();
  EXPECT_NE(first, QPoint(60, 90));
  EXPECT_EQ(second, QPoint(60, 90));
}

/// The work of a screen on windows: it moves the dialog by the frame that it puts around it.
TEST_F(Dialogs, ThatTheScreenMovesAreNotTakenForMovedByTheUser) {
  OpenSample();
  When([] { return OnScreen() != nullptr; },
       [] {
         OnScreen()->move(OnScreen()->pos() - QPoint(3, 37));
         OnScreen()->close();
       });
  window->equipmentCommands().Define();
  EXPECT_TRUE(window::WindowMemory().DialogPlace().isNull());
}

TEST_F(Dialogs, LeaveTheViewsAsTheDefinitionIsThen) {
  OpenSample();
  const QImage drawn = drawing().grab().toImage(), seen = equipment().grab().toImage();
  Play(ReadBytes(VANZET_SOURCE_DIR "/examples/scripts/bar-job.txt"));
  EXPECT_NE(drawing().grab().toImage(), drawn);
  EXPECT_NE(equipment().grab().toImage(), seen);
  QTreeWidgetItem* const chuck = Records(0)->child(1);
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

TEST_F(Dialogs, LeaveTheirLinesOutOfTheMessagesUntilTheyAreAskedFor) {
  OpenSample();
  messages().ShowLines(false);
  Play(ReadBytes(VANZET_SOURCE_DIR "/examples/scripts/bar-job.txt"));
  EXPECT_EQ(messages().Content().toStdString(), "");
  messages().ShowLines(true);
  EXPECT_THAT(messages().Content().toStdString(), HasSubstr("> win 1"));
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
  OpenSampleWithoutDefinitions();
  EXPECT_EQ(definition().tree().topLevelItem(0)->text(1), "no definition yet");
  actions()[Command::kUpgrade]->trigger();
  EXPECT_EQ(definition().tree().topLevelItem(0)->text(1), "VDM 1000, v100");
}

TEST_F(Dialogs, MakeTheDefinitionsThatAreMissingBeforeTheyBegin) {
  OpenSampleWithoutDefinitions();
  Play("press 1\n");
  EXPECT_THAT(Messages(), HasSubstr("2 definitions are missing and are created first"));
  EXPECT_EQ(definition().tree().topLevelItem(1)->text(1), "VDM 1001, v100");
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

/// The items of the definitions.
std::string ItemsOf(const std::filesystem::path& project) {
  std::string items;
  for (const std::int64_t number : {1000, 1001}) {
    const auto content = vdm::VdmStore(project).Snapshot(number);
    for (std::size_t i = 0; content && i < content->Size(); ++i) items += vdm::BytesOf(**content->Read(i));
  }
  return items;
}

TEST_F(Dialogs, StayOpenWhereAnOkCannotBeStored) {
  OpenSample(true);
  const auto store = folder / "lathe/store.db";
  const std::string before = ItemsOf(folder / "lathe");
  std::shared_ptr<QString> said, saidAgain;
  bool wasOpen = false;
  const auto pressOk = [] {
    OnScreen()->findChild<QAbstractButton*>(QString::number(control::kOk))->click();
  };
  When([] { return OnScreen() != nullptr; },
       [&] {
         std::filesystem::permissions(store, std::filesystem::perms::owner_read);
         said = AnswerBox("OK");
         pressOk();
         wasOpen = OnScreen() != nullptr;
         EXPECT_EQ(ItemsOf(folder / "lathe"), before);
         EXPECT_THAT(notice().Message().toStdString(), HasSubstr("store.db: is read-only"));
         saidAgain = AnswerBox("OK");
         pressOk();
         std::filesystem::permissions(store, std::filesystem::perms::owner_all);
         pressOk();
       });
  window->equipmentCommands().Define();
  EXPECT_TRUE(wasOpen);
  EXPECT_FALSE(window->session()->isAtWork()) << "the second OK closed it";
  EXPECT_THAT(said->toStdString(), HasSubstr("store.db: is read-only\n\nWhat you have done"));
  EXPECT_THAT(saidAgain->toStdString(), HasSubstr("store.db: is read-only")) << "at each attempt";
}

TEST_F(Dialogs, KeepTheDefinitionWhereAConfigurationIsBroken) {
  OpenSample(true);
  const std::string before = ItemsOf(folder / "lathe");
  WriteBytes(folder / "broken.vdm", "vdm 1\nrecord\n");
  const auto said = AnswerBox("OK");
  Play("answer yes\nfile \"" + (folder / "broken.vdm").string() + "\"\npress " +
       std::to_string(control::kLoad) + "\n");
  EXPECT_THAT(said->toStdString(), HasSubstr("broken.vdm:3: is cut short"));
  EXPECT_THAT(notice().Message().toStdString(), HasSubstr("broken.vdm:3: is cut short"));
  EXPECT_EQ(ItemsOf(folder / "lathe"), before);
}

TEST_F(Dialogs, StoreEachEventThatTheyHandled) {
  OpenSample();
  std::string stored;
  When([] { return OnScreen() != nullptr; },
       [&] {
         const std::string before = ItemsOf(folder / "lathe");
         SelectNode(*OnScreen(), "Billet cylindrical");
         Type(*OnScreen(), "2022", "33");
         Type(*OnScreen(), "2023", "100");
         EXPECT_EQ(ItemsOf(folder / "lathe"), before);
         OnScreen()->findChild<QAbstractButton*>("2016")->click();
         stored = ItemsOf(folder / "lathe");
         EXPECT_NE(stored, before);
         OnScreen()->close();
       });
  window->equipmentCommands().Define();
  EXPECT_EQ(ItemsOf(folder / "lathe"), stored);
}

}  // namespace
}  // namespace vanzet::test
