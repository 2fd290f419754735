#include "view/qt/words.h"

#include <QLocale>

namespace vanzet::view::qt {

bool IsGerman() {
  const QString named = qEnvironmentVariable("VANZET_LANGUAGE");
  if (!named.isEmpty()) return named.startsWith(QStringLiteral("de"), Qt::CaseInsensitive);
  return QLocale().language() == QLocale::German;
}

QString Said(const Words& words) {
  return QString::fromUtf8(IsGerman() ? words.german : words.english);
}

QString Said(const Words& words, const QString& first, const QString& second) {
  QString said = Said(words);
  said.replace(QStringLiteral("%2"), second);
  return said.replace(QStringLiteral("%1"), first);
}

}  // namespace vanzet::view::qt
