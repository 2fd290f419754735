#include <QFileDialog>
#include <QStatusBar>
#include <algorithm>

#include "base/files/whole_file.h"
#include "base/letter_case.h"
#include "drawing/picture.h"
#include "results/equipment.h"
#include "results/png.h"
#include "scene/picture.h"
#include "window/commands/busy.h"
#include "window/main_window.h"
#include "window/qt_text.h"

/// What is seen, as files for others.
namespace vanzet::window {
namespace {

namespace fs = std::filesystem;

constexpr int kTelling = 8000;      // milliseconds that the status bar tells what was done
constexpr int kLargestSide = 1600;  // pixels of a picture of the equipment

struct BodiesRow {
  Command command;
  modeller::ExportFormat format;
};
constexpr BodiesRow kBodies[] = {
    {Command::kBodiesStep, modeller::ExportFormat::kStep},
    {Command::kBodiesStl, modeller::ExportFormat::kStl},
    {Command::kBodiesWrl, modeller::ExportFormat::kWrl},
    {Command::kBodiesGltf, modeller::ExportFormat::kGltf},
};

struct PictureRow {
  Command command;
  const char* name;  ///< that is suggested
  const char* filter;
  Result<void> (MainWindow::*write)(const fs::path& file);
};
constexpr PictureRow kPictures[] = {
    {Command::kDrawingSvg, "drawing.svg", "SVG (*.svg)", &MainWindow::WriteDrawing},
    {Command::kDrawingPng, "drawing.png", "PNG (*.png)", &MainWindow::WriteDrawing},
    {Command::kEquipmentPng, "equipment.png", "PNG (*.png)", &MainWindow::WriteEquipmentPicture},
};

/// A file that the project's store lives in is refused.
Result<void> Write(const project::Project& project, const fs::path& file, const Result<std::string>& bytes) {
  if (!bytes) return bytes.fault();
  if (const auto target = vdm::VdmStore(project.folder()).CheckTarget(file); !target) return target;
  return files::ReplaceFile(file, *bytes);
}

}  // namespace

bool MainWindow::RunExport(Command command) {
  Result<void> done;
  QString place;
  if (const auto* const row = std::ranges::find(kPictures, command, &PictureRow::command);
      row != std::end(kPictures)) {
    const QString suggested = Shown(session_->project().folder() / row->name);
    place = QFileDialog::getSaveFileName(this, texts_(Text::kExportMenu).remove('&'), suggested, row->filter);
    if (!place.isEmpty()) done = (this->*row->write)(PathOf(place));
  } else if (const auto* const bodies = std::ranges::find(kBodies, command, &BodiesRow::command);
             bodies != std::end(kBodies)) {
    place = QFileDialog::getExistingDirectory(this, texts_(Text::kChooseFolder));
    if (!place.isEmpty()) done = WriteBodies(bodies->format, PathOf(place));
  } else {
    return false;
  }
  if (!done) Tell(done.fault());
  if (done && !place.isEmpty()) statusBar()->showMessage(texts_(Text::kWritten).arg(place), kTelling);
  return true;
}

Result<void> MainWindow::WriteDrawing(const fs::path& file) {
  const auto drawing = session_->Drawing();
  if (!drawing) return drawing.fault();
  const auto svg = drawing::PictureSvg(*drawing, {});
  const bool isPng = EqualWithoutCase(file.extension().string(), ".png");
  return Write(session_->project(), file, svg && isPng ? results::PngOf(*svg) : svg);
}

Result<void> MainWindow::WriteEquipmentPicture(const fs::path& file) {
  if (scene_ == nullptr || scene_->bodies.empty()) return Fault{texts_(Text::kNoEquipment).toStdString()};
  const auto model = scene::ModelOf(*scene_, (*actions_)[Command::kSection]->isChecked());
  if (!model) return model.fault();
  const double factor = double{kLargestSide} / std::max(equipment_->width(), equipment_->height());
  scene::Look look = equipment_->look();
  look.scale *= factor;
  look.shiftX *= factor;
  look.shiftY *= factor;
  const scene::DrawOptions options = {.width = static_cast<int>(equipment_->width() * factor),
                                      .height = static_cast<int>(equipment_->height() * factor)};
  return Write(session_->project(), file, results::PngOf(scene::Draw(*model, look, options)));
}

Result<void> MainWindow::WriteBodies(modeller::ExportFormat format, const fs::path& folder) {
  if (scene_ == nullptr || scene_->bodies.empty()) return Fault{texts_(Text::kNoEquipment).toStdString()};
  isBusy_ = true;
  Busy busy(texts_, Text::kExporting, this);
  modeller::Exchange exchange = modeller::Exchange::OfProcess();
  exchange.progress = busy.progress();
  const auto done = results::WriteEquipment(*scene_, format, folder, exchange);
  isBusy_ = false;
  return done;
}

}  // namespace vanzet::window
