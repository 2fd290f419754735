#pragma once

#include <QMainWindow>
#include <QMap>
#include <QSize>
#include <QVariantMap>

namespace vanzet::window {

/// Gives the docks of a window the sizes that the user has chosen for them again as soon as there is room: a
/// window that becomes small makes its docks small, and the toolkit leaves them so when it grows.
///
/// A size is chosen by dragging the border of a dock; until then it is that of the first layout.
class DockSizes final : public QObject {
  Q_OBJECT
 public:
  /// For all docks that the window has. Requires: the window outlives this.
  explicit DockSizes(QMainWindow& window, QObject* parent);

  /// The chosen sizes by the names of the docks, to be kept from one start to the next.
  QVariantMap Chosen() const;
  void Choose(const QVariantMap& sizes);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QList<QDockWidget*> Docked() const;
  int TabsBelow(QDockWidget* dock) const;
  void Apply();
  void Settle();

  QMainWindow& window_;
  QMap<QString, QSize> chosen_;
  QSize settled_;  ///< of the window when its docks had room or were given what there is
};

}  // namespace vanzet::window
