#include "window/commands/pick_session.h"

#include <QApplication>
#include <QKeyEvent>

#include "window/qt_text.h"

namespace vanzet::window {
namespace {

using drawing::Pick;

/// The texts of a kind of pick, and the picks that the drawing then answers.
struct KindRow {
  Pick::Kind kind;
  Text prompt;
  Text list;
  DrawingView::Picking picking;
};
constexpr KindRow kKinds[] = {
    {Pick::Kind::kPosition, Text::kPickPosition, Text::kPickPosition, DrawingView::Picking::kPosition},
    {Pick::Kind::kFigure, Text::kPickFigure, Text::kFigures, DrawingView::Picking::kFigure},
    {Pick::Kind::kObject, Text::kPickSolid, Text::kSolids, DrawingView::Picking::kNone},
};

const KindRow& RowOf(Pick::Kind kind) {
  return *std::ranges::find(kKinds, kind, &KindRow::kind);
}

}  // namespace

PickSession::PickSession(Desk desk) : desk_(std::move(desk)) {
  connect(&desk_.hint, &HintBar::Cancelled, this, &PickSession::Cancel);
  connect(&desk_.drawing, &DrawingView::PositionPicked, this, [this](double x, double y) {
    Answer({Pick::Kind::kPosition, {x, y}});
  });
  connect(&desk_.drawing, &DrawingView::FigurePicked, this, [this](const QString& name) {
    Answer({Pick::Kind::kFigure, {}, name.toStdString()});
  });
  connect(&desk_.equipment, &EquipmentView::SolidPicked, this, [this](const QString& name) {
    Answer({Pick::Kind::kObject, {}, name.toStdString()});
  });
  connect(&desk_.choice, &ChoiceDock::Chosen, this, [this](const QString& name) {
    Answer({asked_, {}, name.toStdString()});
  });
  connect(&desk_.choice, &ChoiceDock::Marked, this, [this](const QString& name) {
    if (!IsAsking() || asked_ != Pick::Kind::kObject || name.isEmpty() || name == marked_) return;
    marked_ = name;
    desk_.showSolid(name);
  });
}

Pick PickSession::Ask(const drawing::PickQuestion& question) {
  if (IsAsking()) return {};
  Begin(question);
  loop_.exec();
  End();
  return answer_;
}

void PickSession::Begin(const drawing::PickQuestion& question) {
  desk_.refresh();
  const KindRow& row = RowOf(question.kind);
  asked_ = question.kind;
  answer_ = {};
  marked_.clear();
  const QString prompt = question.prompt.empty() ? desk_.texts(row.prompt) : ToQString(question.prompt);
  desk_.hint.Ask(desk_.texts(Text::kPickHint).arg(prompt), desk_.texts(Text::kCancel));
  desk_.drawing.Ask(row.picking);
  desk_.equipment.AskForSolid(asked_ == Pick::Kind::kObject);
  if (asked_ == Pick::Kind::kFigure) desk_.choice.Offer(desk_.texts(row.list), desk_.figures());
  if (asked_ == Pick::Kind::kObject) desk_.choice.Offer(desk_.texts(row.list), desk_.solids());
  QWidget* const window = desk_.hint.window();
  window->raise();
  window->activateWindow();
  qApp->installEventFilter(this);
}

void PickSession::End() {
  qApp->removeEventFilter(this);
  desk_.hint.hide();
  desk_.choice.hide();
  desk_.drawing.Ask(DrawingView::Picking::kNone);
  desk_.equipment.AskForSolid(false);
  if (asked_ == Pick::Kind::kObject) desk_.showEquipment();
}

void PickSession::Answer(Pick pick) {
  if (!IsAsking() || pick.kind != asked_) return;
  answer_ = std::move(pick);
  loop_.quit();
}

bool PickSession::eventFilter(QObject* watched, QEvent* event) {
  const bool isEscape =
      event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (!isEscape) return QObject::eventFilter(watched, event);
  Cancel();
  return true;
}

}  // namespace vanzet::window
