#include <QDialog>
#include <QLineEdit>
#include <QProcess>
#include <QTreeWidget>

#include "project/sample.h"
#include "support/child.h"
#include "support/places.h"
#include "support/test_server.h"
#include "vdm/embedded/vdm_locks.h"
#include "window/watch/holders_label.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;

/// The window over a project that other programs change.
class WatchedProject : public WindowTest {
 protected:
  window::HoldersLabel& holders() { return Part<window::HoldersLabel>(); }

  /// Runs `vanzet define` in a program of its own, while the window lives.
  static void Define(const std::filesystem::path& project) {
    QProcess program;
    program.start(VANZET_BINARY_DIR "/bin/vanzet",
                  {"define", VANZET_SOURCE_DIR "/examples/definitions/bar-job.json", project.c_str()});
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.state() == QProcess::NotRunning; }, 60'000));
    EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
  }

  /// The bar job is in all that shows the project.
  bool ShowsTheBarJob() {
    const auto named = definition().tree().findItems("Billet", Qt::MatchExactly | Qt::MatchRecursive);
    return !named.empty() && equipment().BodyNames().contains("main billet") &&
           drawing().section() != nullptr;
  }

  void ExpectToShowTheBarJob() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return ShowsTheBarJob(); })) << Messages();
  }
};

TEST_F(WatchedProject, ShowsWhatAnotherProgramDefines) {
  OpenSample();
  ASSERT_FALSE(ShowsTheBarJob());
  Define(folder / "lathe");
  ExpectToShowTheBarJob();
}

TEST_F(WatchedProject, SaysWhoHasADefinitionOpen) {
  Child other([&](Child::Line& parent) {
    if (!parent.Await()) return false;
    vdm::VdmLocks locks(folder / "lathe" / "store.lock");
    const auto held = locks.Acquire(vdm::Number{1000});
    parent.Tell();
    return held && parent.Await();
  });
  OpenSample();
  EXPECT_TRUE(holders().isHidden());
  other.line().Tell();
  ASSERT_TRUE(other.line().Await());
  EXPECT_TRUE(QTest::qWaitFor([this] { return holders().isVisible(); }));
  EXPECT_THAT(holders().text().toStdString(), testing::MatchesRegex("Open: .+ on .+ since .*..:.."));
  EXPECT_THAT(holders().toolTip().toStdString(), testing::StartsWith("VDM 1000: "));
  actions().ActionOf("de")->trigger();
  EXPECT_THAT(holders().text().toStdString(), testing::MatchesRegex("Offen: .+ auf .+ seit .*..:.."));
  other.line().Tell();
  EXPECT_TRUE(other.End());
  EXPECT_TRUE(QTest::qWaitFor([this] { return holders().isHidden(); }));
}

/// A project on a server, of which each person has a folder of their own.
class SharedProject : public WatchedProject {
 protected:
  void SetUp() override {
    if (ServerText().empty()) GTEST_SKIP() << kNoServer;
    for (const auto& place : {mine, theirs}) {
      ASSERT_TRUE(project::MakeProject(place, "mill-turn", VANZET_BINARY_DIR "/share/vanzet"));
      const auto ini = place / "bench.ini";
      WriteBytes(ini, ReadBytes(ini) + "\n[store]\nengine=" + Text() + "\nproject=" + name + "\n");
    }
    ASSERT_TRUE(window->projectCommands().Open(mine));
  }

  /// The server, on connections that a test can tell from others.
  std::string Text() const { return ServerText() + " application_name=" + program; }

  void BreakConnections() const {
    const auto server = vdm::PostgresConnection::Open(ServerText());
    ASSERT_TRUE(
        (*server)->Run({{"SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE application_name=$1",
                         {vdm::PostgresValue::Text(program)}}}));
  }

  /// The dialog of the module, or null.
  static QDialog* Dialog() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* const dialog = qobject_cast<QDialog*>(widget);
      if (dialog != nullptr && dialog->isVisible() && dialog->findChild<QTreeWidget*>() != nullptr)
        return dialog;
    }
    return nullptr;
  }

  const std::string name = NewProject();
  const std::string program = "test_" + std::to_string(getpid());
  const std::filesystem::path mine = folder / "mine", theirs = folder / "theirs";
};

TEST_F(SharedProject, ShowsWhatAnotherProgramDefinesInAnotherFolder) {
  ASSERT_FALSE(ShowsTheBarJob());
  Define(theirs);
  ExpectToShowTheBarJob();
}

TEST_F(SharedProject, SaysWhoHasADefinitionOpen) {
  vdm::PostgresEngine other(ServerText() + " application_name='vanzet jo@shop-3'", name);
  const auto locks = other.Locks();
  {
    const auto held = locks->Acquire(vdm::Number{1000});
    EXPECT_TRUE(QTest::qWaitFor([this] { return holders().isVisible(); }));
    EXPECT_THAT(holders().text().toStdString(), testing::MatchesRegex("Open: jo on shop-3 since ..:.."));
  }
  EXPECT_TRUE(QTest::qWaitFor([this] { return holders().isHidden(); }));
}

TEST_F(SharedProject, IsReadAgainAfterItsConnectionBroke) {
  BreakConnections();
  EXPECT_TRUE(QTest::qWaitFor([this] { return holders().isVisible(); }));
  EXPECT_THAT(holders().text().toStdString(), HasSubstr("cannot be reached"));
  EXPECT_NE(holders().toolTip(), "");
  Define(theirs);
  EXPECT_TRUE(QTest::qWaitFor([this] { return holders().isHidden(); }));
  ExpectToShowTheBarJob();
}

TEST_F(SharedProject, KeepsWhatIsTypedIntoADialogWhileOthersDefine) {
  QString typed;
  When([] { return Dialog() != nullptr; },
       [&] {
         auto* const tree = Dialog()->findChild<QTreeWidget*>();
         tree->setCurrentItem(
             tree->findItems("Billet cylindrical", Qt::MatchExactly | Qt::MatchRecursive).value(0));
         auto* const diameter = Dialog()->findChild<QLineEdit*>("2022");
         diameter->selectAll();
         QTest::keyClicks(diameter, "42");
         Define(theirs);
         EXPECT_TRUE(QTest::qWaitFor([this] { return equipment().BodyNames().contains("main billet"); }));
         typed = diameter->text();
         Dialog()->close();
       });
  window->equipmentCommands().Define();
  EXPECT_EQ(typed, "42");
  ExpectToShowTheBarJob();
}

}  // namespace
}  // namespace vanzet::test
