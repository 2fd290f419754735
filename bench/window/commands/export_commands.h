#pragma once

#include <QObject>
#include <filesystem>

#include "modeller/export.h"
#include "project/message_panel.h"
#include "window/actions.h"
#include "window/commands/workplace.h"
#include "window/views/equipment_view.h"

namespace vanzet::window {

/// The commands of the menu Export: what is seen, as files for other programs.
///
/// Requires   a project is open
class ExportCommands final : public QObject {
  Q_OBJECT
 public:
  ExportCommands(Workplace& workplace, const EquipmentView& equipment, project::MessagePanel& panel,
                 QObject* parent)
      : QObject(parent), workplace_(workplace), equipment_(equipment), panel_(panel) {}

  /// Asks for the place, writes the files and reports. False for a command of another menu.
  bool Run(Command command);

  /// As SVG, or as PNG when the file's name ends so.
  Result<void> WriteDrawing(const std::filesystem::path& file);

  /// The sheet for the person at the machine, in the language and the unit of the window: HTML, or PDF or SVG
  /// when the file's name ends so. Fails when the project has no equipment.
  Result<void> WriteSheet(const std::filesystem::path& file);

  // Both fail when the project has no equipment.
  Result<void> WriteEquipmentPicture(const std::filesystem::path& file);
  Result<void> WriteBodies(modeller::ExportFormat format, const std::filesystem::path& folder);

 private:
  QString AskForFile(const QString& title, const char* name, const char* filter) const;

  /// Fails for a file that belongs to the project's store.
  Result<void> WriteFile(const std::filesystem::path& file, const std::string& bytes) const;
  Result<void> CheckEquipment() const;

  Workplace& workplace_;
  const EquipmentView& equipment_;
  project::MessagePanel& panel_;
};

}  // namespace vanzet::window
