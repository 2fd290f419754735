#include "window/window_memory.h"

#include <QFileInfo>
#include <QLocale>
#include <algorithm>

#include "base/translations.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

constexpr qsizetype kMostRecent = 8;
constexpr qsizetype kMostUsed = 24;

}  // namespace

void WindowMemory::KeepLayout(const QByteArray& geometry, const QByteArray& state, const QByteArray& split) {
  settings_.setValue("geometry", geometry);
  settings_.setValue("state", state);
  settings_.setValue("split", split);
}

QStringList WindowMemory::Recent() const {
  QStringList recent = settings_.value("recent").toStringList();
  recent.removeIf([](const QString& folder) { return !QFileInfo(folder).isDir(); });
  return recent;
}

void WindowMemory::AddRecent(const QString& folder) {
  QStringList recent = Recent();
  recent.removeAll(folder);
  recent.prepend(folder);
  settings_.setValue("recent", QStringList(recent.mid(0, kMostRecent)));
}

QStringList WindowMemory::InOrderOfUse(QStringList names) const {
  const QStringList used = settings_.value("usedNames").toStringList();
  const auto rank = [&](const QString& name) {
    const qsizetype at = used.indexOf(name);
    return at < 0 ? used.size() : at;
  };
  std::ranges::stable_sort(names, {}, rank);
  return names;
}

void WindowMemory::AddUsedName(const QString& name) {
  QStringList used = settings_.value("usedNames").toStringList();
  used.removeAll(name);
  used.prepend(name);
  settings_.setValue("usedNames", QStringList(used.mid(0, kMostUsed)));
}

std::string WindowMemory::Language() const {
  return LanguageOfLocale(settings_.value("language", QLocale::system().name()).toString().toStdString());
}

void WindowMemory::SetLanguage(const std::string& language) {
  settings_.setValue("language", ToQString(language));
}

std::optional<Appearance> WindowMemory::ChosenAppearance() const {
  const QString chosen = settings_.value("appearance").toString();
  if (chosen == "dark") return Appearance::kDark;
  if (chosen == "light") return Appearance::kLight;
  return std::nullopt;
}

void WindowMemory::SetAppearance(Appearance appearance) {
  settings_.setValue("appearance", appearance == Appearance::kDark ? "dark" : "light");
}

}  // namespace vanzet::window
