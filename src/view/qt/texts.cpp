#include "view/qt/texts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

#include "base/places.h"
#include "platform/symbols.h"

namespace vanzet::view::qt {
namespace {

constexpr const char* kSection = "view";

/// The texts of the language that was wanted last. State of the process: the environment names the language.
struct LoadedTexts {
  std::string wanted;
  std::string language;
  Translations translations;
};
LoadedTexts loadedTexts;

std::string WantedLanguage() {
  const std::string named = qEnvironmentVariable("VANZET_LANGUAGE").toStdString();
  return LanguageOfLocale(named.empty() ? QLocale().name().toStdString() : named);
}

/// English for a language without a catalogue or with a broken one.
const LoadedTexts& TextsOfTheMoment() {
  const std::string wanted = WantedLanguage();
  if (wanted == loadedTexts.wanted) return loadedTexts;
  auto loaded = LoadTranslations(ShareFolder(platform::OwnFolder()), wanted);
  loadedTexts = loaded ? LoadedTexts{wanted, wanted, std::move(*loaded)} : LoadedTexts{wanted, "en", {}};
  return loadedTexts;
}

}  // namespace

QString Translate(const char* english) {
  const std::string_view text = TextsOfTheMoment().translations.Translate(kSection, english);
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

TextsOfQt::TextsOfQt() {
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (translator_.load(QLocale(LanguageOfTexts()), QStringLiteral("qtbase"), QStringLiteral("_"), folder))
    QCoreApplication::installTranslator(&translator_);
}

TextsOfQt::~TextsOfQt() {
  QCoreApplication::removeTranslator(&translator_);
}

QString LanguageOfTexts() {
  return QString::fromStdString(TextsOfTheMoment().language);
}

}  // namespace vanzet::view::qt
