#pragma once

#include <QObject>
#include <QTranslator>
#include <string>

#include "window/actions.h"
#include "window/commands/workplace.h"
#include "window/theme.h"
#include "window/views/drawing_view.h"
#include "window/views/equipment_view.h"
#include "window/window_memory.h"

namespace vanzet::window {

/// The commands of the menu View: how the two views look at things, and how the window looks.
class ViewCommands final : public QObject {
  Q_OBJECT
 public:
  /// The two views, each with the pane that it is in.
  struct Parts {
    DrawingView& drawing;
    EquipmentView& equipment;
    QWidget& drawingPane;
    QWidget& equipmentPane;
  };

  ViewCommands(Workplace& workplace, Texts& texts, WindowMemory& memory, Parts parts, QObject* parent);

  /// False for a command of another menu. `isOn` is the state of a switch.
  bool Run(Command command, bool isOn);

  /// Shows all texts in a language, and keeps the choice for the next start.
  void ChooseLanguage(const std::string& language);

  /// Shows all texts in the language of the last start; in English where it has no texts.
  void ApplyRememberedLanguage();

  /// The command that shows the views as they were when the program ended.
  Command RememberedViews() const;

 signals:
  void AppearanceChanged();
  void UnitChosen();

 private:
  Result<void> ApplyLanguage(const std::string& language);
  void ApplyAppearance(Appearance appearance);
  void Arrange(Command command);
  void AskForSettings();

  Workplace& workplace_;
  Texts& texts_;
  WindowMemory& memory_;
  Parts parts_;
  QTranslator toolkitTexts_;  ///< of file dialogs and the like, where the machine has them
};

}  // namespace vanzet::window
