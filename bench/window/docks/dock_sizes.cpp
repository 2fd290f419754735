#include "window/docks/dock_sizes.h"

#include <QDockWidget>
#include <QEvent>
#include <QGuiApplication>
#include <QTabBar>
#include <QTimer>

namespace vanzet::window {

DockSizes::DockSizes(QMainWindow& window, QObject* parent) : QObject(parent), window_(window) {
  window_.installEventFilter(this);
  for (QDockWidget* const dock : window_.findChildren<QDockWidget*>()) dock->installEventFilter(this);
}

QVariantMap DockSizes::Chosen() const {
  QVariantMap sizes;
  for (const QString& name : chosen_.keys()) sizes[name] = chosen_[name];
  return sizes;
}

void DockSizes::Choose(const QVariantMap& sizes) {
  for (const QString& name : sizes.keys()) chosen_[name] = sizes[name].toSize();
}

bool DockSizes::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Resize) return false;
  if (watched == &window_) {
    // When the layout has followed the window.
    QTimer::singleShot(0, this, &DockSizes::Apply);
    return false;
  }
  const auto* const dock = qobject_cast<QDockWidget*>(watched);
  const bool isDragged = QGuiApplication::mouseButtons() != Qt::NoButton && window_.size() == settled_;
  const bool isChosen = isDragged && window_.isVisible() && !dock->isFloating();
  if (isChosen) chosen_[dock->objectName()] = dock->size();
  return false;
}

QList<QDockWidget*> DockSizes::Docked() const {
  QList<QDockWidget*> docks = window_.findChildren<QDockWidget*>();
  // A dock behind the tab of another has no place of its own.
  docks.removeIf(
      [](const QDockWidget* dock) { return dock->isFloating() || dock->visibleRegion().isEmpty(); });
  return docks;
}

/// The toolkit counts the tabs of docks as a part of their height.
int DockSizes::TabsBelow(QDockWidget* dock) const {
  const auto bars = window_.findChildren<QTabBar*>(QString(), Qt::FindDirectChildrenOnly);
  const bool isTabbed = !window_.tabifiedDockWidgets(dock).isEmpty() && !bars.isEmpty();
  return isTabbed ? bars.front()->height() : 0;
}

void DockSizes::Apply() {
  if (window_.size() == settled_) return;
  QList<QDockWidget*> docks = Docked();
  docks.removeIf([this](const QDockWidget* dock) { return !chosen_.contains(dock->objectName()); });
  QList<int> widths, heights;
  for (QDockWidget* const dock : docks) {
    const QSize size = chosen_[dock->objectName()];
    widths << size.width();
    heights << size.height() + TabsBelow(dock);
  }
  window_.resizeDocks(docks, widths, Qt::Horizontal);
  window_.resizeDocks(docks, heights, Qt::Vertical);
  // When the layout has followed, unless the window has another size by then.
  QTimer::singleShot(0, this, [this, size = window_.size()] {
    if (size == window_.size()) Settle();
  });
}

void DockSizes::Settle() {
  settled_ = window_.size();
  for (const QDockWidget* const dock : Docked()) {
    if (!chosen_.contains(dock->objectName())) chosen_[dock->objectName()] = dock->size();
  }
}

}  // namespace vanzet::window
