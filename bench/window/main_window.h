#pragma once

#include <QLockFile>
#include <QMainWindow>
#include <QTimer>
#include <QTranslator>
#include <filesystem>
#include <memory>

#include "modeller/export.h"
#include "scene/look.h"
#include "window/actions.h"
#include "window/docks/choice_dock.h"
#include "window/docks/definition_dock.h"
#include "window/views/drawing_view.h"
#include "window/commands/dropped_files.h"
#include "window/views/equipment_view.h"
#include "window/views/hint_bar.h"
#include "window/docks/list_docks.h"
#include "window/docks/message_dock.h"
#include "window/views/notice_bar.h"
#include "window/commands/pick_session.h"
#include "window/session.h"
#include "window/views/bars.h"
#include "window/window_memory.h"

class QComboBox;
class QLabel;
class QSplitter;

namespace vanzet::window {

class HelpWindow;

/// The workbench's window: the drawing and the equipment of a project, its definition, its layers and what is
/// told, and the commands on them. A command that fails
/// says why above the views and in the message panel.
class MainWindow final : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(Places places);
  ~MainWindow() override;

  // Projects.
  Result<void> OpenProject(const std::filesystem::path& folder);
  Result<void> MakeProject(const std::filesystem::path& folder, const std::string& sample);
  Result<void> SaveVdmTo(std::uint32_t vdm, const std::filesystem::path& file);
  Result<void> LoadVdmFrom(const std::filesystem::path& file, std::uint32_t vdm);
  Result<void> Import(const std::vector<std::filesystem::path>& files,
                      const std::function<Taken(const std::filesystem::path&)>& ask);

  // Equipment.
  void ShowDefinition();  ///< the dialog
  void Upgrade();
  void Refresh();

  // Exports of what is seen.
  Result<void> WriteDrawing(const std::filesystem::path& file);
  Result<void> WriteEquipmentPicture(const std::filesystem::path& file);
  Result<void> WriteBodies(modeller::ExportFormat format, const std::filesystem::path& folder);

  const Texts& texts() const { return texts_; }
  Actions& actions() { return *actions_; }
  DrawingView& drawing() { return *drawing_; }
  EquipmentView& equipment() { return *equipment_; }
  MessageDock& messages() { return *messages_; }
  DefinitionDock& definition() { return *definition_; }
  LayerDock& layers() { return *layers_; }
  ChoiceDock& choice() { return *choice_; }
  HintBar& hint() { return *hint_; }
  NoticeBar& notice() { return *notice_; }
  PickSession& picks() { return *picks_; }
  const Session* session() const { return session_.get(); }

  /// Shows the user why something could not be done, above the views and in the message panel.
  void Tell(const Fault& fault);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  // main_window.cpp
  void MakeViews();
  void MakeDocks();
  void MakeStatus();
  void Connect();
  void Retranslate();
  void Remember();
  void Run(Command command);

  // main_window_project.cpp
  void NewProject();
  void AskForProject();
  void FillRecent();
  void SaveVdm();
  void LoadVdm();
  Taken AskAboutTaken(const std::filesystem::path& existing);
  void LockProject();

  // main_window_equipment.cpp
  void Call(const char* function, Text busy);
  bool IsFreeElsewhere();
  void RefreshDefinition();
  void RefreshDrawing();
  void RefreshEquipment();
  void LookForChanges();
  void ShowSolid(const QString& name);
  QStringList Figures() const;
  QStringList Solids() const;

  // main_window_view.cpp
  bool RunView(Command command);
  void LookFrom(scene::View view);
  void Arrange(Command command);
  void ChooseLanguage(const std::string& language);
  void ApplyLanguage(const std::string& language);
  void Wear(Appearance appearance);
  void ShowPosition(double x, double y);
  void ShowContents();

  /// Shows a page of the documentation: "window.md".
  Result<void> ShowHelp(const char* page);
  void ShowAbout();

  // main_window_export.cpp
  bool RunExport(Command command);

  Places places_;
  Texts texts_;
  WindowMemory memory_;
  std::unique_ptr<Session> session_;
  std::unique_ptr<QLockFile> lock_;  ///< tells others that the project is shown here
  std::shared_ptr<const scene::Scene> scene_;
  int spur_ = 0;
  std::string signs_;  ///< of the files that are shown
  bool isBusy_ = false;

  Actions* actions_;
  DrawingView* drawing_;
  EquipmentView* equipment_;
  ViewPane* drawingPane_;
  ViewPane* equipmentPane_;
  QSplitter* split_;
  QComboBox* spurs_;
  HintBar* hint_;
  NoticeBar* notice_;
  DefinitionDock* definition_;
  LayerDock* layers_;
  MessageDock* messages_;
  ChoiceDock* choice_;
  PickSession* picks_;
  HelpWindow* help_ = nullptr;
  QLabel* position_;
  QTranslator toolkitTexts_;  ///< of file dialogs and the like, where the machine has them
  QTimer redraw_;             ///< draws once for many lines
  QTimer glance_;             ///< looks whether another process changed the project
};

}  // namespace vanzet::window
