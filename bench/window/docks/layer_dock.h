#pragma once

#include <QDockWidget>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "drawing/drawing.h"
#include "window/texts.h"
#include "window/views/section_painter.h"

class QListWidget;

namespace vanzet::window {

/// The layers of the drawing and the parts of the half section, each with its colour and a box to switch it
/// on and off.
class LayerDock final : public QDockWidget {
  Q_OBJECT
 public:
  explicit LayerDock(const Texts& texts, QWidget* parent = nullptr);

  // Entries that were switched off stay off.
  void Show(const drawing::Drawing& drawing);
  void ShowParts(std::vector<SectionPart> parts);
  QListWidget& list() { return *list_; }

 signals:
  void LayerSwitched(const QString& name, bool isOn);
  void PartSwitched(const QString& name, bool isOn);

 private:
  void List();
  void Add(const QString& text, const QString& name, const QColor& colour, bool isPart);
  QString TextOf(const SectionPart& part) const;

  const Texts& texts_;
  QListWidget* list_;
  std::map<QString, QColor> layers_;
  std::vector<SectionPart> parts_;
  std::set<std::pair<bool, QString>> off_;  ///< whether it is a part, and its name
};

}  // namespace vanzet::window
