#pragma once

#include <gmock/gmock.h>

#include <QTest>
#include <QTreeWidget>
#include <functional>
#include <memory>
#include <string>

#include "support/temporary_folder.h"
#include "window/application.h"
#include "window/main_window.h"

namespace vanzet::test {

/// The window over the sample project, without a display, with settings of its own.
class WindowTest : public testing::Test {
 protected:
  WindowTest();
  ~WindowTest() override;

  /// Makes a new window, as the next start of the program does.
  void Restart();

  /// Opens the sample project, with a definition of the bar job when it is asked for.
  void OpenSample(bool hasBarJob = false);

  /// Opens the sample project as a person has copied it: no spur has a definition.
  void OpenSampleWithoutDefinitions();

  /// Plays a script through the dialog; each of `answers` is called when the next pick is asked for.
  void Play(const std::string& script, std::vector<std::function<void()>> answers = {});

  // The parts of the window, and the commands that no other program calls.
  window::Actions& actions() { return Part<window::Actions>(); }
  window::DrawingView& drawing() { return Part<window::DrawingView>(); }
  window::EquipmentView& equipment() { return Part<window::EquipmentView>(); }
  window::MessageDock& messages() { return Part<window::MessageDock>(); }
  window::DefinitionDock& definition() { return Part<window::DefinitionDock>(); }
  window::LayerDock& layers() { return Part<window::LayerDock>(); }
  window::ChoiceDock& choice() { return Part<window::ChoiceDock>(); }
  window::HintBar& hint() { return Part<window::HintBar>(); }
  window::NoticeBar& notice() { return Part<window::NoticeBar>(); }
  window::ExportCommands& exports() { return Part<window::ExportCommands>(); }
  bool IsPicking() const { return window->equipmentCommands().IsPicking(); }

  /// The items of a section of the first spur's definition.
  std::vector<std::string> Section(std::size_t operation, std::size_t section);

  /// The branch of the definition's tree with the stored records of a spur.
  QTreeWidgetItem* Records(int spur);

  /// The place on the screen of a place of the drawing.
  QPoint At(double x, double y);
  void Click(QWidget& widget, const QPoint& place);

  /// Calls `work` as soon as it is time, while the window lives.
  void When(std::function<bool()> isTime, std::function<void()> work);

  /// Closes the box that comes up next by the button with that text, and gives what the box said.
  std::shared_ptr<QString> AnswerBox(const QString& button);

  /// The message panel with the lines of the module.
  std::string Messages() {
    messages().ShowLines(true);
    return messages().Content().toStdString();
  }

  static window::Application& Program();

  template <class Type>
  Type& Part() {
    return *window->findChild<Type*>();
  }

  const TemporaryFolder folder;
  std::unique_ptr<window::MainWindow> window;

 private:
  /// A pick that is not answered ends and is a failure.
  void GiveUpLater();
};

}  // namespace vanzet::test
