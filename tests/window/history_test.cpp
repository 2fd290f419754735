#include <QPushButton>
#include <QTreeWidget>

#include "support/places.h"
#include "support/vdm_values.h"
#include "vdm/store.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using window::Command;

/// Values of the cylindric page, and the button that stores them.
constexpr const char* kBar = "select 19\nset 2022 80\nset 2023 120\npress 2016\n";
constexpr const char* kThickerBar = "select 19\nset 2022 90\npress 2016\n";

class HistoryOfAProject : public WindowTest {
 protected:
  QTreeWidget& list() { return Part<window::HistoryDock>().tree(); }
  /// The record of the main spindle's billet.
  std::string Billet() { return Section(1, 3).at(1); }
};

TEST_F(HistoryOfAProject, ListsWhatEachDialogHasChanged) {
  OpenSample();
  Part<window::HistoryDock>().raise();
  Play(kBar);
  const int before = list().topLevelItemCount();
  Play(kThickerBar);
  ASSERT_GT(list().topLevelItemCount(), before);
  const QTreeWidgetItem* const latest = list().topLevelItem(0);
  EXPECT_TRUE(latest->text(1).contains("dialog")) << latest->text(1).toStdString();
  EXPECT_TRUE(latest->text(2).contains("90")) << latest->text(2).toStdString();
}

TEST_F(HistoryOfAProject, DrawsTheChosenStateBesideThePresent) {
  OpenSample();
  auto& dock = Part<window::HistoryDock>();
  dock.raise();
  Play(kBar);
  QCoreApplication::processEvents();
  const int kept = list().topLevelItemCount();
  Play(kThickerBar);
  const auto radius = [](const window::SectionPicture& picture) {
    return picture.section() == nullptr ? 0 : section::BoxOf(picture.section()->section).max.y;
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return radius(dock.now()) == 45; })) << radius(dock.now());
  EXPECT_EQ(dock.then().section(), nullptr) << "no row is chosen";
  list().setCurrentItem(list().topLevelItem(list().topLevelItemCount() - kept));
  EXPECT_TRUE(QTest::qWaitFor([&] { return radius(dock.then()) == 40; })) << radius(dock.then());
  EXPECT_EQ(radius(dock.now()), 45);
  const QImage then = dock.then().grab().toImage(), now = dock.now().grab().toImage();
  EXPECT_NE(then, now);
  list().setCurrentItem(list().topLevelItem(list().topLevelItemCount() - 1));
  EXPECT_TRUE(QTest::qWaitFor([&] { return dock.then().section() == nullptr; })) << "before any billet";
}

TEST_F(HistoryOfAProject, UndoesTheLastDialogByItsKeys) {
  OpenSample();
  Play(kBar);
  const std::string before = Billet();
  Play(kThickerBar);
  ASSERT_NE(Billet(), before);
  actions()[Command::kUndo]->trigger();
  EXPECT_EQ(Billet(), before);
  actions()[Command::kUndo]->trigger();
  EXPECT_NE(Billet(), before) << "the dialog before";
}

TEST_F(HistoryOfAProject, UndoesTheLastDialogThatChangedSomething) {
  OpenSample();
  Play(kBar);
  const std::string before = Billet();
  for (int i = 0; i < 3; ++i) Play(kThickerBar);
  actions()[Command::kUndo]->trigger();
  EXPECT_EQ(Billet(), before);
}

TEST_F(HistoryOfAProject, KeepsAsManyStatesAsTheSettingsSayWhenOneIsBroughtBack) {
  OpenSampleWithoutDefinitions();
  const auto ini = folder / "lathe" / "bench.ini";
  WriteBytes(ini, ReadBytes(ini) + "\n[store]\nkeep=1000\n");
  vdm::VdmStore store(folder / "lathe");
  store.KeepGenerations(1000);
  for (int i = 0; i < 250; ++i) {
    ASSERT_TRUE(store.Replace(1900, VdmOf({{std::to_string(i)}})));
    ASSERT_TRUE(store.Commit("test"));
  }
  ASSERT_TRUE(window->projectCommands().Open(folder / "lathe"));
  Play(kBar);
  actions()[Command::kUndo]->trigger();
  EXPECT_TRUE(store.ReadAt(1, {}));
}

TEST_F(HistoryOfAProject, BringsAStateBackAndThatCanBeUndone) {
  OpenSample();
  Part<window::HistoryDock>().raise();
  Play(kBar);
  const std::string first = Billet();
  QCoreApplication::processEvents();
  const int kept = list().topLevelItemCount();
  Play(kThickerBar);
  const std::string second = Billet();
  list().setCurrentItem(list().topLevelItem(list().topLevelItemCount() - kept));
  QTest::mouseClick(Part<window::HistoryDock>().findChild<QPushButton*>(), Qt::LeftButton);
  EXPECT_EQ(Billet(), first);
  actions()[Command::kUndo]->trigger();
  EXPECT_EQ(Billet(), second);
}

}  // namespace
}  // namespace vanzet::test
