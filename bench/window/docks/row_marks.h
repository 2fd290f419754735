#pragma once

#include <QTreeWidget>

#include "window/theme.h"

namespace vanzet::window {

/// Gives a row of a tree the ground of what is pointed at elsewhere, or takes it away.
inline void MarkRow(QTreeWidgetItem& item, bool isMarked) {
  QColor ground = ColoursFor(item.treeWidget()->palette()).accent;
  ground.setAlphaF(0.3F);
  for (int column = 0; column < item.columnCount(); ++column)
    item.setBackground(column, isMarked ? QBrush(ground) : QBrush());
}

}  // namespace vanzet::window
