#include "view/qt/tree_panel.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTreeWidgetItemIterator>
#include <utility>

#include "view/ids.h"
#include "view/qt/icons.h"
#include "view/qt/texts.h"
#include "view/shared/tree_model.h"

namespace vanzet::view::qt {
namespace {

constexpr const char* kEquipment = Translatable("Equipment");
constexpr int kIdRole = Qt::UserRole;
constexpr int kUnstoredRole = Qt::UserRole + 1;

/// Draws the sign of values that are not stored after the text of a node, which stays as it is.
class NodeDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(kUnstoredRole).toBool())
      option->text += QLatin1Char(' ') + QString::fromUtf8(kUnstoredSign);
  }
};

std::int32_t IdOf(const QTreeWidgetItem* item) {
  return item == nullptr ? 0 : item->data(0, kIdRole).toInt();
}

std::vector<std::int32_t> IdsOf(const std::vector<TreeNode>& nodes) {
  std::vector<std::int32_t> ids;
  ids.reserve(nodes.size());
  for (const TreeNode& node : nodes) ids.push_back(node.id);
  return ids;
}

void Fill(QTreeWidgetItem& item, const TreeNode& node, bool isUnstored) {
  item.setText(0, QString::fromStdString(node.text));
  item.setData(0, kUnstoredRole, isUnstored);
  item.setIcon(0, IconOfNode(node.bitmap, node.selectedBitmap));
  item.setData(0, Qt::AccessibleTextRole, QString::fromStdString(SpokenNode(node, isUnstored)));
  QFont font = item.font(0);
  font.setBold(node.isBold);
  item.setFont(0, font);
}

}  // namespace

TreePanel::TreePanel(Send send, QWidget* parent) : QTreeWidget(parent), send_(std::move(send)) {
  setObjectName(QString::number(control::kTree));
  setAccessibleName(Translate(kEquipment));
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setIconSize({18, 18});
  setAlternatingRowColors(false);
  setItemDelegate(new NodeDelegate(this));
  connect(this, &QTreeWidget::itemSelectionChanged, this, [this] {
    const auto selected = selectedItems();
    if (selected.isEmpty()) return;
    const std::int32_t node = IdOf(selected.constFirst());
    send_([=](Dialog& dialog) { dialog.SelectNode(node); });
  });
}

void TreePanel::Show(const DialogState& state) {
  const QSignalBlocker quiet(this);
  if (IdsOf(shown_) != IdsOf(state.tree)) Build(state.tree);
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    const TreeNode& node = state.tree[i];
    const bool isUnstored = !state.unstored.empty() && node.id == state.selectedNode;
    if (shown_[i] == node && isUnstored == (node.id == unstored_)) continue;
    Fill(*ItemOf(node.id), node, isUnstored);
    shown_[i] = node;
  }
  unstored_ = state.unstored.empty() ? 0 : state.selectedNode;
  Select(state.selectedNode);
}

void TreePanel::Build(const std::vector<TreeNode>& nodes) {
  clear();
  shown_.clear();
  for (const TreeNode& node : nodes) {
    QTreeWidgetItem* const parent = ItemOf(node.parent);
    auto* const item = parent != nullptr ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(this);
    item->setData(0, kIdRole, node.id);
    shown_.push_back({.id = node.id});
  }
  for (const TreeNode& node : nodes) ItemOf(node.id)->setExpanded(node.isOpen);
}

void TreePanel::Select(std::int32_t node) {
  QTreeWidgetItem* const item = ItemOf(node);
  if (item == nullptr) return clearSelection();
  if (!item->isSelected()) setCurrentItem(item);
}

QTreeWidgetItem* TreePanel::ItemOf(std::int32_t node) const {
  for (QTreeWidgetItemIterator item(const_cast<TreePanel*>(this)); *item != nullptr; ++item) {
    if (IdOf(*item) == node) return *item;
  }
  return nullptr;
}

std::optional<std::int32_t> TreePanel::Popup(std::int32_t /*node*/, const std::vector<PopupEntry>& entries) {
  QMenu menu(this);
  for (const PopupEntry& entry : entries) {
    menu.addAction(IconOf("delete"), QString::fromStdString(entry.text))->setData(entry.command);
  }
  const QAction* const chosen = menu.exec(menuPlace_);
  if (chosen == nullptr) return std::nullopt;
  return chosen->data().toInt();
}

void TreePanel::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::RightButton) QTreeWidget::mousePressEvent(event);
}

void TreePanel::keyPressEvent(QKeyEvent* event) {
  // Qt sends a context menu event for the menu key, but not for this one, of keyboards without that key.
  const bool isMenuKey = event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier;
  if (!isMenuKey) return QTreeWidget::keyPressEvent(event);
  AskForMenu(currentItem(), std::nullopt);
}

void TreePanel::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Mouse)
    return AskForMenu(itemAt(event->pos()), event->globalPos());
  AskForMenu(currentItem(), std::nullopt);
}

void TreePanel::AskForMenu(const QTreeWidgetItem* item, std::optional<QPoint> place) {
  const std::int32_t node = IdOf(item);
  if (node == 0) return;
  menuPlace_ = place.value_or(viewport()->mapToGlobal(visualItemRect(item).bottomLeft()));
  send_([=](Dialog& dialog) { dialog.ContextAt(node); });
}

}  // namespace vanzet::view::qt
