#pragma once

#include <QDockWidget>

#include "history/history.h"
#include "window/docks/section_picture.h"
#include "window/texts.h"

class QPushButton;
class QTreeWidget;

namespace vanzet::window {

/// The changes of the project, the latest first: when, by whom, and in words. Each state can be brought
/// back. Beside the list are a picture of the chosen state and one of the present.
class HistoryDock final : public QDockWidget {
  Q_OBJECT
 public:
  explicit HistoryDock(const Texts& texts, QWidget* parent = nullptr);

  void Show(const std::vector<history::Entry>& entries);
  QTreeWidget& tree() { return *tree_; }

  /// The generation of the chosen row; 0 without one.
  qint64 Chosen() const;

  /// Shows the pictures of that state and of the present; null: no equipment.
  void ShowPictures(std::shared_ptr<const ShownSection> then, std::shared_ptr<const ShownSection> now);
  SectionPicture& then() { return *then_; }
  SectionPicture& now() { return *now_; }

 signals:
  /// A person asks for the state after that generation; `when` is its time for people.
  void RestoreWanted(qint64 generation, const QString& when);

  void StateChosen();  ///< another row, or none

 private:
  void Retranslate();
  void AskToRestore();

  const Texts& texts_;
  QTreeWidget* tree_;
  QPushButton* restore_;
  SectionPicture *then_, *now_;
};

}  // namespace vanzet::window
