#pragma once

#include <QFrame>

class QHBoxLayout;
class QLabel;

namespace vanzet::window {

/// A view with a header: its name, and what can be done in it.
class ViewPane final : public QFrame {
  Q_OBJECT
 public:
  ViewPane(QWidget* view, QWidget* parent);

  void SetTitle(const QString& title);

  /// Behind what the header has already.
  void Add(QWidget* control);
  void Add(QAction* action);

 private:
  QLabel* title_;
  QHBoxLayout* header_;
};

}  // namespace vanzet::window
