#pragma once

#include <QByteArray>
#include <QSettings>
#include <QStringList>
#include <optional>
#include <string>

#include "window/theme.h"

namespace vanzet::window {

/// What the window remembers from one time to the next, in the user's settings.
class WindowMemory {
 public:
  QByteArray Geometry() const { return settings_.value("geometry").toByteArray(); }
  QByteArray State() const { return settings_.value("state").toByteArray(); }
  QByteArray Split() const { return settings_.value("split").toByteArray(); }
  void Keep(const QByteArray& geometry, const QByteArray& state, const QByteArray& split);

  /// The projects that were open, the latest first, as far as they are still there.
  QStringList Recent() const;
  void AddRecent(const QString& folder);

  /// The code of the language that was chosen; else that of the system.
  std::string ChosenLanguage() const;
  void Choose(const std::string& language);
  std::optional<Appearance> ChosenAppearance() const;
  void Choose(Appearance appearance);

 private:
  QSettings settings_{"vanzet", "workbench"};
};

}  // namespace vanzet::window
