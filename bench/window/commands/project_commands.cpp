#include "window/commands/project_commands.h"

#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

#include "project/project_store.h"
#include "project/sample.h"
#include "vdm/vdm_file.h"
#include "window/commands/boxes.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

namespace fs = std::filesystem;

}  // namespace

ProjectCommands::ProjectCommands(Workplace& workplace, WindowMemory& memory, project::MessagePanel& panel,
                                 QObject* parent)
    : QObject(parent), workplace_(workplace), memory_(memory), panel_(panel) {}

bool ProjectCommands::Run(Command command) {
  struct Row {
    Command command;
    void (ProjectCommands::*run)();
  };
  constexpr Row kRows[] = {
      {Command::kNewProject, &ProjectCommands::AskToMake},
      {Command::kOpenProject, &ProjectCommands::AskToOpen},
      {Command::kSaveVdm, &ProjectCommands::AskToSaveVdm},
      {Command::kLoadVdm, &ProjectCommands::AskToLoadVdm},
  };
  return RunFromTable(*this, kRows, command);
}

Result<void> ProjectCommands::Open(const fs::path& folder) {
  VANZET_TRY(auto session, Session::Open(folder, workplace_.places));
  VANZET_TRY(const int spurs, session->project().SpindleSpurs());
  workplace_.session = std::move(session);
  workplace_.spur = 0;
  memory_.AddRecent(ToQString(workplace_.session->project().folder()));
  emit Opened(spurs, LockProject());
  return {};
}

/// Other processes see by the lock that the project is shown here; it keeps them from nothing. Returns the
/// process that had it locked, or 0.
qint64 ProjectCommands::LockProject() {
  lock_.reset();
  const fs::path folder = workplace_.session->project().folder() / "tmp";
  std::error_code error;
  fs::create_directory(folder, error);
  lock_ = std::make_unique<QLockFile>(ToQString(folder / "window.lock"));
  lock_->setStaleLockTime(0);
  if (lock_->tryLock(0) || lock_->error() != QLockFile::LockFailedError) return 0;
  qint64 process = 0;
  QString host, program;
  lock_->getLockInfo(&process, &host, &program);
  return process;
}

Result<void> ProjectCommands::Make(const fs::path& folder, const std::string& sample) {
  const auto fill = [this](const fs::path& place) {
    return Session::MakeDefinitions(place, workplace_.places, panel_);
  };
  VANZET_DO(project::MakeProject(folder, sample, workplace_.places.share, fill));
  return Open(folder);
}

QStringList ProjectCommands::Samples() const {
  QStringList samples;
  for (const std::string& sample : project::SampleNames(workplace_.places.share))
    samples << ToQString(sample);
  return samples;
}

void ProjectCommands::AskToMake() {
  AskToMakeFrom({});
}

void ProjectCommands::AskToMakeFrom(const QString& sample) {
  NewProjectBox box(workplace_.texts, Samples(), FolderOfProjects(), workplace_.window);
  box.Choose(sample);
  if (box.exec() != QDialog::Accepted) return;
  workplace_.Report(Make(ToPath(box.Folder()), box.Sample().toStdString()));
}

/// The folder in which the project is, or the one that was open last.
QString ProjectCommands::FolderOfProjects() const {
  if (workplace_.session) return ToQString(workplace_.session->project().folder().parent_path());
  const QStringList recent = memory_.Recent();
  return recent.isEmpty() ? QDir::homePath() : QFileInfo(recent.front()).path();
}

QString ProjectCommands::VdmFiles() const {
  return workplace_.texts(Text::kDefinitionFiles).arg("*.vdm");
}

void ProjectCommands::AskToOpen() {
  const QString folder = QFileDialog::getExistingDirectory(
      workplace_.window, workplace_.texts(Text::kChooseProject), FolderOfProjects());
  if (!folder.isEmpty()) workplace_.Report(Open(ToPath(folder)));
}

void ProjectCommands::FillRecent(QMenu& menu) {
  menu.clear();
  for (const QString& folder : memory_.Recent()) {
    connect(menu.addAction(folder), &QAction::triggered, this,
            [this, folder] { workplace_.Report(Open(ToPath(folder))); });
  }
  if (menu.isEmpty()) menu.addAction(workplace_.texts(Text::kNone))->setEnabled(false);
}

void ProjectCommands::AskToSaveVdm() {
  const project::Project& project = workplace_.session->project();
  const QString suggested =
      ToQString(project.folder() / ("spur-" + std::to_string(workplace_.spur) + ".vdm"));
  const QString file = QFileDialog::getSaveFileName(
      workplace_.window, TitleOf(workplace_.texts(Text::kSaveVdm)), suggested, VdmFiles());
  if (!file.isEmpty()) workplace_.Report(SaveVdm(project.DefinitionOf(workplace_.spur), ToPath(file)));
}

Result<void> ProjectCommands::SaveVdm(std::uint32_t vdm, const fs::path& file) const {
  const vdm::VdmStore store = project::StoreOf(workplace_.session->project());
  VANZET_TRY(const vdm::Vdm content, store.Snapshot(vdm));
  VANZET_DO(store.CheckTarget(file));
  VANZET_DO(vdm::WriteVdmFile(file, content));
  workplace_.reportDone(workplace_.texts(Text::kWritten).arg(ToQString(file)));
  return {};
}

void ProjectCommands::AskToLoadVdm() {
  const project::Project& project = workplace_.session->project();
  const QString file = QFileDialog::getOpenFileName(
      workplace_.window, TitleOf(workplace_.texts(Text::kLoadVdm)), ToQString(project.folder()), VdmFiles());
  if (!file.isEmpty()) workplace_.Report(LoadVdm(ToPath(file), project.DefinitionOf(workplace_.spur)));
}

Result<void> ProjectCommands::LoadVdm(const fs::path& file, std::uint32_t vdm) {
  VANZET_TRY(const vdm::Vdm content, vdm::ReadVdmFile(file));
  vdm::VdmStore store = project::StoreOf(workplace_.session->project());
  VANZET_DO(store.Replace(vdm, content));
  VANZET_DO(store.Commit("vdm load"));
  workplace_.reportDone(workplace_.texts(Text::kLoaded).arg(ToQString(file)));
  emit Changed();
  return {};
}

Result<void> ProjectCommands::Import(const std::vector<fs::path>& files, const NameQuestion& ask) {
  VANZET_TRY(const auto copied, ImportFiles(files, workplace_.session->project().folder(), ask));
  for (const fs::path& file : copied) emit FileImported(ToQString(file));
  if (!copied.empty()) emit Changed();
  return {};
}

void ProjectCommands::ImportDropped(const std::vector<fs::path>& files) {
  workplace_.Report(Import(files, [this](const fs::path& existing) { return AskAboutName(existing); }));
}

NameAnswer ProjectCommands::AskAboutName(const fs::path& existing) {
  const Texts& texts = workplace_.texts;
  QMessageBox box(QMessageBox::Question, texts(Text::kWindowTitle),
                  texts(Text::kAlreadyExists).arg(ToQString(existing.filename())), QMessageBox::NoButton,
                  workplace_.window);
  const auto* const both = box.addButton(texts(Text::kKeepBoth), QMessageBox::AcceptRole);
  const auto* const replace = box.addButton(texts(Text::kReplace), QMessageBox::DestructiveRole);
  box.setEscapeButton(box.addButton(texts(Text::kSkip), QMessageBox::RejectRole));
  box.exec();
  if (box.clickedButton() == replace) return NameAnswer::kReplace;
  return box.clickedButton() == both ? NameAnswer::kKeepBoth : NameAnswer::kSkip;
}

}  // namespace vanzet::window
