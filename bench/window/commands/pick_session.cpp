#include "window/commands/pick_session.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

#include "window/commands/typed_position.h"
#include "window/qt_text.h"
#include "window/window_memory.h"

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

/// Whether an event can press a button.
bool IsPress(const QEvent& event) {
  return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::KeyPress ||
         event.type() == QEvent::Shortcut;
}

}  // namespace

PickSession::PickSession(Desk desk) : desk_(std::move(desk)) {
  qApp->installEventFilter(this);
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
  connect(&desk_.choice, &ChoiceDock::Marked, this, &PickSession::ShowMarked);
  connect(&desk_.hint, &HintBar::Typed, this, &PickSession::AnswerTyped);
}

void PickSession::ShowMarked(const QString& name) {
  if (!IsAsking() || name.isEmpty() || name == marked_) return;
  marked_ = name;
  (asked_ == Pick::Kind::kObject ? desk_.showSolid : desk_.showFigure)(name);
}

void PickSession::AnswerTyped(const QString& text) {
  const auto position = ReadPosition(text, desk_.unit());
  if (position) return Answer({Pick::Kind::kPosition, *position});
  desk_.hint.Refuse(desk_.texts(Text::kNotAPosition).arg(text));
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
  desk_.hint.Ask(desk_.texts(Text::kPickHint).arg(PromptOf(question)), desk_.texts(Text::kCancel),
                 asked_ == Pick::Kind::kPosition ? TypedName() : QString());
  desk_.drawing.Ask(row.picking);
  desk_.equipment.AskForSolid(asked_ == Pick::Kind::kObject);
  QWidget* const window = desk_.hint.window();
  window->raise();
  window->activateWindow();
  if (asked_ == Pick::Kind::kPosition) {
    desk_.hint.TakeFocus();
  } else {
    OfferNames();
  }
}

/// Those that were taken last come first.
void PickSession::OfferNames() {
  const bool areSolids = asked_ == Pick::Kind::kObject;
  const QStringList names = WindowMemory().InOrderOfUse(areSolids ? desk_.solids() : desk_.figures());
  desk_.choice.Offer(desk_.texts(RowOf(asked_).list), names);
  if (areSolids) {
    desk_.previews.BeginSolids(names);
  } else {
    desk_.previews.BeginFigures(names);
  }
}

/// The question for people: what is asked for, and the value that it is for.
QString PickSession::PromptOf(const drawing::PickQuestion& question) const {
  const QString prompt =
      question.prompt.empty() ? desk_.texts(RowOf(question.kind).prompt) : ToQString(question.prompt);
  return pressed_.isEmpty() ? prompt : pressed_ + " - " + prompt;
}

QString PickSession::TypedName() const {
  return desk_.texts(Text::kTypedPosition).arg(ToQString(WordOf(desk_.unit())));
}

void PickSession::End() {
  pressed_.clear();
  desk_.hint.hide();
  desk_.previews.End();
  desk_.choice.hide();
  desk_.drawing.Ask(DrawingView::Picking::kNone);
  desk_.equipment.AskForSolid(false);
  if (asked_ == Pick::Kind::kObject) desk_.showEquipment();
  if (asked_ == Pick::Kind::kFigure) desk_.refresh();
}

void PickSession::Answer(Pick pick) {
  if (!IsAsking() || pick.kind != asked_) return;
  answer_ = std::move(pick);
  if (!answer_.name.empty()) WindowMemory().AddUsedName(ToQString(answer_.name));
  loop_.quit();
}

bool PickSession::eventFilter(QObject* watched, QEvent* event) {
  const auto* const button = qobject_cast<const QAbstractButton*>(watched);
  // The controls of the dialog have their numbers as names.
  if (button != nullptr && IsPress(*event) && button->objectName().toInt() != 0)
    pressed_ = button->accessibleName();
  const bool isEscape = IsAsking() && event->type() == QEvent::KeyPress &&
                        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (!isEscape) return QObject::eventFilter(watched, event);
  Cancel();
  return true;
}

}  // namespace vanzet::window
