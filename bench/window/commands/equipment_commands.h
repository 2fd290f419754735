#pragma once

#include <QObject>
#include <QTimer>
#include <span>
#include <string>

#include "window/actions.h"
#include "window/commands/dialog_page.h"
#include "window/commands/live_equipment.h"
#include "window/commands/pick_session.h"
#include "window/commands/workplace.h"
#include "window/docks/body_dock.h"
#include "window/docks/definition_dock.h"
#include "window/docks/layer_dock.h"
#include "window/docks/message_dock.h"

namespace vanzet::window {

/// The commands of the menu Equipment: the calls of the module, and showing what they leave in the project.
class EquipmentCommands final : public QObject {
  Q_OBJECT
 public:
  /// The parts of the window that show a project.
  struct Parts {
    DrawingView& drawing;
    EquipmentView& equipment;
    HintBar& hint;
    DefinitionDock& definition;
    LayerDock& layers;
    MessageDock& messages;
    ChoiceDock& choice;
    BodyDock& bodies;
  };

  EquipmentCommands(Workplace& workplace, Parts parts, QObject* parent);

  /// False for a command of another menu.
  bool Run(Command command);

  // Requires of both: a project is open.
  void Define();                               ///< shows the dialog
  void DefineAt(int spur, std::int32_t node);  ///< and its page; of the dialog that is open, if one is
  void DefineAtField(int spur, std::int32_t node,
                     std::span<const std::int32_t> fields);  ///< with the keys on one of these controls
  void Upgrade();

  /// Shows the project as its files are now. Nothing is done while no project is open or other work goes on.
  void Refresh();
  void RefreshDrawing();  ///< and its layers

  /// Shows the equipment of a spur. Requires: a project is open.
  void ShowSpur(int spur);

  /// Shows what another process changed while the dialog is up. Its page stays as it is.
  void ShowLive() { live_.Refresh(); }

  bool IsPicking() const { return picks_.IsAsking(); }
  void CancelPick() { picks_.Cancel(); }

 signals:
  /// A call of the module begins or ends.
  void AtWork(bool isAtWork);
  void RefreshBegins();
  void StepStored();  ///< what an event of the dialog changed is in the project
  void Refreshed();   ///< the project was read again

 private:
  void DefineBody(const QString& name);
  bool IsFreeElsewhere();
  void Call(const char* function);
  void ShowEventFault(const QString& fault, const QString& boxText);
  void ReadUnit();
  void RefreshDefinition();
  void RefreshEquipment();
  Result<void> ShowScene();
  void ShowChosen();
  void RefreshSection();
  Result<void> MakeScene();
  void ShowArrived();

  void ShowFigure(const QString& name);
  Result<drawing::Drawing> DrawingWith(const std::string& figure) const;
  Result<std::vector<geometry::Kurve>> ContoursOf(const std::string& figure) const;
  void ShowSolid(const QString& name);
  void ShowSceneAgain();
  Result<void> ShowSolidAlone(const std::string& name);
  QStringList Figures() const;
  QStringList Solids() const;

  Workplace& workplace_;
  Parts parts_;
  ChoicePreviews previews_;
  PickSession picks_;
  DialogPage page_;
  LiveEquipment live_;
  std::string shownSolid_;  ///< is seen in the place of the equipment; empty: none
  QTimer arrived_;          ///< waits until other work is done
  QTimer redraw_;           ///< draws once for many lines
};

}  // namespace vanzet::window
