#include <QComboBox>
#include <QLabel>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>

#include "window/commands/reading_bar.h"
#include "window/main_window.h"
#include "window/qt_text.h"
#include "window/views/section_bar.h"
#include "window/views/view_cube.h"

/// The parts of the window and where they are.
namespace vanzet::window {

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
  checks_ = new CheckDock(texts_, this);
  choice_ = new ChoiceDock(texts_, this);
  addDockWidget(Qt::LeftDockWidgetArea, definition_);
  addDockWidget(Qt::LeftDockWidgetArea, bodies_);
  addDockWidget(Qt::LeftDockWidgetArea, layers_);
  tabifyDockWidget(layers_, bodies_);
  addDockWidget(Qt::BottomDockWidgetArea, messages_);
  addDockWidget(Qt::BottomDockWidgetArea, history_);
  addDockWidget(Qt::BottomDockWidgetArea, checks_);
  tabifyDockWidget(history_, checks_);
  tabifyDockWidget(checks_, messages_);
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

}  // namespace vanzet::window
