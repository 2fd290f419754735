#pragma once

#include <QDockWidget>

#include "history/history.h"
#include "window/texts.h"

class QPushButton;
class QTreeWidget;

namespace vanzet::window {

/// The changes of the project, the latest first: when, by whom, and in words. Each state can be
/// brought back.
class HistoryDock final : public QDockWidget {
  Q_OBJECT
 public:
  explicit HistoryDock(const Texts& texts, QWidget* parent = nullptr);

  void Show(const std::vector<history::Entry>& entries);
  QTreeWidget& tree() { return *tree_; }

 signals:
  /// A person asks for the state after that generation; `when` is its time for people.
  void RestoreWanted(qint64 generation, const QString& when);

 private:
  void Retranslate();
  void AskToRestore();

  const Texts& texts_;
  QTreeWidget* tree_;
  QPushButton* restore_;
};

}  // namespace vanzet::window
