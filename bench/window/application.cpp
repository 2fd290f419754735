#include "window/application.h"

#include "base/exception_fault.h"
#include "window/theme.h"
#include "window/window_memory.h"

namespace vanzet::window {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  setApplicationName("vanzet");
  setApplicationDisplayName("");
  ApplyAppearance(*this, WindowMemory().ChosenAppearance().value_or(AppearanceOf(palette())));
}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    if (reportFault) reportFault(FaultOfException());
  }
  return true;
}

}  // namespace vanzet::window
