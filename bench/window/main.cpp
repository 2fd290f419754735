#include <QTimer>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "process/last_words.h"
#include "window/application.h"
#include "window/main_window.h"

/// vanzet-window [--dialog] [PROJECT]
///
/// The window with a project, and with the equipment dialog in front when it is asked for. `vanzet open`
/// looks at the project and the display first. File managers know a project by its bench.ini and hand over
/// that.
namespace {

using namespace vanzet;

struct Arguments {
  std::string project;
  bool hasDialog = false;
};

Arguments ReadArguments(int argc, char** argv) {
  Arguments arguments;
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    if (word == "--dialog") {
      arguments.hasDialog = true;
    } else if (!word.starts_with("-")) {
      arguments.project = word;
    }
  }
  const std::filesystem::path settings = arguments.project;
  if (settings.filename() == "bench.ini")
    arguments.project = (settings.parent_path() / ".").lexically_normal();
  return arguments;
}

/// Without a display the toolkit would end the process with a core dump.
void EndOnFatalMessages(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg) {
    std::fprintf(stderr, "vanzet: no display is available to open a window\n");
    std::_Exit(1);
  }
  if (type == QtWarningMsg && (text.contains("xcb") || text.contains("display"))) return;
  if (type != QtDebugMsg && type != QtInfoMsg) std::fprintf(stderr, "vanzet: %s\n", qPrintable(text));
}

}  // namespace

int main(int argc, char** argv) try {
  process::InstallLastWords();
  qInstallMessageHandler(EndOnFatalMessages);
  window::Application application(argc, argv);
  // Numbers have a point whatever the toolkit's locale is.
  std::setlocale(LC_NUMERIC, "C");
  const Arguments arguments = ReadArguments(argc, argv);
  window::MainWindow window(Places::OfProcess());
  application.reportFault = [&](const Fault& fault) { window.ReportFault(fault); };
  window.show();
  QTimer::singleShot(0, &window, [&] {
    if (arguments.project.empty()) return;
    const auto opened = window.projectCommands().Open(arguments.project);
    if (!opened) return window.ReportFault(opened.fault());
    if (arguments.hasDialog) window.equipmentCommands().Define();
  });
  return window::Application::exec();
} catch (...) {
  vanzet::process::EndByException();
}
