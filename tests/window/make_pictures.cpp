#include <QTableView>
#include <QTest>
#include <QTreeWidget>
#include <cstdio>

#include "window/application.h"
#include "window/main_window.h"

/// Pictures of the window with a project, in both languages, light and dark: make_window_pictures PROJECT
/// OUT. QT_SCALE_FACTOR tells the scale; where VANZET_SCRIPT names a script, it serves the dialog first.
namespace {

using namespace vanzet;
using namespace vanzet::window;

void Wait(MainWindow& window) {
  QCoreApplication::processEvents();
  static_cast<void>(QTest::qWaitFor([&] { return window.findChild<EquipmentView*>()->isSmooth(); }, 20'000));
}

void SelectTwo(MainWindow& window) {
  QTableView& table = window.findChild<CataloguePage*>()->table();
  table.selectRow(0);
  table.setSelectionMode(QAbstractItemView::MultiSelection);
  table.selectRow(1);
  table.setSelectionMode(QAbstractItemView::ExtendedSelection);
  QCoreApplication::processEvents();
}

/// The checks with the first finding chosen; nothing to be seen for a set-up without findings.
void ChooseFinding(MainWindow& window) {
  auto& dock = *window.findChild<CheckDock*>();
  dock.show();
  dock.raise();
  static_cast<void>(QTest::qWaitFor([&] { return dock.tree().topLevelItemCount() > 0; }, 10'000));
  dock.tree().setCurrentItem(dock.tree().topLevelItem(0));
  Wait(window);
}

}  // namespace

int main(int argc, char** argv) {
  Application application(argc, argv);
  const QStringList words = QCoreApplication::arguments();
  if (words.size() < 3) return std::fprintf(stderr, "make_window_pictures PROJECT OUT\n"), 2;
  MainWindow window(Places::OfProcess());
  window.resize(1400, 900);
  window.show();
  if (const auto opened = window.projectCommands().Open(words[1].toStdString()); !opened) {
    return std::fprintf(stderr, "%s\n", opened.fault().Message().c_str()), 1;
  }
  if (qEnvironmentVariableIsSet("VANZET_SCRIPT")) window.equipmentCommands().Define();
  const Actions& actions = *window.findChild<Actions*>();
  for (const Command appearance : {Command::kLight, Command::kDark}) {
    for (const char* language : {"en", "de"}) {
      actions[appearance]->trigger();
      actions.ActionOf(language)->trigger();
      Wait(window);
      const QString name = QString("%1-%2-%3.png")
                               .arg(language, appearance == Command::kDark ? "dark" : "light")
                               .arg(window.devicePixelRatio());
      if (!window.grab().save(words[2] + "/window-" + name)) return 1;
      ChooseFinding(window);
      if (!window.grab().save(words[2] + "/checks-" + name)) return 1;
      window.catalogueCommands().Show();
      SelectTwo(window);
      if (!window.grab().save(words[2] + "/catalogue-" + name)) return 1;
      window.catalogueCommands().Leave();
    }
  }
  return 0;
}
