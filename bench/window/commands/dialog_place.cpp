#include "window/commands/dialog_place.h"

#include <QApplication>
#include <QScreen>
#include <algorithm>

namespace vanzet::window {
namespace {

constexpr int kLeastWidth = 640;  // of the main window
constexpr int kMoved = 12;        // pixels: a dialog that is farther away was moved

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
  before_ = given_ = QRect();
  qApp->installEventFilter(this);
}

void DialogPlace::End() {
  qApp->removeEventFilter(this);
  if (before_.isEmpty() || window_.geometry() != given_) return;
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
  return QObject::eventFilter(watched, event);
}

void DialogPlace::Place(QWidget& dialog) {
  dialog_ = &dialog;
  const QRect screen = window_.screen()->availableGeometry();
  const QPoint chosen = memory_.DialogPlace();
  if (!chosen.isNull() && screen.contains(QRect(chosen, QSize(kLeastWidth / 4, kLeastWidth / 4)))) {
    dialog.move(placed_ = chosen);
    return;
  }
  // The dialog has no frame yet; it will have one like the window's.
  const QSize frame = window_.frameGeometry().size() - window_.size();
  const SideBySide places = PlaceBeside(screen, window_.frameGeometry(), dialog.size() + frame, kLeastWidth);
  if (places.window != window_.frameGeometry()) {
    wasMaximized_ = window_.isMaximized();
    if (wasMaximized_) window_.showNormal();
    before_ = window_.geometry();
    window_.move(places.window.topLeft());
    window_.resize(places.window.size() - frame);
    given_ = window_.geometry();
  }
  dialog.move(placed_ = places.dialog.topLeft());
}

void DialogPlace::Remember(const QWidget& dialog) {
  if ((dialog.pos() - placed_).manhattanLength() > kMoved) memory_.KeepDialogPlace(dialog.pos());
}

}  // namespace vanzet::window
