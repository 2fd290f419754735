#include "window/window_memory.h"

#include <QFileInfo>
#include <QLocale>

namespace vanzet::window {
namespace {

constexpr qsizetype kMostRecent = 8;

}  // namespace

void WindowMemory::Keep(const QByteArray& geometry, const QByteArray& state, const QByteArray& split) {
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

Language WindowMemory::ChosenLanguage() const {
  const QString chosen = settings_.value("language", QLocale::system().name()).toString();
  return chosen.startsWith("de") ? Language::kGerman : Language::kEnglish;
}

void WindowMemory::Choose(Language language) {
  settings_.setValue("language", language == Language::kGerman ? "de" : "en");
}

std::optional<Appearance> WindowMemory::ChosenAppearance() const {
  const QString chosen = settings_.value("appearance").toString();
  if (chosen == "dark") return Appearance::kDark;
  if (chosen == "light") return Appearance::kLight;
  return std::nullopt;
}

void WindowMemory::Choose(Appearance appearance) {
  settings_.setValue("appearance", appearance == Appearance::kDark ? "dark" : "light");
}

}  // namespace vanzet::window
