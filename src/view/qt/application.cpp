#include "view/qt/application.h"

#include <QApplication>
#include <QLibrary>
#include <QPluginLoader>
#include <QStringList>
#include <clocale>
#include <vector>

#include "view/qt/texts.h"

namespace vanzet::view::qt {
namespace {

// The client libraries of the displays are looked up by name: Qt's plug-ins bring them along, and nothing
// here has to be built with them.

bool XAnswers() {
  QLibrary xcb(QStringLiteral("xcb"), 1);
  const auto connect = reinterpret_cast<void* (*)(const char*, int*)>(xcb.resolve("xcb_connect"));
  const auto hasError = reinterpret_cast<int (*)(void*)>(xcb.resolve("xcb_connection_has_error"));
  const auto disconnect = reinterpret_cast<void (*)(void*)>(xcb.resolve("xcb_disconnect"));
  if (connect == nullptr || hasError == nullptr || disconnect == nullptr) return false;
  void* const connection = connect(nullptr, nullptr);
  const bool answers = hasError(connection) == 0;
  disconnect(connection);
  return answers;
}

bool WaylandAnswers() {
  QLibrary wayland(QStringLiteral("wayland-client"), 0);
  const auto connect = reinterpret_cast<void* (*)(const char*)>(wayland.resolve("wl_display_connect"));
  const auto disconnect = reinterpret_cast<void (*)(void*)>(wayland.resolve("wl_display_disconnect"));
  if (connect == nullptr || disconnect == nullptr) return false;
  void* const connection = connect(nullptr);
  if (connection != nullptr) disconnect(connection);
  return connection != nullptr;
}

/// A platform that shows its windows on a display elsewhere.
struct Display {
  const char* platform;  ///< the names of its plug-ins begin so
  const char* variable;  ///< of the environment, names the display
  bool (*answers)();
};

constexpr Display kDisplays[] = {
    {"xcb", "DISPLAY", XAnswers},
    {"wayland", "WAYLAND_DISPLAY", WaylandAnswers},
};

const Display* DisplayOf(const QString& platform) {
  for (const Display& display : kDisplays) {
    if (platform.startsWith(QLatin1String(display.platform))) return &display;
  }
  return nullptr;
}

/// The platforms to try. A name may have arguments after a colon.
QStringList WantedPlatforms() {
  const QString named = qEnvironmentVariable("QT_QPA_PLATFORM");
  if (!named.isEmpty()) return named.split(QLatin1Char(';'), Qt::SkipEmptyParts);
  QStringList wanted;
  for (const Display& display : kDisplays) {
    if (!qEnvironmentVariableIsEmpty(display.variable)) wanted.append(QLatin1String(display.platform));
  }
  return wanted;
}

Result<void> Try(const QString& platform) {
  const Display* const display = DisplayOf(platform);
  if (display != nullptr && !display->answers()) {
    return Fault{"no answer from the display '" + qgetenv(display->variable).toStdString() + "' of " +
                 display->variable};
  }
  QPluginLoader plugin(QStringLiteral("platforms/q") + platform.section(QLatin1Char(':'), 0, 0));
  if (plugin.load()) return {};
  return Fault{"Qt's platform '" + platform.toStdString() +
               "' does not load: " + plugin.errorString().toStdString()};
}

/// The name of a Qt platform that will start here. Qt ends the process where it cannot start one, so
/// everything that it needs is tried first: the displays that are named have to answer, and the plug-in of
/// the platform has to load. The candidates are those of QT_QPA_PLATFORM, in order; without it X if DISPLAY
/// is set, then Wayland.
Result<std::string> StartablePlatform() {
  Fault fault{"no display is named"};
  for (const QString& platform : WantedPlatforms()) {
    const auto tried = Try(platform);
    if (tried) return platform.toStdString();
    fault = tried.fault();
  }
  return fault;
}

/// An application with the arguments that it keeps pointers to.
struct OwnApplication {
  explicit OwnApplication(const std::string& platform)
      : words{"vanzet", "-platform", platform}, application(count, arguments.data()) {}

  std::vector<std::string> words;
  std::vector<char*> arguments = {words[0].data(), words[1].data(), words[2].data(), nullptr};
  int count = 3;
  QApplication application;
};

void MakeOwnApplication(const std::string& platform) {
  // An application of Qt sets the locale of the environment, which would change the host's numbers.
  const std::string locale = std::setlocale(LC_ALL, nullptr);
  // Never destroyed: when the process ends, other objects of Qt may already be gone.
  [[maybe_unused]] static const OwnApplication* const own = new OwnApplication(platform);
  std::setlocale(LC_ALL, locale.c_str());
  QApplication::setQuitOnLastWindowClosed(false);
}

}  // namespace

Result<void> EnsureApplication() {
  UseLocaleOfQt();
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr) return {};
  if (QCoreApplication::instance() != nullptr)
    return Fault{"the host's application of Qt is not one with windows"};
  VANZET_TRY(const std::string platform, StartablePlatform());
  MakeOwnApplication(platform);
  return {};
}

}  // namespace vanzet::view::qt
