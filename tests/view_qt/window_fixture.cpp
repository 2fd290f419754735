#include "view_qt/window_fixture.h"

#include <QTest>
#include <QTimer>
#include <sstream>

#include "dialog/dlg_main.h"

namespace vanzet::test {

using view::qt::DialogWindow;

std::int32_t WindowTest::Serve(const Use& use, QWidget* parent) {
  const platform::PresenterScope boxes(view.Boxes());
  const platform::FilePresenterScope files(view.Files());
  dialog::CDlgMain dialog(parent, view);
  QTimer::singleShot(0, [&] {
    const QPointer<DialogWindow> window(static_cast<DialogWindow*>(static_cast<QWidget*>(view.Window())));
    use(*window);
    if (window && dialog.IsOpen()) window->close();
  });
  return dialog.RunModalLoop(4);
}

QLineEdit& WindowTest::Edit(DialogWindow& window, int id) {
  return *qobject_cast<QLineEdit*>(window.WidgetOf(id));
}

void WindowTest::TypeOver(DialogWindow& window, int id, const char* text) {
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  Edit(window, id).setFocus(Qt::TabFocusReason);
  QTest::keyClicks(&Edit(window, id), text);
}

void WindowTest::Key(DialogWindow& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(window.focusWidget(), key, modifiers);
}

void WindowTest::Do(DialogWindow& window, const std::string& script) {
  std::istringstream text(script);
  view::ScriptReader lines(text);
  Person person(window, responder);
  for (auto line = lines.Next(); line && !line->empty(); line = lines.Next()) {
    const auto done = person.Do(*line);
    EXPECT_TRUE(done) << line->front().text << ": " << done.fault().Message();
  }
}

}  // namespace vanzet::test
