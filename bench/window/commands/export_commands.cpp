#include "window/commands/export_commands.h"

#include <QFileDialog>
#include <algorithm>

#include "base/files/whole_file.h"
#include "base/letter_case.h"
#include "drawing/picture.h"
#include "project/project_store.h"
#include "results/export.h"
#include "results/export_folder.h"
#include "results/png.h"
#include "scene/picture.h"
#include "sheet/html.h"
#include "sheet/pages.h"
#include "sheet/project_sheet.h"
#include "window/commands/boxes.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

namespace fs = std::filesystem;

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

struct FileRow {
  Command command;
  const char* name;  ///< that is suggested
  const char* filter;
  Result<void> (ExportCommands::*write)(const fs::path& file);
};
constexpr FileRow kFiles[] = {
    {Command::kDrawingSvg, "drawing.svg", "SVG (*.svg)", &ExportCommands::WriteDrawing},
    {Command::kDrawingPng, "drawing.png", "PNG (*.png)", &ExportCommands::WriteDrawing},
    {Command::kEquipmentPng, "equipment.png", "PNG (*.png)", &ExportCommands::WriteEquipmentPicture},
    {Command::kSetUpSheet, "set-up.html", "HTML (*.html);;PDF (*.pdf);;SVG (*.svg)",
     &ExportCommands::WriteSheet},
};

}  // namespace

bool ExportCommands::Run(Command command) {
  const Texts& texts = workplace_.texts;
  Result<void> done;
  QString place;
  if (const auto* const row = std::ranges::find(kFiles, command, &FileRow::command);
      row != std::end(kFiles)) {
    place = AskForFile(TitleOf(texts(TextOf(command))), row->name, row->filter);
    if (!place.isEmpty()) done = (this->*row->write)(ToPath(place));
  } else if (const auto* const bodies = std::ranges::find(kBodies, command, &BodiesRow::command);
             bodies != std::end(kBodies)) {
    place = QFileDialog::getExistingDirectory(workplace_.window, TitleOf(texts(TextOf(command))),
                                              ToQString(workplace_.session->project().folder()));
    if (!place.isEmpty()) done = WriteBodies(bodies->format, ToPath(place));
  } else {
    return false;
  }
  workplace_.Report(done);
  if (done && !place.isEmpty()) workplace_.reportDone(texts(Text::kWritten).arg(place));
  return true;
}

/// Without an ending the name gets that of the filter.
QString ExportCommands::AskForFile(const QString& title, const char* name, const char* filter) const {
  const QString suggested = ToQString(workplace_.session->project().folder() / name);
  QString chosen;
  QString place = QFileDialog::getSaveFileName(workplace_.window, title, suggested, filter, &chosen);
  if (!place.isEmpty() && !ToPath(place).has_extension()) place += chosen.section('*', 1).remove(')');
  return place;
}

Result<void> ExportCommands::WriteDrawing(const fs::path& file) {
  VANZET_TRY(const drawing::Drawing drawing, workplace_.session->Drawing());
  VANZET_TRY(const std::string svg, drawing::PictureSvg(drawing, {}));
  if (!EqualWithoutCase(file.extension().string(), ".png")) return WriteFile(file, svg);
  VANZET_TRY(const std::string png, results::PngOf(svg));
  return WriteFile(file, png);
}

Result<void> ExportCommands::WriteEquipmentPicture(const fs::path& file) {
  if (equipment_.model() == nullptr) return Fault{workplace_.texts(Text::kNoEquipment).toStdString()};
  VANZET_DO(CheckEquipment());
  const double factor = double{kLargestSide} / std::max(equipment_.width(), equipment_.height());
  const scene::DrawOptions options = {.width = static_cast<int>(equipment_.width() * factor),
                                      .height = static_cast<int>(equipment_.height() * factor)};
  VANZET_TRY(const std::string png,
             results::PngOf(scene::Draw(*equipment_.model(), ScaleLook(equipment_.look(), factor), options)));
  return WriteFile(file, png);
}

Result<void> ExportCommands::WriteSheet(const fs::path& file) {
  const BusyMark mark(workplace_);
  BusyBox box(workplace_.texts, Text::kMakingSheet, workplace_.window);
  modeller::Exchange exchange = modeller::Exchange::OfProcess();
  exchange.progress = box.Progress();
  const sheet::Words words{workplace_.texts.translations(), workplace_.unit};
  const sheet::Options options = {.spur = {}, .language = workplace_.texts.language()};
  VANZET_TRY(const auto made,
             sheet::MakeSheet(workplace_.session->project(), options, words, exchange, panel_));
  const std::string ending = file.extension().string();
  if (EqualWithoutCase(ending, ".pdf")) {
    VANZET_TRY(const auto pages, sheet::PdfOf(made.sheet));
    return WriteFile(file, pages);
  }
  if (EqualWithoutCase(ending, ".svg")) {
    VANZET_TRY(const auto page, sheet::FirstPageSvgOf(made.sheet));
    return WriteFile(file, page);
  }
  VANZET_TRY(const auto assets, sheet::Assets::Read(workplace_.places.share));
  return WriteFile(file, sheet::HtmlOf(made.sheet, assets, words));
}

Result<void> ExportCommands::WriteBodies(modeller::ExportFormat format, const fs::path& folder) {
  VANZET_DO(CheckEquipment());
  const BusyMark mark(workplace_);
  BusyBox box(workplace_.texts, Text::kExporting, workplace_.window);
  modeller::Exchange exchange = modeller::Exchange::OfProcess();
  exchange.progress = box.Progress();
  VANZET_TRY(const auto report, results::WriteEquipment(*workplace_.scene, {format}, folder, exchange));
  for (const Fault& fault : report.missing) workplace_.reportFault(fault);
  for (const fs::path& file : report.changed) workplace_.reportFault(results::ChangedSinceExport(file));
  return {};
}

Result<void> ExportCommands::CheckEquipment() const {
  // Files must not have coarse bodies, nor lack any.
  if (workplace_.bodies->IsReading()) return Fault{workplace_.texts(Text::kStillReading).toStdString()};
  if (workplace_.scene != nullptr && !workplace_.scene->bodies.empty()) return {};
  return Fault{workplace_.texts(Text::kNoEquipment).toStdString()};
}

Result<void> ExportCommands::WriteFile(const fs::path& file, const std::string& bytes) const {
  VANZET_DO(project::StoreOf(workplace_.session->project()).CheckTarget(file));
  return files::ReplaceFile(file, bytes);
}

}  // namespace vanzet::window
