#pragma once

#include <gmock/gmock.h>

#include <QLineEdit>

#include <functional>

#include "dialog/dialog_fixture.h"
#include "view/qt/qt_view.h"
#include "view_qt/person.h"

namespace vanzet::test {

/// A dialog of a machine that has everything, served on a display that nobody sees.
class WindowTest : public testing::Test {
 protected:
  using Use = std::function<void(view::qt::DialogWindow&)>;

  WindowTest() { world.SetMachine({.sub = true, .tail = true, .lun = true, .spurs = 2}); }

  /// Shows the dialog while `use` uses it, and closes it if it is still open then. Returns its result.
  std::int32_t Serve(const Use& use, QWidget* parent = nullptr);

  /// Does the lines of a script with mouse and keyboard.
  void Do(view::qt::DialogWindow& window, const std::string& script);

  static QLineEdit& Edit(view::qt::DialogWindow& window, int id);

  /// Types into an edit that is reached by the Tab key, over what it holds.
  static void TypeOver(view::qt::DialogWindow& window, int id, const char* text);

  /// Presses a key where the focus is.
  static void Key(view::qt::DialogWindow& window, Qt::Key key,
                  Qt::KeyboardModifiers modifiers = Qt::NoModifier);

  DialogWorld world;
  FakeHost& host = world.host;
  view::qt::QtView view;
  Responder responder;
};

/// The nodes that lead to each page with controls.
inline constexpr int kNodesOfPages[] = {3, 16, 19, 20, 21, 28, 29, 34, 36};

}  // namespace vanzet::test
