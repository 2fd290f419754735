#include "window/commands/equipment_commands.h"

#include <QApplication>
#include <QMessageBox>
#include <algorithm>
#include <utility>

#include "drawing/figure_folder.h"
#include "modeller/body_folder.h"
#include "project/length_unit.h"
#include "window/commands/boxes.h"
#include "window/docks/equipment_pages.h"
#include "window/qt_text.h"
#include "window/window_memory.h"

namespace vanzet::window {
namespace {

constexpr int kRedrawDelay = 60;    // milliseconds in which the lines of a call are gathered
constexpr int kArrivedDelay = 100;  // milliseconds

/// The lines by which the dialog loads and saves a configuration: "vdm load", "vdm save".
constexpr const char* kConfigurationLine = "'vdm ";

/// The first fault of a configuration that the user has loaded or saved in an event of the module's dialog.
/// Other faults do not keep the user from going on: they are in the panel.
class EventFaults final {
 public:
  explicit EventFaults(MessageDock& messages)
      : connection_(QObject::connect(&messages, &MessageDock::FaultAdded, [this](const QString& text) {
          if (first_.isEmpty() && text.startsWith(kConfigurationLine)) first_ = text;
        })) {}
  ~EventFaults() { QObject::disconnect(connection_); }
  EventFaults(const EventFaults&) = delete;
  EventFaults& operator=(const EventFaults&) = delete;

  /// Empty without a fault; the next event begins.
  QString TakeFirst() { return std::exchange(first_, QString()); }

 private:
  QMetaObject::Connection connection_;
  QString first_;
};

}  // namespace

EquipmentCommands::EquipmentCommands(Workplace& workplace, Parts parts, QObject* parent)
    : QObject(parent),
      workplace_(workplace),
      parts_(parts),
      previews_(workplace, parts.choice, [this](const std::string& figure) { return ContoursOf(figure); }),
      picks_({workplace.texts, parts.hint, parts.drawing, parts.equipment, parts.choice,
              [this] { RefreshDrawing(); }, [this] { return Figures(); }, [this] { return Solids(); },
              [this](const QString& name) { ShowFigure(name); },
              [this](const QString& name) { ShowSolid(name); }, [this] { ShowSceneAgain(); },
              [this] { return workplace_.unit; }, previews_}),
      page_(this),
      live_(workplace, {parts.drawing, parts.equipment, [this] { return ShowScene(); }}, nullptr) {
  redraw_.setSingleShot(true);
  redraw_.setInterval(kRedrawDelay);
  connect(&redraw_, &QTimer::timeout, this, &EquipmentCommands::RefreshDrawing);
  arrived_.setSingleShot(true);
  arrived_.setInterval(kArrivedDelay);
  connect(&arrived_, &QTimer::timeout, this, &EquipmentCommands::ShowArrived);
  connect(workplace_.bodies.get(), &BodyReader::Arrived, this, &EquipmentCommands::ShowArrived);
  connect(&parts.definition, &DefinitionDock::PageWanted, this, &EquipmentCommands::DefineAt);
  connect(&parts.drawing, &DrawingView::BodyActivated, this, &EquipmentCommands::DefineBody);
  connect(&parts.equipment, &EquipmentView::BodyActivated, this, &EquipmentCommands::DefineBody);
  connect(&parts.bodies, &BodyDock::Chosen, this, &EquipmentCommands::ShowChosen);
}

bool EquipmentCommands::Run(Command command) {
  struct Row {
    Command command;
    void (EquipmentCommands::*run)();
  };
  constexpr Row kRows[] = {
      {Command::kDefinition, &EquipmentCommands::Define},
      {Command::kUpgrade, &EquipmentCommands::Upgrade},
      {Command::kRefresh, &EquipmentCommands::Refresh},
  };
  return RunFromTable(*this, kRows, command);
}

void EquipmentCommands::Define() {
  if (IsFreeElsewhere()) Call("mstart");
}

void EquipmentCommands::DefineAt(int spur, std::int32_t node) {
  DefineAtField(spur, node, {});
}

void EquipmentCommands::DefineAtField(int spur, std::int32_t node, std::span<const std::int32_t> fields) {
  page_.Show(spur, node, fields);
  if (!workplace_.session->isAtWork()) Define();
}

void EquipmentCommands::DefineBody(const QString& name) {
  if (IsPicking() || !workplace_.session || !workplace_.scene) return;
  const auto body = std::ranges::find(workplace_.scene->bodies, name.toStdString(), &scene::SceneBody::name);
  const auto stored = results::ReadDefinition(workplace_.session->project(), workplace_.spur);
  if (body == workplace_.scene->bodies.end() || !stored || !stored->definition) return;
  const std::int32_t node = NodeOf(*body, scene::ReadEquipment(*stored->definition));
  if (node != 0) DefineAt(workplace_.spur, node);
}

void EquipmentCommands::Upgrade() {
  if (IsFreeElsewhere()) Call("ReOrgVdm");
}

/// False, after a box, while another process has a definition open: the module would lose its work on it.
bool EquipmentCommands::IsFreeElsewhere() {
  const auto open = workplace_.session->OpenElsewhere();
  if (!open) return workplace_.reportFault(open.fault()), false;
  if (open->empty()) return true;
  QMessageBox::information(workplace_.window, workplace_.texts(Text::kWindowTitle),
                           workplace_.texts(Text::kOpenElsewhere).arg(open->front()));
  return false;
}

void EquipmentCommands::Call(const char* function) {
  if (workplace_.isBusy || workplace_.session->isAtWork()) return;
  if (const auto reloaded = workplace_.session->Reload(); !reloaded)
    return workplace_.reportFault(reloaded.fault());
  ReadUnit();
  emit AtWork(true);
  live_.Begin();
  // A body that a pick or a page asks for is read within one call.
  std::unique_ptr<BusyBox> box;
  const auto progress = [&](double done) {
    if (!box) box = std::make_unique<BusyBox>(workplace_.texts, Text::kImporting, workplace_.window);
    return box->Progress()(done);
  };
  const auto afterCall = [&](bool isLine) {
    box.reset();
    if (isLine) redraw_.start();
  };
  // Modules know one topic, their dialog.
  const auto help = [this](const std::string& /*topic*/) {
    return workplace_.showHelp("guide/pages.md", SelectedPage());
  };
  EventFaults faults(parts_.messages);
  const auto keepEvent = [&](const Result<void>& kept) {
    if (!kept) parts_.messages.Tell(kept.fault());
    const QString first = faults.TakeFirst();
    // The panel shows a cause that stays once; here the user asks again by each attempt.
    if (kept) {
      ShowEventFault(first, first);
    } else {
      const QString fault = ToQString(kept.fault().Message());
      ShowEventFault(fault, fault + "\n\n" + workplace_.texts(Text::kNotStored));
    }
    live_.Refresh();
    if (kept) emit StepStored();
    return kept;
  };
  const auto announce = [&](const std::string& sentence) {
    parts_.messages.Add(MessageDock::Kind::kNote, ToQString(sentence));
  };
  const auto called =
      workplace_.session->Call(function, {parts_.messages, std::make_unique<WindowPicks>(picks_),
                                          std::make_unique<CallListener>(parts_.messages, afterCall),
                                          workplace_.window, progress, help, keepEvent, announce});
  live_.End();
  emit AtWork(false);
  workplace_.Report(called);
  Refresh();
}

/// Shows in front of the module's dialog that an event of it went wrong. Without a fault it does nothing.
void EquipmentCommands::ShowEventFault(const QString& fault, const QString& boxText) {
  if (fault.isEmpty()) return;
  workplace_.showNotice(fault);
  QWidget* const dialog = QApplication::activeModalWidget();
  QMessageBox::warning(dialog != nullptr ? dialog : workplace_.window, workplace_.texts(Text::kWindowTitle),
                       boxText);
}

void EquipmentCommands::Refresh() {
  if (!workplace_.session || workplace_.isBusy) return;
  if (!workplace_.session->isAtWork()) workplace_.Report(workplace_.session->Reload());
  emit RefreshBegins();
  workplace_.bodies->Tidy(workplace_.session->project().folder() / "bodies");
  ReadUnit();
  RefreshDefinition();
  RefreshDrawing();
  RefreshEquipment();
  emit Refreshed();
}

void EquipmentCommands::ReadUnit() {
  const auto chosen = LengthUnitNamed(WindowMemory().Unit().toStdString());
  const auto unit = chosen ? *chosen : project::LengthUnitOf(workplace_.session->project());
  workplace_.Report(unit ? Result<void>() : unit.fault());
  workplace_.unit = unit ? *unit : LengthUnit::kMillimetre;
  parts_.drawing.SetUnit(workplace_.unit);
  parts_.equipment.SetUnit(workplace_.unit);
}

void EquipmentCommands::RefreshDefinition() {
  auto definitions = workplace_.session->Definitions();
  if (!definitions) return workplace_.reportFault(definitions.fault());
  parts_.definition.Show(std::move(*definitions), workplace_.unit);
}

void EquipmentCommands::RefreshDrawing() {
  if (!workplace_.session) return;
  const auto drawing = workplace_.session->Drawing();
  if (!drawing) return workplace_.reportFault(drawing.fault());
  parts_.drawing.Show(*drawing);
  parts_.layers.Show(*drawing);
}

void EquipmentCommands::ShowSpur(int spur) {
  workplace_.spur = spur;
  RefreshEquipment();
}

void EquipmentCommands::RefreshEquipment() {
  if (workplace_.isBusy) return;
  parts_.equipment.SetHint(workplace_.texts(Text::kNoEquipment));
  const auto made = MakeScene();
  if (workplace_.bodies->IsReading()) parts_.equipment.SetHint(workplace_.texts(Text::kImporting));
  const auto shown = ShowScene();
  RefreshSection();
  if (made && shown) return;
  const Fault& fault = made ? shown.fault() : made.fault();
  parts_.equipment.SetHint(ToQString(fault.Message()));
  workplace_.reportFault(fault);
}

/// Shows the bodies of the scene that are to be seen.
Result<void> EquipmentCommands::ShowScene() {
  workplace_.shownScene = parts_.bodies.Show(workplace_.scene);
  return parts_.equipment.Show(workplace_.shownScene);
}

/// Both views show the bodies that are ticked.
void EquipmentCommands::ShowChosen() {
  if (workplace_.session->isAtWork()) return live_.Renew();
  workplace_.Report(ShowScene());
  RefreshSection();
}

void EquipmentCommands::RefreshSection() {
  const auto read = results::ReadDefinition(workplace_.session->project(), workplace_.spur);
  const bool isShown = workplace_.shownScene != nullptr && read && read->definition;
  parts_.drawing.ShowSection(
      isShown ? SectionToShow(workplace_, scene::ReadEquipment(*read->definition), *workplace_.shownScene)
              : nullptr);
}

/// Without a scene after a fault.
Result<void> EquipmentCommands::MakeScene() {
  const BusyMark mark(workplace_);
  BusyBox box(workplace_.texts, Text::kMakingScene, workplace_.window);
  auto scene = workplace_.session->Equipment(workplace_.spur, box.Progress(), workplace_.BodySource());
  workplace_.scene = scene ? *scene : nullptr;
  if (!scene && box.IsCancelled())
    return parts_.equipment.SetHint(workplace_.texts(Text::kCancelled)), Result<void>();
  if (!scene) return scene.fault();
  if (!workplace_.scene) return {};
  for (const auto& [kind, isSub, fault] : workplace_.scene->missing) {
    if (fault.kind != FaultKind::kBusy) workplace_.reportFault(fault);
    const bool isCancelled = fault.kind == FaultKind::kBusy && !workplace_.bodies->IsReading();
    if (isCancelled) workplace_.reportDone(workplace_.texts(Text::kCancelled));
  }
  return {};
}

/// Shows the bodies that were read in the background as far as they are there, when no other work goes on.
void EquipmentCommands::ShowArrived() {
  if (!workplace_.session) return;
  if (workplace_.isBusy) return arrived_.start();
  if (!shownSolid_.empty()) return ShowSolid(ToQString(shownSolid_));
  if (workplace_.session->isAtWork()) return live_.Renew();
  RefreshEquipment();
}

/// Shows the drawing with the figure, which can be one of the folder of figures, so that it can be clicked.
void EquipmentCommands::ShowFigure(const QString& name) {
  const auto drawing = DrawingWith(name.toStdString());
  if (!drawing) return workplace_.reportFault(drawing.fault());
  parts_.drawing.Show(*drawing);
}

Result<drawing::Drawing> EquipmentCommands::DrawingWith(const std::string& figure) const {
  VANZET_TRY(drawing::Drawing drawing, workplace_.session->Drawing());
  if (drawing.HasFigure(figure)) return drawing;
  const drawing::FigureFolder folder(workplace_.session->project().folder() / "figures");
  VANZET_TRY(auto curves, folder.Read(figure));
  drawing::Figure& shown = drawing.figures[figure];
  for (geometry::Kurve& curve : curves)
    shown.strokes.push_back({std::move(curve), drawing::kFirstLayer, drawing::Pen()});
  shown.insertions.emplace_back();
  return drawing;
}

Result<std::vector<geometry::Kurve>> EquipmentCommands::ContoursOf(const std::string& figure) const {
  VANZET_TRY(const drawing::Drawing drawing, DrawingWith(figure));
  std::vector<geometry::Kurve> contours;
  for (const drawing::Stroke& stroke : drawing.figures.at(figure).strokes) contours.push_back(stroke.curve);
  return contours;
}

void EquipmentCommands::ShowSolid(const QString& name) {
  if (!workplace_.isBusy) workplace_.Report(ShowSolidAlone(name.toStdString()));
}

/// Shows a solid in the place of the equipment, as far as it is read.
Result<void> EquipmentCommands::ShowSolidAlone(const std::string& name) {
  shownSolid_ = name;
  const auto body = workplace_.BodySource()(name);
  auto scene = std::make_shared<scene::Scene>();
  if (body) {
    scene->bodies.push_back({name, scene::Kind::kBillet, *body, geometry::Matrix()});
    scene->bodies.back().solid = name;
  } else if (body.fault().kind != FaultKind::kBusy) {
    return body.fault();
  }
  parts_.equipment.SetHint(workplace_.texts(Text::kImporting));
  return parts_.equipment.Show(std::move(scene));
}

/// Shows the equipment again after such a solid.
void EquipmentCommands::ShowSceneAgain() {
  shownSolid_.clear();
  static_cast<void>(ShowScene());
}

QStringList EquipmentCommands::Figures() const {
  QStringList names;
  const auto drawing = workplace_.session->Drawing();
  if (drawing) {
    for (const auto& [name, figure] : drawing->figures) {
      if (!drawing::IsFigureOfModule(name)) names << ToQString(name);
    }
  }
  const drawing::FigureFolder folder(workplace_.session->project().folder() / "figures");
  for (const std::string& name : folder.Names()) {
    if (!names.contains(ToQString(name))) names << ToQString(name);
  }
  return names;
}

QStringList EquipmentCommands::Solids() const {
  QStringList names;
  for (const auto& file : modeller::BodyFilesIn(workplace_.session->project().folder() / "bodies"))
    names << ToQString(file.name);
  return names;
}

}  // namespace vanzet::window
