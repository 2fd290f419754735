#pragma once

#include <QDialog>

#include "window/texts.h"
#include "window/theme.h"
#include "window/views/mouse_style.h"

class QComboBox;
class QSpinBox;

namespace vanzet::window {

/// The settings of the person, on one page.
struct Settings {
  std::string language;
  Appearance appearance = Appearance::kLight;
  QString unit;      ///< of lengths: "mm", "inch"; empty: that of the project
  int decimals = 3;  ///< of the cursor's place
  MouseStyle mouse = MouseStyle::kLeftTurns;

  bool operator==(const Settings&) const = default;
};

/// Asks for the settings.
class SettingsBox final : public QDialog {
  Q_OBJECT
 public:
  SettingsBox(const Texts& texts, const Settings& settings, QWidget* parent);

  Settings Chosen() const;

 private:
  QComboBox* language_;
  QComboBox* appearance_;
  QComboBox* unit_;
  QSpinBox* decimals_;
  QComboBox* mouse_;
};

}  // namespace vanzet::window
