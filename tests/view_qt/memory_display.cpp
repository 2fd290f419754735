#include "view_qt/memory_display.h"

#include <QString>
#include <QTemporaryDir>
#include <iostream>

namespace vanzet::test {
namespace {

void PrintMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text) {
  if (!text.startsWith(QStringLiteral("This plugin does not support")))
    std::cerr << text.toStdString() << '\n';
}

}  // namespace

void UseMemoryAsDisplay() {
  static const QTemporaryDir home;
  qInstallMessageHandler(PrintMessage);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
  qputenv("XDG_RUNTIME_DIR", home.path().toUtf8());
}

}  // namespace vanzet::test
