#include "window/main_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QMimeData>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <algorithm>

#include "window/commands/command_palette.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

/// The source keeps its files: after a move it would delete them.
void AcceptAsCopy(QDropEvent& event) {
  event.setDropAction(Qt::CopyAction);
  event.accept();
}

std::vector<std::filesystem::path> FilesOf(const QMimeData& data) {
  std::vector<std::filesystem::path> files;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) files.push_back(ToPath(url.toLocalFile()));
  }
  return files;
}

}  // namespace

MainWindow::MainWindow(Places places)
    : texts_(places.share),
      workplace_{.window = this,
                 .texts = texts_,
                 .places = std::move(places),
                 .reportFault = [this](const Fault& fault) { ReportFault(fault); },
                 .showNotice = [this](const QString& text) { notice_->SetMessage(text); },
                 .reportDone = [this](const QString& text) { statusBar()->showMessage(text, kNoteTime); },
                 .showHelp = [this](const char* page,
                                    const QString& heading) { return help_->Open(page, heading); }},
      painter_(ChoosePainter()) {
  setObjectName("workbench");
  setWindowIcon(MakeIcon("app"));
  setAcceptDrops(true);
  setDockNestingEnabled(true);
  actions_ = new Actions(*this, texts_);
  MakeCentre();
  MakeDocks();
  MakeStatusBar();
  help_ = new HelpWindow(texts_, workplace_.places.share.parent_path() / "doc" / "vanzet", this);
  projectCommands_ = new ProjectCommands(workplace_, memory_, *messages_, this);
  equipmentCommands_ = new EquipmentCommands(
      workplace_, {*drawing_, *equipment_, *hint_, *definition_, *layers_, *messages_, *choice_, *bodies_},
      this);
  viewCommands_ = new ViewCommands(workplace_, texts_, memory_,
                                   {*drawing_, *equipment_, *drawingPane_, *equipmentPane_}, this);
  historyCommands_ = new HistoryCommands(workplace_, *history_, this);
  exportCommands_ = new ExportCommands(workplace_, *equipment_, *messages_, this);
  watchCommands_ = new WatchCommands(workplace_, *equipmentCommands_, *statusBar(), this);
  catalogueCommands_ = new CatalogueCommands(workplace_, *pages_, this);
  checkCommands_ = new CheckCommands(
      workplace_, {*checks_, *drawing_, *equipment_, *equipmentCommands_, *statusBar()}, this);
  ConnectCommands();
  ConnectParts();
  ConnectDockSwitches();
  viewCommands_->ApplyRememberedLanguage();
  Retranslate();
  RestoreLayout();
  MakeWelcome();
  if (!painter_) ReportFault(painter_.fault());
}

MainWindow::~MainWindow() {
  // A table that is hidden asks its model for headings, which are made of the texts of this window.
  hide();
}

void MainWindow::Retranslate() {
  const Session* const open = session();
  const QString title = texts_(Text::kWindowTitle);
  setWindowTitle(open != nullptr ? ToQString(open->project().folder().filename()) + " - " + title : title);
  drawingPane_->SetTitle(texts_(Text::kDrawing));
  equipmentPane_->SetTitle(texts_(Text::kEquipment));
  drawing_->SetHint(texts_(open != nullptr ? Text::kNothingDrawn : Text::kNoProject));
  equipment_->SetHint(texts_(open != nullptr ? Text::kNoEquipment : Text::kNoProject));
  for (int spur = 0; spur < spurs_->count(); ++spur)
    spurs_->setItemText(spur, texts_(Text::kSpur).arg(spur + 1));
  NameParts();
  actions_->ActionOf(texts_.language())->setChecked(true);
  const bool isDark = AppearanceOf(palette()) == Appearance::kDark;
  (*actions_)[isDark ? Command::kDark : Command::kLight]->setChecked(true);
}

/// For readers of the screen.
void MainWindow::NameParts() {
  drawing_->setAccessibleName(texts_(Text::kDrawing));
  equipment_->setAccessibleName(texts_(Text::kEquipment));
  // The toolkit says the value of a list as its name.
  spurs_->setAccessibleDescription(texts_(Text::kSpurChoice));
  spurs_->setToolTip(texts_(Text::kSpurChoice));
  notice_->SetCloseName(texts_(Text::kClose));
  // The toolkit names these in its own language.
  for (const QDockWidget* const dock : findChildren<QDockWidget*>()) {
    for (const auto& [button, text] : {std::pair{"qt_dockwidget_closebutton", Text::kClose},
                                       {"qt_dockwidget_floatbutton", Text::kFloat}}) {
      auto* const found = dock->findChild<QAbstractButton*>(button);
      found->setAccessibleName(texts_(text));
      found->setToolTip(texts_(text));
    }
  }
}

void MainWindow::Run(Command command, bool isOn) {
  switch (command) {
    case Command::kQuit: close(); return;
    case Command::kContents: return workplace_.Report(help_->Open("window.md"));
    case Command::kPalette: return ChooseCommand();
    case Command::kAbout: return help_->ShowAbout(PainterText());
    default:
      // A dock's switch has no family: it acts by itself.
      static_cast<void>(projectCommands_->Run(command) || equipmentCommands_->Run(command) ||
                        historyCommands_->Run(command) || viewCommands_->Run(command, isOn) ||
                        exportCommands_->Run(command) || catalogueCommands_->Run(command));
  }
}

QString MainWindow::PainterText() const {
  const bool usesOpenGl = painter_ && painter_->usesOpenGl;
  return usesOpenGl ? texts_(Text::kDrawnByOpenGl).arg(painter_->renderer) : texts_(Text::kDrawnByPainter);
}

void MainWindow::ChooseCommand() {
  CommandPalette palette(texts_, *actions_, this);
  if (palette.exec() == QDialog::Accepted) palette.Chosen()->trigger();
}

void MainWindow::ShowProject(int spurs, qint64 otherProcess) {
  spurs_->clear();
  for (int spur = 0; spur < spurs; ++spur) spurs_->addItem(QString());
  spurs_->setVisible(spurs > 1);
  actions_->Enable(true, false);
  pages_->setCurrentIndex(1);
  Retranslate();
  historyCommands_->Forget();
  watchCommands_->WatchProject();
  notice_->SetMessage(otherProcess == 0 ? QString() : texts_(Text::kShownElsewhere).arg(otherProcess));
  equipmentCommands_->Refresh();
  drawing_->Fit();
  equipment_->LookFrom(scene::View::kIso);
}

/// Shows the spur that was chosen in the definition.
void MainWindow::ActivateSpur(int spur) {
  if (spur == workplace_.spur || workplace_.isBusy) return;
  spurs_->setCurrentIndex(spur);
  equipmentCommands_->ShowSpur(spur);
}

void MainWindow::ShowPosition(double x, double y) {
  const LengthUnit unit = workplace_.unit;
  const int decimals = memory_.Decimals();
  position_->setText(QString("X %1   Y %2 %3")
                         .arg(InUnit(x, unit), 0, 'f', decimals)
                         .arg(InUnit(y, unit), 0, 'f', decimals)
                         .arg(ToQString(WordOf(unit))));
}

void MainWindow::ReportFault(const Fault& fault) {
  messages_->Tell(fault);
  notice_->SetMessage(ToQString(fault.Message()));
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // The call of the module uses this window: it has to end first, and so does a pick.
  if (equipmentCommands_->IsPicking()) equipmentCommands_->CancelPick();
  if (workplace_.isBusy || (session() != nullptr && session()->isAtWork())) {
    statusBar()->showMessage(texts_(Text::kAtWork), kFaultTime);
    return event->ignore();
  }
  memory_.KeepLayout(saveGeometry(), saveState(), split_->saveState());
  memory_.KeepDockSizes(dockSizes_->Chosen());
  QMainWindow::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  const auto files = FilesOf(*event->mimeData());
  const bool isWelcome =
      session() != nullptr && !session()->isAtWork() && !files.empty() &&
      event->possibleActions().testFlag(Qt::CopyAction) &&
      std::ranges::all_of(files, [](const auto& file) { return FolderFor(file).has_value(); });
  if (isWelcome) AcceptAsCopy(*event);
}

void MainWindow::dropEvent(QDropEvent* event) {
  AcceptAsCopy(*event);
  projectCommands_->ImportDropped(FilesOf(*event->mimeData()));
}

}  // namespace vanzet::window
