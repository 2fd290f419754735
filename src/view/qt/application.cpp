#include "view/qt/application.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <clocale>
#include <vector>

#include "view/qt/display.h"
#include "view/qt/texts.h"

namespace vanzet::view::qt {
namespace {

/// An application with what it keeps pointers to as long as it lives.
struct OwnApplication {
  explicit OwnApplication(const std::string& platform)
      : words{"vanzet", "-platform", platform}, application(count, arguments.data()) {}

  std::vector<std::string> words;
  std::vector<char*> arguments = {words[0].data(), words[1].data(), words[2].data(), nullptr};
  int count = 3;
  QApplication application;
};

/// Qt's own texts, of file dialogs, where the machine has them.
void TranslateQt() {
  auto* const translator = new QTranslator(qApp);
  const QLocale locale(LanguageOfTexts());
  if (translator->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator);
  }
}

void MakeOwnApplication(const std::string& platform) {
  // An application of Qt takes up the locale of the environment, and the host's numbers would change with it.
  const std::string locale = std::setlocale(LC_ALL, nullptr);
  // Ended by nobody: when the process ends, other things of Qt may already be gone.
  [[maybe_unused]] static const OwnApplication* const own = new OwnApplication(platform);
  std::setlocale(LC_ALL, locale.c_str());
  QApplication::setQuitOnLastWindowClosed(false);
  TranslateQt();
}

}  // namespace

Result<void> EnsureApplication() {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr) return {};
  if (QCoreApplication::instance() != nullptr) return Fault{"the host's application of Qt knows no windows"};
  const auto platform = StartablePlatform();
  if (!platform) return platform.fault();
  MakeOwnApplication(*platform);
  return {};
}

}  // namespace vanzet::view::qt
