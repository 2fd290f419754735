#pragma once

#include <QTreeWidget>
#include <optional>
#include <vector>

#include "view/dialog_view.h"
#include "view/qt/control_widget.h"

namespace vanzet::view::qt {

/// The tree of what can be defined.
class TreePanel final : public QTreeWidget {
 public:
  TreePanel(Send send, QWidget* parent);

  /// Takes over the nodes and the selection. What a person opened or closed stays so as long as the nodes are
  /// the same.
  void Show(const DialogState& state);

  /// A menu where the context menu was asked for.
  std::optional<std::int32_t> Popup(std::int32_t node, const std::vector<PopupEntry>& entries);

 protected:
  /// Right presses select nothing: whether a node is selected along with its menu is the dialog's decision.
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  /// Without a place the menu stands below the item.
  void AskForMenu(const QTreeWidgetItem* item, std::optional<QPoint> place);
  void Build(const std::vector<TreeNode>& nodes);
  void Select(std::int32_t node);
  QTreeWidgetItem* ItemOf(std::int32_t node) const;

  const Send send_;
  std::vector<TreeNode> shown_;
  QPoint menuPlace_;  ///< on the screen
};

}  // namespace vanzet::view::qt
