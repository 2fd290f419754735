#include "view/qt/texts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace vanzet::view::qt {

QString Translate(const char* english) {
  return QString::fromStdString(view::Translate(english));
}

void UseLocaleOfQt() {
  SetLocale({.name = [] { return QLocale().name().toStdString(); },
             .decimalSign =
                 [](const std::string& language) {
                   return QLocale(QString::fromStdString(language)).decimalPoint().front().toLatin1();
                 }});
}

TextsOfQt::TextsOfQt() {
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  const QLocale language(QString::fromStdString(LanguageOfTexts()));
  if (translator_.load(language, QStringLiteral("qtbase"), QStringLiteral("_"), folder))
    QCoreApplication::installTranslator(&translator_);
}

TextsOfQt::~TextsOfQt() {
  QCoreApplication::removeTranslator(&translator_);
}

}  // namespace vanzet::view::qt
