#include "window/main_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>

#include "window/commands/command_palette.h"
#include "window/commands/dialog_place.h"
#include "window/commands/reading_bar.h"
#include "window/qt_text.h"
#include "window/views/section_bar.h"
#include "window/views/view_cube.h"

namespace vanzet::window {
namespace {

// Milliseconds that the status bar shows a text.
constexpr int kNoteTime = 8000;
constexpr int kFaultTime = 15'000;

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
  exportCommands_ = new ExportCommands(workplace_, *equipment_, this);
  watchCommands_ = new WatchCommands(workplace_, *equipmentCommands_, *statusBar(), this);
  catalogueCommands_ = new CatalogueCommands(workplace_, *pages_, this);
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

void MainWindow::MakeCentre() {
  hint_ = new HintBar;
  notice_ = new NoticeBar;
  auto* const centre = new QWidget;
  auto* const layout = new QVBoxLayout(centre);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(4);
  layout->addWidget(notice_);
  layout->addWidget(hint_);
  pages_ = new QStackedWidget;
  welcome_ = new WelcomePage(texts_);
  pages_->addWidget(welcome_);
  pages_->addWidget(MakeViews());
  layout->addWidget(pages_, 1);
  setCentralWidget(centre);
}

QWidget* MainWindow::MakeViews() {
  drawing_ = new DrawingView;
  const bool usesOpenGl = painter_ && painter_->usesOpenGl;
  equipment_ = new EquipmentView(usesOpenGl ? EquipmentView::By::kOpenGl : EquipmentView::By::kPainter);
  equipment_->SetMouseStyle(MouseStyleNamed(memory_.MouseStyle()));
  MakeCube();
  const auto nameOfBody = [this](const QString& name) { return BodyText(texts_.translations(), name); };
  equipment_->NameBodiesBy(nameOfBody);
  drawing_->NameBodiesBy(nameOfBody);
  drawingPane_ = new ViewPane(drawing_, this);
  equipmentPane_ = new ViewPane(equipment_, this);
  spurs_ = new QComboBox;
  spurs_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  equipmentPane_->Add(spurs_);
  for (const Command command : {Command::kIso, Command::kFront, Command::kTop, Command::kRight,
                                Command::kSection, Command::kPerspective}) {
    equipmentPane_->Add((*actions_)[command]);
  }
  equipmentPane_->Add(new SectionBar(texts_, *equipment_));
  (*actions_)[Command::kHalfSection]->setChecked(true);
  drawingPane_->Add((*actions_)[Command::kHalfSection]);
  drawingPane_->Add((*actions_)[Command::kGrid]);
  drawingPane_->Add((*actions_)[Command::kLayers]);
  split_ = new QSplitter(Qt::Vertical);
  split_->addWidget(drawingPane_);
  split_->addWidget(equipmentPane_);
  split_->setStretchFactor(0, 2);
  split_->setStretchFactor(1, 3);
  split_->setChildrenCollapsible(false);
  return split_;
}

void MainWindow::MakeCube() {
  auto* const cube = new ViewCube(texts_, equipment_);
  connect(cube, &ViewCube::DirectionChosen, equipment_,
          qOverload<const geometry::Vector3d&>(&EquipmentView::LookFrom));
  connect(cube, &ViewCube::Entered, equipment_, &EquipmentView::LeaveBodies);
  connect(equipment_, &EquipmentView::LookChanged, cube, [this, cube] {
    cube->setVisible(equipment_->model() != nullptr);
    cube->move(equipment_->width() - cube->width(), 0);
    equipment_->KeepFree(cube->geometry());
    cube->Turn(equipment_->look());
  });
  cube->hide();
}

void MainWindow::MakeWelcome() {
  connect(welcome_, &WelcomePage::ProjectChosen, this,
          [this](const QString& folder) { workplace_.Report(projectCommands_->Open(ToPath(folder))); });
  connect(welcome_, &WelcomePage::SampleChosen, projectCommands_, &ProjectCommands::AskToMakeFrom);
  connect(welcome_, &WelcomePage::GuideChosen, this,
          [this] { workplace_.Report(help_->Open("guide/README.md")); });
  welcome_->Show(memory_.Recent(), projectCommands_->Samples());
}

void MainWindow::MakeDocks() {
  definition_ = new DefinitionDock(texts_, this);
  bodies_ = new BodyDock(texts_, this);
  layers_ = new LayerDock(texts_, this);
  messages_ = new MessageDock(texts_, this);
  history_ = new HistoryDock(texts_, this);
  choice_ = new ChoiceDock(this);
  addDockWidget(Qt::LeftDockWidgetArea, definition_);
  addDockWidget(Qt::LeftDockWidgetArea, bodies_);
  addDockWidget(Qt::LeftDockWidgetArea, layers_);
  tabifyDockWidget(layers_, bodies_);
  addDockWidget(Qt::BottomDockWidgetArea, messages_);
  addDockWidget(Qt::BottomDockWidgetArea, history_);
  tabifyDockWidget(history_, messages_);
  addDockWidget(Qt::RightDockWidgetArea, choice_);
  setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
  resizeDocks({definition_, layers_}, {370, 370}, Qt::Horizontal);
  resizeDocks({definition_, layers_}, {600, 180}, Qt::Vertical);
  resizeDocks({messages_}, {150}, Qt::Vertical);
}

void MainWindow::MakeStatusBar() {
  statusBar()->addPermanentWidget(new ReadingBar(texts_, *workplace_.bodies, this));
  position_ = new QLabel;
  position_->setMinimumWidth(260);
  position_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  statusBar()->addPermanentWidget(position_);
}

void MainWindow::RestoreLayout() {
  resize(1400, 900);
  restoreGeometry(memory_.Geometry());
  restoreState(memory_.State());
  split_->restoreState(memory_.Split());
  (*actions_)[viewCommands_->RememberedViews()]->trigger();
  choice_->hide();
  dockSizes_ = new DockSizes(*this, this);
  dockSizes_->Choose(memory_.DockSizes());
}

void MainWindow::ConnectCommands() {
  connect(actions_, &Actions::Triggered, this, &MainWindow::Run);
  connect(actions_, &Actions::LanguageChosen, viewCommands_, &ViewCommands::ChooseLanguage);
  QMenu* const recent = actions_->MenuOf(Menu::kRecent);
  connect(recent, &QMenu::aboutToShow, this, [this, recent] { projectCommands_->FillRecent(*recent); });
  connect(projectCommands_, &ProjectCommands::Opened, this, &MainWindow::ShowProject);
  connect(projectCommands_, &ProjectCommands::Changed, equipmentCommands_, &EquipmentCommands::Refresh);
  connect(projectCommands_, &ProjectCommands::FileImported, this, [this](const QString& file) {
    messages_->Add(MessageDock::Kind::kNote, texts_(Text::kImported).arg(file));
  });
  connect(viewCommands_, &ViewCommands::AppearanceChanged, this, &MainWindow::Retranslate);
  connect(viewCommands_, &ViewCommands::UnitChosen, equipmentCommands_, &EquipmentCommands::Refresh);
  connect(viewCommands_, &ViewCommands::AppearanceChanged, equipmentCommands_,
          &EquipmentCommands::RefreshDrawing);
  connect(equipmentCommands_, &EquipmentCommands::AtWork, historyCommands_, &HistoryCommands::NoteCall);
  connect(equipmentCommands_, &EquipmentCommands::Refreshed, historyCommands_, &HistoryCommands::Refresh);
  connect(historyCommands_, &HistoryCommands::Changed, equipmentCommands_, &EquipmentCommands::Refresh);
  connect(equipmentCommands_, &EquipmentCommands::AtWork, this,
          [this](bool isAtWork) { actions_->Enable(true, isAtWork); });
  auto* const place = new DialogPlace(*this, memory_, this);
  connect(equipmentCommands_, &EquipmentCommands::AtWork, place,
          [place](bool isAtWork) { isAtWork ? place->Begin() : place->End(); });
  // Picks are in the views.
  connect(equipmentCommands_, &EquipmentCommands::AtWork, catalogueCommands_, &CatalogueCommands::Leave);
  connect(definition_, &DefinitionDock::DeviceWanted, catalogueCommands_, &CatalogueCommands::ShowDevice);
  connect(equipment_, &EquipmentView::BodyHovered, drawing_, &DrawingView::Mark);
  connect(drawing_, &DrawingView::BodyHovered, equipment_, &EquipmentView::Mark);
  connect(drawing_, &DrawingView::BodySelected, equipment_, &EquipmentView::Select);
}

void MainWindow::ConnectParts() {
  connect(&texts_, &Texts::Changed, this, &MainWindow::Retranslate);
  connect(messages_, &MessageDock::FaultAdded, this,
          [this](const QString& text) { statusBar()->showMessage(text, kFaultTime); });
  connect(layers_, &LayerDock::LayerSwitched, this,
          [this](const QString& name, bool isOn) { drawing_->Hide(name.toStdString(), !isOn); });
  connect(drawing_, &DrawingView::CursorMoved, this, &MainWindow::ShowPosition);
  connect(drawing_, &DrawingView::CursorLeft, position_, &QLabel::clear);
  connect(spurs_, &QComboBox::activated, equipmentCommands_, &EquipmentCommands::ShowSpur);
  connect(definition_, &DefinitionDock::SpurActivated, this, &MainWindow::ActivateSpur);
}

/// A dock and the switch in its menu follow each other.
void MainWindow::ConnectDockSwitches() {
  for (const auto& [command, dock] : {std::pair<Command, QDockWidget*>{Command::kDefinitionTree, definition_},
                                      {Command::kBodies, bodies_},
                                      {Command::kLayers, layers_},
                                      {Command::kMessages, messages_},
                                      {Command::kHistory, history_}}) {
    QAction* const action = (*actions_)[command];
    connect(action, &QAction::triggered, dock, &QWidget::setVisible);
    connect(dock, &QDockWidget::visibilityChanged, action,
            [action, shown = dock] { action->setChecked(!shown->isHidden()); });
  }
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
