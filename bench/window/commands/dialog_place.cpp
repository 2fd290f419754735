#include "window/commands/dialog_place.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <algorithm>

namespace vanzet::window {
namespace {

constexpr int kLeastWidth = 640;  // of the main window
constexpr int kMoved = 48;        // pixels: a dialog that is farther away was moved
constexpr int kSettling = 500;    // milliseconds in which the screen itself moves a dialog

/// The property by which the dialog's window is known.
constexpr const char* kPage = "page";

}  // namespace

SideBySide PlaceBeside(const QRect& screen, const QRect& window, const QSize& dialog, int least) {
  const int height = std::min(dialog.height(), screen.height());
  const int top = std::clamp(window.top(), screen.top(), screen.bottom() + 1 - height);
  const QRect beside(0, top, std::min(dialog.width(), screen.width()), height);
  if (window.right() + beside.width() <= screen.right()) {
    return {window, QRect(QPoint(window.right() + 1, top), beside.size())};
  }
  if (window.left() - beside.width() >= screen.left()) {
    return {window, QRect(QPoint(window.left() - beside.width(), top), beside.size())};
  }
  const int width = std::max(std::min(least, screen.width()), screen.width() - beside.width());
  QRect narrowed = window;
  narrowed.setWidth(std::min(window.width(), width));
  const QPoint corner(screen.right() + 1 - beside.width(), top);
  narrowed.moveLeft(std::max(screen.left(), corner.x() - narrowed.width()));
  return {narrowed, QRect(corner, beside.size())};
}

DialogPlace::DialogPlace(QWidget& window, WindowMemory& memory, QObject* parent)
    : QObject(parent), window_(window), memory_(memory) {}

void DialogPlace::Begin() {
  dialog_.clear();
  before_ = QRect();
  isEarly_ = false;
  qApp->installEventFilter(this);
}

void DialogPlace::End() {
  qApp->removeEventFilter(this);
  // A size that the user gave it since then stays. Its place says nothing: the screen can correct it.
  if (before_.isEmpty() || window_.size() != given_) return;
  window_.setGeometry(before_);
  if (wasMaximized_) window_.showMaximized();
}

bool DialogPlace::eventFilter(QObject* watched, QEvent* event) {
  const bool isShown = event->type() == QEvent::Show, isHidden = event->type() == QEvent::Hide;
  auto* const dialog = isShown || isHidden ? qobject_cast<QWidget*>(watched) : nullptr;
  if (dialog != nullptr && dialog->isWindow() && dialog->property(kPage).isValid()) {
    if (isShown && dialog != dialog_) Place(*dialog);
    if (isHidden && dialog == dialog_) Remember(*dialog);
  }
  if (isEarly_ && event->type() == QEvent::Expose && watched == window_.windowHandle()) {
    QTimer::singleShot(0, this, [this] {
      if (isEarly_ && dialog_ != nullptr && IsOnScreen()) Place(*dialog_);
    });
  }
  return QObject::eventFilter(watched, event);
}

bool DialogPlace::IsOnScreen() const {
  return window_.windowHandle() != nullptr && window_.windowHandle()->isExposed();
}

void DialogPlace::Place(QWidget& dialog) {
  dialog_ = &dialog;
  QTimer::singleShot(kSettling, this, [this, shown = &dialog] {
    if (dialog_ == shown) placed_ = shown->pos();
  });
  const QRect screen = window_.screen()->availableGeometry();
  const QPoint chosen = memory_.DialogPlace();
  if (!chosen.isNull() && screen.contains(QRect(chosen, QSize(kLeastWidth / 4, kLeastWidth / 4)))) {
    dialog.move(placed_ = chosen);
    return;
  }
  // The dialog has no frame yet; it will have one like the window's.
  const QSize frame = window_.frameGeometry().size() - window_.size();
  const SideBySide places = PlaceBeside(screen, window_.frameGeometry(), dialog.size() + frame, kLeastWidth);
  isEarly_ = !IsOnScreen();
  if (!isEarly_ && places.window != window_.frameGeometry()) MakeRoom(places.window, frame);
  dialog.move(placed_ = places.dialog.topLeft());
}

/// Gives the window its place beside the dialog, the frame included.
void DialogPlace::MakeRoom(const QRect& place, const QSize& frame) {
  wasMaximized_ = window_.isMaximized();
  before_ = wasMaximized_ ? window_.normalGeometry() : window_.geometry();
  if (wasMaximized_) window_.showNormal();
  window_.move(place.topLeft());
  window_.resize(place.size() - frame);
  given_ = window_.size();
}

void DialogPlace::Remember(const QWidget& dialog) {
  if ((dialog.pos() - placed_).manhattanLength() > kMoved) memory_.KeepDialogPlace(dialog.pos());
}

}  // namespace vanzet::window
