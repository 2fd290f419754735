#pragma once

#include <QDockWidget>

#include "drawing/drawing.h"
#include "window/texts.h"

class QListWidget;

namespace vanzet::window {

/// The layers of the drawing, each with its colour and a box to switch it on and off.
class LayerDock final : public QDockWidget {
  Q_OBJECT
 public:
  explicit LayerDock(const Texts& texts, QWidget* parent = nullptr);

  /// Layers that were switched off stay so.
  void Show(const drawing::Drawing& drawing);
  QListWidget& list() { return *list_; }

 signals:
  void LayerSwitched(const QString& name, bool isOn);

 private:
  QListWidget* list_;
};

}  // namespace vanzet::window
