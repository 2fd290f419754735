#pragma once

#include <QMainWindow>
#include <filesystem>

#include "window/actions.h"
#include "window/catalogue/catalogue_commands.h"
#include "window/checks/check_commands.h"
#include "window/commands/equipment_commands.h"
#include "window/commands/export_commands.h"
#include "window/commands/history_commands.h"
#include "window/commands/project_commands.h"
#include "window/commands/view_commands.h"
#include "window/commands/watch_commands.h"
#include "window/docks/dock_sizes.h"
#include "window/help_window.h"
#include "window/opengl/gl_canvas.h"
#include "window/views/bars.h"
#include "window/views/welcome_page.h"

class QComboBox;
class QLabel;
class QSplitter;
class QStackedWidget;

namespace vanzet::window {

/// The workbench's window: the two views of a project, the docks about it, and the menus. It lays these out
/// and passes commands on to their families; what a command does is in window/commands.
///
/// Errors   a command that fails says why above the views and in the message panel
class MainWindow final : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(Places places);
  ~MainWindow() override;

  ProjectCommands& projectCommands() { return *projectCommands_; }
  CatalogueCommands& catalogueCommands() { return *catalogueCommands_; }
  EquipmentCommands& equipmentCommands() { return *equipmentCommands_; }

  /// The open project; null while there is none.
  const Session* session() const { return workplace_.session.get(); }

  /// Shows why something could not be done, above the views and in the message panel.
  void ReportFault(const Fault& fault);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  // Milliseconds that the status bar shows a text.
  static constexpr int kNoteTime = 8000;
  static constexpr int kFaultTime = 15'000;

  void MakeCentre();
  QWidget* MakeViews();
  void MakeCube();
  void MakeDocks();
  void MakeWelcome();
  void MakeStatusBar();
  void RestoreLayout();
  void ConnectCommands();
  void ConnectParts();
  void ConnectDockSwitches();

  void Retranslate();
  void NameParts();
  void Run(Command command, bool isOn);
  void ShowProject(int spurs, qint64 otherProcess);
  void ActivateSpur(int spur);
  void ShowPosition(double x, double y);
  void ChooseCommand();
  QString PainterText() const;

  Texts texts_;
  WindowMemory memory_;
  Workplace workplace_;

  Result<PainterChoice> painter_;
  Actions* actions_;
  DrawingView* drawing_;
  EquipmentView* equipment_;
  ViewPane* drawingPane_;
  ViewPane* equipmentPane_;
  QSplitter* split_;
  QStackedWidget* pages_;  ///< the welcome page and the views
  WelcomePage* welcome_;
  QComboBox* spurs_;
  HintBar* hint_;
  NoticeBar* notice_;
  DefinitionDock* definition_;
  BodyDock* bodies_;
  LayerDock* layers_;
  MessageDock* messages_;
  HistoryDock* history_;
  CheckDock* checks_;
  ChoiceDock* choice_;
  DockSizes* dockSizes_;
  HelpWindow* help_;
  QLabel* position_;

  ProjectCommands* projectCommands_;
  EquipmentCommands* equipmentCommands_;
  HistoryCommands* historyCommands_;
  ViewCommands* viewCommands_;
  ExportCommands* exportCommands_;
  WatchCommands* watchCommands_;
  CatalogueCommands* catalogueCommands_;
  CheckCommands* checkCommands_;
};

}  // namespace vanzet::window
