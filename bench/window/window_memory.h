#pragma once

#include <QByteArray>
#include <QPoint>
#include <QSettings>
#include <QStringList>
#include <QVariantMap>
#include <optional>
#include <string>

#include "window/theme.h"

namespace vanzet::window {

/// Keeps the state of the window from one start to the next, in the settings of the user.
class WindowMemory {
 public:
  QByteArray Geometry() const { return settings_.value("geometry").toByteArray(); }
  QByteArray State() const { return settings_.value("state").toByteArray(); }
  QByteArray Split() const { return settings_.value("split").toByteArray(); }
  /// The sizes of the docks by their names, as the user chose them.
  QVariantMap DockSizes() const { return settings_.value("docks").toMap(); }
  void KeepDockSizes(const QVariantMap& sizes) { settings_.setValue("docks", sizes); }
  void KeepLayout(const QByteArray& geometry, const QByteArray& state, const QByteArray& split);

  /// The unit of lengths, "mm" or "inch"; empty: that of the project.
  QString Unit() const { return settings_.value("unit").toString(); }
  void SetUnit(const QString& unit) { settings_.setValue("unit", unit); }

  /// Of the cursor's place.
  int Decimals() const { return settings_.value("decimals", 3).toInt(); }
  void SetDecimals(int decimals) { settings_.setValue("decimals", decimals); }

  /// The name of the buttons that turn and move the equipment.
  QString MouseStyle() const { return settings_.value("mouse").toString(); }
  void SetMouseStyle(const QString& name) { settings_.setValue("mouse", name); }

  /// The name of the arrangement of the views.
  QString Views() const { return settings_.value("views").toString(); }
  void SetViews(const QString& name) { settings_.setValue("views", name); }

  /// Where the user has moved the module's dialog; (0, 0) while it was not moved.
  QPoint DialogPlace() const { return settings_.value("dialogPlace").toPoint(); }
  void KeepDialogPlace(const QPoint& place) { settings_.setValue("dialogPlace", place); }

  /// The projects that were open, the latest first, without those that no longer exist.
  QStringList Recent() const;
  void AddRecent(const QString& folder);

  // The names of figures and solids that were taken, to be offered first.
  QStringList InOrderOfUse(QStringList names) const;
  void AddUsedName(const QString& name);

  /// The code of the language that was chosen; else that of the system.
  std::string Language() const;
  void SetLanguage(const std::string& language);

  /// The appearance that was chosen; nothing while none was.
  std::optional<Appearance> ChosenAppearance() const;
  void SetAppearance(Appearance appearance);

 private:
  QSettings settings_{"vanzet", "workbench"};
};

}  // namespace vanzet::window
