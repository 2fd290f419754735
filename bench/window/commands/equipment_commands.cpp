#include <QComboBox>
#include <QMessageBox>
#include <algorithm>

#include "drawing/figure_folder.h"
#include "modeller/body_folder.h"
#include "window/commands/busy.h"
#include "window/docks/call_listener.h"
#include "window/main_window.h"
#include "window/qt_text.h"

/// The calls of the module, and what is shown of their results.
namespace vanzet::window {

void MainWindow::ShowDefinition() {
  if (IsFreeElsewhere()) Call("mstart", Text::kImporting);
}

void MainWindow::Upgrade() {
  if (IsFreeElsewhere()) Call("ReOrgVdm", Text::kImporting);
}

/// False, after a box, while another process has a definition open: the module would lose its work on it.
bool MainWindow::IsFreeElsewhere() {
  const auto open = session_->OpenElsewhere();
  if (!open) return Tell(open.fault()), false;
  if (open->empty()) return true;
  QMessageBox::information(this, texts_(Text::kWindowTitle), texts_(Text::kOpenElsewhere).arg(open->front()));
  return false;
}

void MainWindow::Call(const char* function, Text busy) {
  if (isBusy_ || session_->isAtWork()) return;
  if (const auto reloaded = session_->Reload(); !reloaded) return Tell(reloaded.fault());
  actions_->Enable(true, true);
  // A body that a pick or a page asks for is read within one call.
  std::unique_ptr<Busy> box;
  const auto progress = [&](double done) {
    if (!box) box = std::make_unique<Busy>(texts_, busy, this);
    return box->progress()(done);
  };
  const auto afterCall = [&](bool isLine) {
    box.reset();
    if (isLine) redraw_.start();
  };
  // Modules know one topic, their dialog.
  const auto help = [this](const std::string& /*topic*/) { return ShowHelp("guide/pages.md"); };
  const auto called = session_->Call(function, {*messages_, std::make_unique<WindowPicks>(*picks_),
                                                std::make_unique<CallListener>(*messages_, afterCall),
                                                static_cast<QWidget*>(this), progress, help});
  actions_->Enable(true, false);
  if (!called) Tell(called.fault());
  Refresh();
}

void MainWindow::Refresh() {
  if (!session_ || isBusy_) return;
  if (!session_->isAtWork()) {
    if (const auto reloaded = session_->Reload(); !reloaded) Tell(reloaded.fault());
  }
  signs_ = session_->Signs();
  RefreshDefinition();
  RefreshDrawing();
  RefreshEquipment();
}

void MainWindow::RefreshDefinition() {
  auto definitions = session_->Definitions();
  if (!definitions) return Tell(definitions.fault());
  definition_->Show(std::move(*definitions));
}

void MainWindow::RefreshDrawing() {
  if (!session_) return;
  const auto drawing = session_->Drawing();
  if (!drawing) return Tell(drawing.fault());
  drawing_->Show(*drawing);
  layers_->Show(*drawing);
}

void MainWindow::RefreshEquipment() {
  if (isBusy_) return;
  isBusy_ = true;
  Busy busy(texts_, Text::kMakingScene, this);
  auto scene = session_->Equipment(spur_, busy.progress());
  isBusy_ = false;
  scene_ = scene ? *scene : nullptr;
  equipment_->SetHint(texts_(Text::kNoEquipment));
  auto shown = equipment_->Show(scene_);
  if (scene && shown) return;
  const Fault fault = scene ? shown.fault() : scene.fault();
  equipment_->SetHint(Shown(fault.Message()));
  Tell(fault);
}

/// What another process did to the project is shown as soon as nothing is at work here.
void MainWindow::LookForChanges() {
  if (!session_ || isBusy_ || session_->isAtWork() || session_->Signs() == signs_) return;
  Refresh();
}

void MainWindow::ShowSolid(const QString& name) {
  if (isBusy_) return;
  isBusy_ = true;
  Busy busy(texts_, Text::kImporting, this);
  modeller::Exchange exchange = modeller::Exchange::OfProcess();
  exchange.progress = busy.progress();
  modeller::BodyTable table;
  const auto number =
      modeller::NumberOfNamed(name.toStdString(), table, session_->project().folder() / "bodies", exchange);
  isBusy_ = false;
  if (!number) return Tell(number.fault());
  auto scene = std::make_shared<scene::Scene>();
  scene->bodies.push_back(
      {name.toStdString(), scene::Kind::kBillet, *table.Get(*number), geometry::Matrix()});
  scene->bodies.back().solid = name.toStdString();
  if (const auto shown = equipment_->Show(std::move(scene)); !shown) Tell(shown.fault());
}

QStringList MainWindow::Figures() const {
  QStringList names;
  const auto drawing = session_->Drawing();
  if (drawing) {
    for (const auto& [name, figure] : drawing->figures) names << Shown(name);
  }
  for (const std::string& name : drawing::FigureFolder(session_->project().folder() / "figures").Names()) {
    if (!names.contains(Shown(name))) names << Shown(name);
  }
  return names;
}

QStringList MainWindow::Solids() const {
  QStringList names;
  for (const auto& file : modeller::BodyFilesIn(session_->project().folder() / "bodies"))
    names << Shown(file.name);
  return names;
}

}  // namespace vanzet::window
