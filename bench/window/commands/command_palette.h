#pragma once

#include <QDialog>

#include "window/actions.h"

class QLineEdit;
class QTreeWidget;

namespace vanzet::window {

/// All commands with their keys, to find one by letters of its name and run it.
class CommandPalette final : public QDialog {
  Q_OBJECT
 public:
  CommandPalette(const Texts& texts, const Actions& actions, QWidget* parent);

  /// The action that was chosen; null without one.
  QAction* Chosen() const { return chosen_; }

 private:
  void Fill(const Actions& actions);
  void Filter(const QString& letters);
  void Choose();
  bool eventFilter(QObject* watched, QEvent* event) override;

  QLineEdit* letters_;
  QTreeWidget* list_;
  QAction* chosen_ = nullptr;
};

}  // namespace vanzet::window
