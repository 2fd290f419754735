#pragma once

#include <QLockFile>
#include <QObject>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "window/actions.h"
#include "window/commands/dropped_files.h"
#include "window/commands/workplace.h"
#include "window/window_memory.h"

namespace vanzet::window {

/// The commands of the menu Project, and files that are dropped into the project.
///
/// Errors   of the functions that give a result: the caller reports them. The others report theirs
class ProjectCommands final : public QObject {
  Q_OBJECT
 public:
  /// Faults that the module reports at its work are shown on the panel.
  ProjectCommands(Workplace& workplace, WindowMemory& memory, project::MessagePanel& panel, QObject* parent);

  /// Asks for what the command needs, and runs it. False for a command of another menu.
  bool Run(Command command);

  Result<void> Open(const std::filesystem::path& folder);
  /// Creates a project with a definition for each spur, and opens it. Leaves nothing when that fails.
  Result<void> Make(const std::filesystem::path& folder, const std::string& sample);

  // Requires of all below: a project is open.
  Result<void> SaveVdm(std::uint32_t vdm, const std::filesystem::path& file) const;
  Result<void> LoadVdm(const std::filesystem::path& file, std::uint32_t vdm);
  Result<void> Import(const std::vector<std::filesystem::path>& files, const NameQuestion& ask);
  /// Imports them, and shows a box for each name that is in use.
  void ImportDropped(const std::vector<std::filesystem::path>& files);

  QStringList Samples() const;
  /// Asks for a name and a folder, with that sample chosen.
  void AskToMakeFrom(const QString& sample);

  /// Fills the menu with the projects that were open.
  void FillRecent(QMenu& menu);

 signals:
  /// Another project is open. `otherProcess` shows it as well; 0: none does.
  void Opened(int spurs, qint64 otherProcess);
  void Changed();  ///< files of the project were changed
  void FileImported(const QString& file);

 private:
  QString FolderOfProjects() const;
  QString VdmFiles() const;
  void AskToMake();
  void AskToOpen();
  void AskToSaveVdm();
  void AskToLoadVdm();
  NameAnswer AskAboutName(const std::filesystem::path& existing);
  qint64 LockProject();

  Workplace& workplace_;
  WindowMemory& memory_;
  project::MessagePanel& panel_;
  std::unique_ptr<QLockFile> lock_;  ///< tells other processes that the project is shown here
};

}  // namespace vanzet::window
