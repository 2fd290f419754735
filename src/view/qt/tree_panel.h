#pragma once

#include <QTreeWidget>
#include <optional>
#include <vector>

#include "view/dialog_view.h"
#include "view/qt/control_widget.h"

namespace vanzet::view::qt {

/// The tree of the equipment that can be defined.
class TreePanel final : public QTreeWidget {
 public:
  TreePanel(Send send, QWidget* parent);

  /// Shows the nodes and the selection. Branches stay open or closed as long as the nodes are the same.
  void Show(const DialogState& state);

  /// Shows a menu at the place that the context menu was asked for.
  std::optional<std::int32_t> Popup(std::int32_t node, const std::vector<PopupEntry>& entries);

 protected:
  /// A right press selects nothing: the dialog decides whether a node is selected with its menu.
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  /// Without a place the menu is below the item.
  void AskForMenu(const QTreeWidgetItem* item, std::optional<QPoint> place);
  void Build(const std::vector<TreeNode>& nodes);
  void Select(std::int32_t node);
  QTreeWidgetItem* ItemOf(std::int32_t node) const;

  const Send send_;
  std::vector<TreeNode> shown_;
  std::int32_t unstored_ = 0;  ///< the node whose page has values that are not stored
  QPoint menuPlace_;           ///< on the screen
};

}  // namespace vanzet::view::qt
