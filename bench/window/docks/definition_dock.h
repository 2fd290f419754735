#pragma once

#include <QDockWidget>
#include <vector>

#include "base/length_unit.h"
#include "results/definitions.h"
#include "scene/scene.h"
#include "window/texts.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace vanzet::window {

/// The definition of every spur as a tree: its devices by name and values, as 'vanzet show' prints them, and
/// below them the records as they are stored: operations, sections, items. Open branches stay open.
class DefinitionDock final : public QDockWidget {
  Q_OBJECT
 public:
  explicit DefinitionDock(const Texts& texts, QWidget* parent = nullptr);

  /// Lengths are shown in the unit.
  void Show(std::vector<results::SpurDefinition> spurs, LengthUnit unit);
  QTreeWidget& tree() { return *tree_; }

  /// Marks the row about the body of a spur's equipment that is pointed at; null: none.
  void Mark(int spur, const scene::SceneBody* body);

  /// Selects that row and makes it visible; null: none.
  void Select(int spur, const scene::SceneBody* body);

 signals:
  void SpurActivated(int spur);
  /// The user wants the page of the dialog with this node.
  void PageWanted(int spur, std::int32_t node);
  /// The user wants to see that device in the catalogue.
  void DeviceWanted(const QString& name);

 private:
  void Retranslate();
  void Refill();
  void AskForPage(const QTreeWidgetItem* item);
  void ShowMenu(const QPoint& place);
  QTreeWidgetItem* RowOf(int spur, const scene::SceneBody& body) const;
  QTreeWidgetItem* AddSpur(const results::SpurDefinition& spur);
  void AddEquipment(QTreeWidgetItem* parent, const results::SpurDefinition& spur);
  void AddRecords(QTreeWidgetItem* parent, const project::Definition& definition);
  void AddOperation(QTreeWidgetItem* parent, std::size_t number, const project::Operation& operation);
  void AddSection(QTreeWidgetItem* parent, std::size_t number, const std::vector<std::string>& items);

  const Texts& texts_;
  std::vector<results::SpurDefinition> spurs_;
  LengthUnit unit_ = LengthUnit::kMillimetre;
  QTreeWidget* tree_;
};

}  // namespace vanzet::window
