#include "view_qt/window_fixture.h"

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
