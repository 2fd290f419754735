#pragma once

#include <QWidget>
#include <vector>

#include "view/qt/control_widget.h"

class QLabel;
class QVBoxLayout;

namespace vanzet::view::qt {

/// The panel of a node that has nothing to edit: buttons that lead to the nodes below it.
class EmptyPanel final : public QWidget {
 public:
  EmptyPanel(Send send, QWidget* parent);

  /// Shows the children of the selected node; the roots while none is selected.
  void Show(const DialogState& state);

  /// The widgets that the keyboard reaches, in order.
  const std::vector<QWidget*>& TabChain() const { return chain_; }

 private:
  void AddButton(const TreeNode& node);

  /// Adds what is defined at the node of the last button and below it.
  void AddSummary(const std::vector<std::string>& lines);

  const Send send_;
  QLabel* title_;
  QLabel* hint_;
  QVBoxLayout* buttons_;
  std::vector<QWidget*> chain_;
};

}  // namespace vanzet::view::qt
