#pragma once

#include <QObject>
#include <filesystem>

#include "modeller/export.h"
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
  ExportCommands(Workplace& workplace, const EquipmentView& equipment, QObject* parent)
      : QObject(parent), workplace_(workplace), equipment_(equipment) {}

  /// Asks for the place, writes the files and reports. False for a command of another menu.
  bool Run(Command command);

  /// As SVG, or as PNG when the file's name ends so.
  Result<void> WriteDrawing(const std::filesystem::path& file) const;

  // Both fail when the project has no equipment.
  Result<void> WriteEquipmentPicture(const std::filesystem::path& file) const;
  Result<void> WriteBodies(modeller::ExportFormat format, const std::filesystem::path& folder);

 private:
  /// Fails for a file that belongs to the project's store.
  Result<void> WriteFile(const std::filesystem::path& file, const std::string& bytes) const;
  Result<void> CheckEquipment() const;

  Workplace& workplace_;
  const EquipmentView& equipment_;
};

}  // namespace vanzet::window
