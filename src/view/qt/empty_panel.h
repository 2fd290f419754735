#pragma once

#include <QWidget>

#include "view/qt/control_widget.h"

class QLabel;
class QVBoxLayout;

namespace vanzet::view::qt {

/// What stands where a node has nothing to edit: the nodes below it, to go on to.
class EmptyPanel final : public QWidget {
 public:
  EmptyPanel(Send send, QWidget* parent);

  /// The children of the selected node, the roots without one.
  void Show(const DialogState& state);

 private:
  void AddWay(const TreeNode& node);

  const Send send_;
  QLabel* title_;
  QLabel* hint_;
  QVBoxLayout* ways_;
};

}  // namespace vanzet::view::qt
