#include "window/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

#include "window/icons.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

constexpr int kRedraw = 60;       // milliseconds that lines are gathered
constexpr int kGlance = 1000;     // milliseconds between looks at the files
constexpr int kTelling = 15'000;  // milliseconds that the status bar shows a fault

std::vector<std::filesystem::path> FilesOf(const QMimeData& data) {
  std::vector<std::filesystem::path> files;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) files.push_back(PathOf(url.toLocalFile()));
  }
  return files;
}

}  // namespace

MainWindow::MainWindow(Places places) : places_(std::move(places)), texts_(places_.share) {
  setObjectName("workbench");
  setWindowIcon(IconNamed("app"));
  setAcceptDrops(true);
  setDockNestingEnabled(true);
  actions_ = new Actions(*this, texts_);
  MakeViews();
  MakeDocks();
  MakeStatus();
  picks_ = new PickSession({texts_, *hint_, *drawing_, *equipment_, *choice_, [this] { RefreshDrawing(); },
                            [this] { return Figures(); }, [this] { return Solids(); },
                            [this](const QString& name) { ShowSolid(name); },
                            [this] { static_cast<void>(equipment_->Show(scene_)); }});
  picks_->setParent(this);
  Connect();
  const std::string language = memory_.ChosenLanguage();
  ApplyLanguage(texts_.Has(language) ? language : texts_.language());
  Retranslate();
  resize(1400, 900);
  restoreGeometry(memory_.Geometry());
  restoreState(memory_.State());
  split_->restoreState(memory_.Split());
  choice_->hide();
}

MainWindow::~MainWindow() = default;

void MainWindow::MakeViews() {
  drawing_ = new DrawingView;
  equipment_ = new EquipmentView;
  drawingPane_ = new ViewPane(drawing_, this);
  equipmentPane_ = new ViewPane(equipment_, this);
  spurs_ = new QComboBox;
  spurs_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  equipmentPane_->Add(spurs_);
  for (const Command command : {Command::kIso, Command::kFront, Command::kTop, Command::kRight,
                                Command::kSection, Command::kPerspective}) {
    equipmentPane_->Add((*actions_)[command]);
  }
  drawingPane_->Add((*actions_)[Command::kLayers]);
  split_ = new QSplitter(Qt::Vertical);
  split_->addWidget(drawingPane_);
  split_->addWidget(equipmentPane_);
  split_->setStretchFactor(0, 2);
  split_->setStretchFactor(1, 3);
  split_->setChildrenCollapsible(false);
  hint_ = new HintBar;
  notice_ = new NoticeBar;
  auto* const centre = new QWidget;
  auto* const layout = new QVBoxLayout(centre);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(4);
  layout->addWidget(notice_);
  layout->addWidget(hint_);
  layout->addWidget(split_, 1);
  setCentralWidget(centre);
}

void MainWindow::MakeDocks() {
  definition_ = new DefinitionDock(texts_, this);
  layers_ = new LayerDock(texts_, this);
  messages_ = new MessageDock(texts_, this);
  choice_ = new ChoiceDock(this);
  addDockWidget(Qt::LeftDockWidgetArea, definition_);
  addDockWidget(Qt::LeftDockWidgetArea, layers_);
  addDockWidget(Qt::BottomDockWidgetArea, messages_);
  addDockWidget(Qt::RightDockWidgetArea, choice_);
  setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
  resizeDocks({definition_, layers_}, {370, 370}, Qt::Horizontal);
  resizeDocks({definition_, layers_}, {600, 180}, Qt::Vertical);
  resizeDocks({messages_}, {150}, Qt::Vertical);
}

void MainWindow::MakeStatus() {
  position_ = new QLabel;
  position_->setMinimumWidth(260);
  position_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  statusBar()->addPermanentWidget(position_);
}

void MainWindow::Connect() {
  connect(actions_, &Actions::Triggered, this, &MainWindow::Run);
  connect(actions_, &Actions::LanguageChosen, this, &MainWindow::ChooseLanguage);
  connect(actions_->MenuOf(Menu::kRecent), &QMenu::aboutToShow, this, &MainWindow::FillRecent);
  connect(&texts_, &Texts::Changed, this, &MainWindow::Retranslate);
  connect(messages_, &MessageDock::FaultAdded, this,
          [this](const QString& text) { statusBar()->showMessage(text, kTelling); });
  connect(layers_, &LayerDock::LayerSwitched, this,
          [this](const QString& name, bool isOn) { drawing_->Hide(name.toStdString(), !isOn); });
  connect(drawing_, &DrawingView::CursorMoved, this, &MainWindow::ShowPosition);
  connect(drawing_, &DrawingView::CursorLeft, position_, &QLabel::clear);
  connect(spurs_, &QComboBox::activated, this, [this](int spur) { spur_ = spur, RefreshEquipment(); });
  connect(definition_, &DefinitionDock::SpurActivated, this, [this](int spur) {
    if (spur == spur_ || isBusy_) return;
    spur_ = spur;
    spurs_->setCurrentIndex(spur);
    RefreshEquipment();
  });
  for (const auto& [command, dock] : {std::pair<Command, QDockWidget*>{Command::kDefinitionTree, definition_},
                                      {Command::kLayers, layers_},
                                      {Command::kMessages, messages_}}) {
    QAction* const action = (*actions_)[command];
    connect(action, &QAction::triggered, dock, &QWidget::setVisible);
    connect(dock, &QDockWidget::visibilityChanged, action,
            [action, shown = dock] { action->setChecked(!shown->isHidden()); });
  }
  redraw_.setSingleShot(true);
  redraw_.setInterval(kRedraw);
  connect(&redraw_, &QTimer::timeout, this, &MainWindow::RefreshDrawing);
  glance_.setInterval(kGlance);
  connect(&glance_, &QTimer::timeout, this, &MainWindow::LookForChanges);
}

void MainWindow::Retranslate() {
  const QString title = texts_(Text::kWindowTitle);
  setWindowTitle(session_ ? Shown(session_->project().folder().filename()) + " - " + title : title);
  drawingPane_->SetTitle(texts_(Text::kDrawing));
  equipmentPane_->SetTitle(texts_(Text::kEquipment));
  drawing_->SetHint(texts_(session_ ? Text::kNothingDrawn : Text::kNoProject));
  equipment_->SetHint(texts_(session_ ? Text::kNoEquipment : Text::kNoProject));
  for (int spur = 0; spur < spurs_->count(); ++spur) spurs_->setItemText(spur, texts_(Text::kSpur).arg(spur));
  actions_->ActionOf(texts_.language())->setChecked(true);
  const bool isDark = AppearanceOf(palette()) == Appearance::kDark;
  (*actions_)[isDark ? Command::kDark : Command::kLight]->setChecked(true);
}

void MainWindow::Run(Command command) {
  switch (command) {
    case Command::kNewProject: return NewProject();
    case Command::kOpenProject: return AskForProject();
    case Command::kSaveVdm: return SaveVdm();
    case Command::kLoadVdm: return LoadVdm();
    case Command::kQuit: close(); return;
    case Command::kDefinition: return ShowDefinition();
    case Command::kUpgrade: return Upgrade();
    case Command::kRefresh: return Refresh();
    case Command::kContents: return ShowContents();
    case Command::kAbout: return ShowAbout();
    default: static_cast<void>(RunView(command) || RunExport(command));
  }
}

void MainWindow::Tell(const Fault& fault) {
  static_cast<project::MessagePanel&>(*messages_).Tell(fault);
  notice_->Tell(Shown(fault.Message()));
}

void MainWindow::Remember() {
  memory_.Keep(saveGeometry(), saveState(), split_->saveState());
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // The module's call stands on this window: it ends first, and so does a pick.
  if (picks_->isAsking()) picks_->Cancel();
  if (isBusy_ || (session_ && session_->isAtWork())) {
    statusBar()->showMessage(texts_(Text::kAtWork), kTelling);
    return event->ignore();
  }
  Remember();
  QMainWindow::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  const auto files = FilesOf(*event->mimeData());
  const bool isTaken =
      session_ && !session_->isAtWork() && !files.empty() &&
      std::ranges::all_of(files, [](const auto& file) { return FolderFor(file).has_value(); });
  if (isTaken) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  const auto done =
      Import(FilesOf(*event->mimeData()), [this](const auto& existing) { return AskAboutTaken(existing); });
  if (!done) Tell(done.fault());
}

}  // namespace vanzet::window
