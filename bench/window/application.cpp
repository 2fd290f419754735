#include "window/application.h"

#include <exception>

#include "window/theme.h"
#include "window/window_memory.h"

namespace vanzet::window {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  setApplicationName("vanzet");
  setApplicationDisplayName("");
  Dress(*this, WindowMemory().ChosenAppearance().value_or(AppearanceOf(palette())));
}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::exception& error) {
    if (tell) tell(Fault{error.what()});
  } catch (...) {
    if (tell) tell(Fault{"something unexpected was thrown"});
  }
  return true;
}

}  // namespace vanzet::window
