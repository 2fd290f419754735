#pragma once

#include <QDockWidget>
#include <map>
#include <memory>
#include <string>

#include "scene/scene.h"
#include "window/texts.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace vanzet::window {

/// The bodies of the equipment, each with a box to show it and one to see through it. A choice is kept for
/// the name of the body as long as the window is open.
class BodyDock final : public QDockWidget {
  Q_OBJECT
 public:
  explicit BodyDock(const Texts& texts, QWidget* parent = nullptr);

  /// Lists the bodies of a scene, null for none, and returns it as it is to be shown.
  std::shared_ptr<const scene::Scene> Show(const std::shared_ptr<const scene::Scene>& scene);
  QTreeWidget& tree() { return *tree_; }

  /// Marks the body of that name in the scene that is pointed at; empty: none.
  void Mark(const QString& body);

  /// Selects its row; empty: none.
  void Select(const QString& body);

 signals:
  void BodyHovered(const QString& body);   ///< empty: no body is under the cursor
  void BodySelected(const QString& body);  ///< by a click or a key; empty: none
  void Chosen();                           ///< a body is to be shown in another way

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Choice {
    bool isShown, isSeenThrough;
  };

  void Retranslate();
  void List(const scene::Scene& scene);
  void ShowMark();
  void Keep(const QTreeWidgetItem& item);

  const Texts& texts_;
  QTreeWidget* tree_;
  QString marked_;
  std::map<std::string, Choice> choices_;
};

}  // namespace vanzet::window
