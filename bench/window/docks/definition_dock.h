#pragma once

#include <QDockWidget>
#include <vector>

#include "results/definitions.h"
#include "window/texts.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace vanzet::window {

/// The definition of every spur as a tree: spurs, operations, sections, items. Open branches stay open.
class DefinitionDock final : public QDockWidget {
  Q_OBJECT
 public:
  explicit DefinitionDock(const Texts& texts, QWidget* parent = nullptr);

  void Show(std::vector<results::SpurDefinition> spurs);
  QTreeWidget& tree() { return *tree_; }

 signals:
  void SpurActivated(int spur);

 private:
  void Retranslate();
  void Refill();
  QTreeWidgetItem* AddSpur(const results::SpurDefinition& spur);
  void AddOperation(QTreeWidgetItem* parent, std::size_t number, const project::Operation& operation);
  void AddSection(QTreeWidgetItem* parent, std::size_t number, const std::vector<std::string>& items);

  const Texts& texts_;
  std::vector<results::SpurDefinition> spurs_;
  QTreeWidget* tree_;
};

}  // namespace vanzet::window
