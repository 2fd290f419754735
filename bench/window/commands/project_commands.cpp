#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>

#include "project/sample.h"
#include "vdm/vdm_file.h"
#include "window/main_window.h"
#include "window/commands/boxes.h"
#include "window/qt_text.h"

/// Opening and making projects, their stores to and from files, and files dropped into them.
namespace vanzet::window {
namespace {

namespace fs = std::filesystem;

constexpr const char* kVdmFiles = "(*.vdm)";
constexpr int kTelling = 8000;  // milliseconds that the status bar tells what was done

}  // namespace

Result<void> MainWindow::OpenProject(const fs::path& folder) {
  auto session = Session::Open(folder, places_);
  if (!session) return session.fault();
  const auto spurs = (*session)->project().SpindleSpurs();
  if (!spurs) return spurs.fault();
  session_ = std::move(*session);
  spur_ = 0;
  spurs_->clear();
  for (int spur = 0; spur < *spurs; ++spur) spurs_->addItem(QString());
  spurs_->setVisible(*spurs > 1);
  memory_.AddRecent(Shown(session_->project().folder()));
  actions_->Enable(true, false);
  Retranslate();
  LockProject();
  Refresh();
  drawing_->Fit();
  equipment_->LookFrom(scene::View::kIso);
  glance_.start();
  return {};
}

/// Others see by the lock that the project is shown here; it keeps nobody from anything.
void MainWindow::LockProject() {
  lock_.reset();
  notice_->hide();
  const fs::path folder = session_->project().folder() / "tmp";
  std::error_code error;
  fs::create_directory(folder, error);
  lock_ = std::make_unique<QLockFile>(Shown(folder / "window.lock"));
  lock_->setStaleLockTime(0);
  if (lock_->tryLock(0) || lock_->error() != QLockFile::LockFailedError) return;
  qint64 process = 0;
  QString host, program;
  lock_->getLockInfo(&process, &host, &program);
  notice_->Tell(texts_(Text::kShownElsewhere).arg(process));
}

Result<void> MainWindow::MakeProject(const fs::path& folder, const std::string& sample) {
  if (const auto made = project::MakeProject(folder, sample, places_.share); !made) return made;
  return OpenProject(folder);
}

void MainWindow::NewProject() {
  QStringList samples;
  for (const std::string& sample : project::SampleNames(places_.share)) samples << Shown(sample);
  const QString place = session_ ? Shown(session_->project().folder().parent_path()) : QDir::homePath();
  NewProjectBox box(texts_, samples, place, this);
  if (box.exec() != QDialog::Accepted) return;
  const auto made = MakeProject(PathOf(box.Folder()), box.Sample().toStdString());
  if (!made) Tell(made.fault());
}

void MainWindow::AskForProject() {
  const QString folder = QFileDialog::getExistingDirectory(this, texts_(Text::kChooseProject));
  if (folder.isEmpty()) return;
  if (const auto opened = OpenProject(PathOf(folder)); !opened) Tell(opened.fault());
}

void MainWindow::FillRecent() {
  QMenu* const menu = actions_->MenuOf(Menu::kRecent);
  menu->clear();
  for (const QString& folder : memory_.Recent()) {
    connect(menu->addAction(folder), &QAction::triggered, this, [this, folder] {
      if (const auto opened = OpenProject(PathOf(folder)); !opened) Tell(opened.fault());
    });
  }
  if (menu->isEmpty()) menu->addAction(texts_(Text::kNone))->setEnabled(false);
}

void MainWindow::SaveVdm() {
  const std::uint32_t vdm = session_->project().DefinitionOf(spur_);
  const QString suggested = Shown(session_->project().folder() / ("spur-" + std::to_string(spur_) + ".vdm"));
  const QString file = QFileDialog::getSaveFileName(this, texts_(Text::kSaveVdm), suggested, kVdmFiles);
  if (file.isEmpty()) return;
  if (const auto saved = SaveVdmTo(vdm, PathOf(file)); !saved) Tell(saved.fault());
}

Result<void> MainWindow::SaveVdmTo(std::uint32_t vdm, const fs::path& file) {
  const vdm::VdmStore store(session_->project().folder());
  const auto content = store.Snapshot(vdm);
  if (!content) return content.fault();
  if (const auto target = store.CheckTarget(file); !target) return target;
  if (const auto written = vdm::WriteVdmFile(file, *content); !written) return written;
  statusBar()->showMessage(texts_(Text::kWritten).arg(Shown(file)), kTelling);
  return {};
}

void MainWindow::LoadVdm() {
  const QString file = QFileDialog::getOpenFileName(this, texts_(Text::kLoadVdm),
                                                    Shown(session_->project().folder()), kVdmFiles);
  if (file.isEmpty()) return;
  const auto loaded = LoadVdmFrom(PathOf(file), session_->project().DefinitionOf(spur_));
  if (!loaded) Tell(loaded.fault());
}

Result<void> MainWindow::LoadVdmFrom(const fs::path& file, std::uint32_t vdm) {
  const auto content = vdm::ReadVdmFile(file);
  if (!content) return content.fault();
  if (const auto kept = vdm::VdmStore(session_->project().folder()).Replace(vdm, *content); !kept)
    return kept;
  statusBar()->showMessage(texts_(Text::kLoaded).arg(Shown(file)), kTelling);
  Refresh();
  return {};
}

Result<void> MainWindow::Import(const std::vector<fs::path>& files,
                                const std::function<Taken(const fs::path&)>& ask) {
  const auto copied = ImportFiles(files, session_->project().folder(), ask);
  if (!copied) return copied.fault();
  for (const fs::path& file : *copied) {
    messages_->Add(MessageDock::Kind::kNote, texts_(Text::kImported).arg(Shown(file)));
  }
  if (!copied->empty()) Refresh();
  return {};
}

Taken MainWindow::AskAboutTaken(const fs::path& existing) {
  QMessageBox box(QMessageBox::Question, texts_(Text::kWindowTitle),
                  texts_(Text::kNameTaken).arg(Shown(existing.filename())), QMessageBox::NoButton, this);
  const auto* const both = box.addButton(texts_(Text::kKeepBoth), QMessageBox::AcceptRole);
  const auto* const replace = box.addButton(texts_(Text::kReplace), QMessageBox::DestructiveRole);
  box.setEscapeButton(box.addButton(texts_(Text::kSkip), QMessageBox::RejectRole));
  box.exec();
  if (box.clickedButton() == replace) return Taken::kReplace;
  return box.clickedButton() == both ? Taken::kKeepBoth : Taken::kSkip;
}

}  // namespace vanzet::window
