#include <dlfcn.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "support/places.h"
#include "view_qt/window_fixture.h"

namespace vanzet::test {
namespace {

/// The module and the library of the view as files, in a host that is a program of Qt.
class ModuleInAHostOfQt : public WindowTest {
 protected:
  ModuleInAHostOfQt() {
    qputenv("VANZET_VIEW_QT", VANZET_VIEW_QT_FILE);
    variables[1] = static_cast<QWidget*>(&main);
    host.structure = variables;
    module = dlopen(VANZET_MODULE_FILE, RTLD_NOW | RTLD_LOCAL);
    EXPECT_NE(module, nullptr) << dlerror();
  }
  ~ModuleInAHostOfQt() override {
    dlclose(module);
    qunsetenv("VANZET_VIEW_QT");
  }

  void Call(const char* name) { reinterpret_cast<void (*)()>(dlsym(module, name))(); }

  QMainWindow main;
  void* variables[2] = {nullptr, nullptr};
  void* module = nullptr;
};

TEST_F(ModuleInAHostOfQt, ShowsTheDialogInFrontOfTheHostsWindow) {
  main.show();
  bool isInFront = false;
  QTimer::singleShot(0, &main, [&] {
    auto* const dialog = main.findChild<QDialog*>();
    if (dialog == nullptr) return;
    isInFront = dialog->isVisible() && dialog->windowTitle() == QStringLiteral("Equipment Definition");
    dialog->close();
  });
  Call("mstart");
  EXPECT_TRUE(isInFront);
  EXPECT_TRUE(main.isVisible());
  EXPECT_TRUE(main.isEnabled());
}

TEST_F(ModuleInAHostOfQt, ShowsTheBoxesOfTheUpgrade) {
  host.environment["ppdefini"] = (world.folder / "missing.ini").string();
  std::string text;
  responder.onBox = [&](QMessageBox& box) { text = box.text().toStdString(); };
  Call("ReOrgVdm");
  EXPECT_THAT(text, testing::HasSubstr("missing.ini"));
}

}  // namespace
}  // namespace vanzet::test
