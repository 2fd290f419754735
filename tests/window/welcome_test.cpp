#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QStatusBar>

#include "window/commands/boxes.h"
#include "window/commands/command_palette.h"
#include "window/commands/settings_box.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using window::Command;

class Welcome : public WindowTest {
 protected:
  QAbstractButton* Button(const QString& name) {
    for (auto* const button : Part<window::WelcomePage>().findChildren<QAbstractButton*>()) {
      if (button->accessibleName() == name) return button;
    }
    return nullptr;
  }
  /// Calls `work` with the next box of that class.
  template <class Box>
  void WhenAsked(std::function<void(Box&)> work) {
    const auto box = [] { return qobject_cast<Box*>(QApplication::activeModalWidget()); };
    When([=] { return box() != nullptr; }, [=] { work(*box()); });
  }
};

TEST_F(Welcome, OffersTheProjectsThatWereOpen) {
  OpenSample();
  EXPECT_FALSE(Part<window::WelcomePage>().isVisible());
  Restart();
  EXPECT_TRUE(Part<window::WelcomePage>().isVisible());
  QAbstractButton* const recent = Button(QString::fromStdString((folder / "lathe").string()));
  ASSERT_NE(recent, nullptr);
  QTest::mouseClick(recent, Qt::LeftButton);
  ASSERT_NE(window->session(), nullptr);
  EXPECT_TRUE(drawing().isVisible());
}

TEST_F(Welcome, OffersTheSamplesForANewProject) {
  QString sample;
  WhenAsked<window::NewProjectBox>([&](window::NewProjectBox& box) {
    sample = box.Sample();
    box.reject();
  });
  QTest::mouseClick(Button("mill-turn"), Qt::LeftButton);
  EXPECT_EQ(sample, "mill-turn");
}

TEST_F(Welcome, OffersTheGuide) {
  QTest::mouseClick(Button("Read the guide"), Qt::LeftButton);
  EXPECT_TRUE(Part<window::HelpWindow>().isVisible());
}

TEST_F(Welcome, IsInTheLanguageOfTheWindow) {
  actions().ActionOf("de")->trigger();
  EXPECT_NE(Button("Die Anleitung lesen"), nullptr);
}

class Palette : public Welcome {};

TEST_F(Palette, RunsTheCommandWhoseLettersAreTyped) {
  OpenSample(true);
  WhenAsked<window::CommandPalette>([](window::CommandPalette& palette) {
    QTest::keyClicks(palette.findChild<QLineEdit*>(), "front");
    QTest::keyClick(palette.findChild<QLineEdit*>(), Qt::Key_Return);
  });
  actions()[Command::kPalette]->trigger();
  EXPECT_NEAR(equipment().look().toward.dz, 1, 1e-9);
}

TEST_F(Palette, ListsEveryCommandWithItsKeys) {
  QStringList rows;
  WhenAsked<window::CommandPalette>([&](window::CommandPalette& palette) {
    auto* const list = palette.findChild<QTreeWidget*>();
    for (int i = 0; i < list->topLevelItemCount(); ++i)
      rows << list->topLevelItem(i)->text(0) + "=" + list->topLevelItem(i)->text(1);
    palette.reject();
  });
  actions()[Command::kPalette]->trigger();
  EXPECT_TRUE(rows.contains("Define Equipment=Ctrl+D"));
  EXPECT_TRUE(rows.contains("Equipment Only=F8"));
}

class SettingsPage : public Welcome {};

TEST_F(SettingsPage, ChangesLanguageThemeUnitAndDecimals) {
  OpenSample(true);
  WhenAsked<window::SettingsBox>([](window::SettingsBox& box) {
    const auto lists = box.findChildren<QComboBox*>();
    lists[0]->setCurrentIndex(lists[0]->findData("de"));
    lists[1]->setCurrentIndex(lists[1]->findData(true));
    lists[2]->setCurrentIndex(lists[2]->findData("inch"));
    box.findChild<QSpinBox*>()->setValue(1);
    box.accept();
  });
  actions()[Command::kSettings]->trigger();
  EXPECT_TRUE(actions().ActionOf("de")->isChecked());
  EXPECT_TRUE(actions()[Command::kDark]->isChecked());
  emit drawing().CursorMoved(50.8, 0);
  QStringList shown;
  for (const auto* const label : window->statusBar()->findChildren<QLabel*>()) shown << label->text();
  EXPECT_TRUE(shown.contains("X 2.0   Y 0.0 inch")) << shown.join("|").toStdString();
  actions()[Command::kLight]->trigger();
}

}  // namespace
}  // namespace vanzet::test
