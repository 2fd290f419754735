#pragma once

#include <QDockWidget>

#include "drawing/drawing.h"
#include "window/texts.h"

class QListWidget;

/// The docks with a list of names.
namespace vanzet::window {

/// The layers of the drawing, each with its colour and a box to switch it on and off.
class LayerDock final : public QDockWidget {
  Q_OBJECT
 public:
  explicit LayerDock(const Texts& texts, QWidget* parent = nullptr);

  /// Layers that were switched off stay off.
  void Show(const drawing::Drawing& drawing);
  QListWidget& list() { return *list_; }

 signals:
  void LayerSwitched(const QString& name, bool isOn);

 private:
  QListWidget* list_;
};

/// Names to choose from while the user is asked for a pick. The dock is visible for that time only.
class ChoiceDock final : public QDockWidget {
  Q_OBJECT
 public:
  explicit ChoiceDock(QWidget* parent = nullptr);

  void Offer(const QString& title, const QStringList& names);
  QListWidget& list() { return *list_; }

 signals:
  void Marked(const QString& name);  ///< the user wants to see it
  void Chosen(const QString& name);

 private:
  QListWidget* list_;
};

}  // namespace vanzet::window
