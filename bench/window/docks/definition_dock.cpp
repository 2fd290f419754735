#include "window/docks/definition_dock.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <algorithm>
#include <set>

#include "base/one_line.h"
#include "window/qt_text.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

constexpr int kSpurRole = Qt::UserRole;
constexpr std::size_t kMostItems = 200;  // of a section; 3D texts have thousands

/// The place of an item, as text that is the same after the tree was filled again.
QString PlaceOf(const QTreeWidgetItem* item) {
  const QTreeWidgetItem* const parent = item->parent();
  const int index = parent == nullptr
                        ? item->treeWidget()->indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(item))
                        : parent->indexOfChild(const_cast<QTreeWidgetItem*>(item));
  return (parent == nullptr ? QString() : PlaceOf(parent) + "/") + QString::number(index);
}

void ForEach(QTreeWidgetItem* item, const std::function<void(QTreeWidgetItem*)>& visit) {
  visit(item);
  for (int i = 0; i < item->childCount(); ++i) ForEach(item->child(i), visit);
}

/// An operation is in use when a section after its head holds something.
bool IsUsed(const project::Operation& operation) {
  return std::ranges::any_of(
      operation.sections.begin() + std::min<std::ptrdiff_t>(1, std::ssize(operation.sections)),
      operation.sections.end(), [](const auto& items) {
        return std::ranges::any_of(items, [](const std::string& item) {
          return item.find_first_not_of(" 0.\n") != std::string::npos;
        });
      });
}

}  // namespace

DefinitionDock::DefinitionDock(const Texts& texts, QWidget* parent)
    : QDockWidget(parent), texts_(texts), tree_(new QTreeWidget) {
  setObjectName("definition");
  tree_->setColumnCount(2);
  tree_->setAlternatingRowColors(true);
  tree_->setUniformRowHeights(true);
  tree_->setIndentation(14);
  tree_->header()->setStretchLastSection(true);
  tree_->header()->resizeSection(0, 256);
  setWidget(tree_);
  connect(tree_, &QTreeWidget::itemClicked, this, [this](const QTreeWidgetItem* item) {
    while (item->parent() != nullptr) item = item->parent();
    emit SpurActivated(item->data(0, kSpurRole).toInt());
  });
  connect(&texts_, &Texts::Changed, this, &DefinitionDock::Retranslate);
  Retranslate();
}

void DefinitionDock::Retranslate() {
  setWindowTitle(texts_(Text::kDefinitionTree));
  tree_->setHeaderLabels({texts_(Text::kTreeName), texts_(Text::kTreeContent)});
  Refill();
}

void DefinitionDock::Show(std::vector<results::SpurDefinition> spurs) {
  spurs_ = std::move(spurs);
  Refill();
}

void DefinitionDock::Refill() {
  std::set<QString> open;
  for (int i = 0; i < tree_->topLevelItemCount(); ++i) {
    ForEach(tree_->topLevelItem(i), [&](QTreeWidgetItem* item) {
      if (item->isExpanded()) open.insert(PlaceOf(item));
    });
  }
  const bool isFirst = tree_->topLevelItemCount() == 0;
  tree_->clear();
  for (const results::SpurDefinition& spur : spurs_) {
    ForEach(AddSpur(spur), [&](QTreeWidgetItem* item) {
      item->setExpanded(open.contains(PlaceOf(item)) ||
                        (isFirst && item->parent() == nullptr && spur.spur == 0));
    });
  }
}

QTreeWidgetItem* DefinitionDock::AddSpur(const results::SpurDefinition& spur) {
  auto* const item = new QTreeWidgetItem(tree_);
  item->setText(0, texts_(Text::kSpur).arg(spur.spur));
  item->setData(0, kSpurRole, spur.spur);
  QFont bold = item->font(0);
  bold.setBold(true);
  item->setFont(0, bold);
  if (!spur.definition) {
    item->setText(1, texts_(Text::kNoDefinition));
    return item;
  }
  item->setText(1, texts_(Text::kVdmAndVersion).arg(spur.vdm).arg(spur.definition->version));
  std::size_t number = 0;
  for (const project::Operation& operation : spur.definition->operations)
    AddOperation(item, number++, operation);
  return item;
}

void DefinitionDock::AddOperation(QTreeWidgetItem* parent, std::size_t number,
                                  const project::Operation& operation) {
  auto* const item = new QTreeWidgetItem(parent);
  item->setText(0, QString::number(number) + "  " + ToQString(OneLine(operation.Label())));
  std::size_t section = 0;
  for (const auto& items : operation.sections) AddSection(item, section++, items);
  if (!operation.damage.empty()) {
    item->setText(1, texts_(Text::kDamaged).arg(ToQString(OneLine(operation.damage))));
    item->setForeground(1, ColoursFor(palette()).warning);
  } else if (!IsUsed(operation)) {
    item->setForeground(0, ColoursFor(palette()).faint);
  }
}

void DefinitionDock::AddSection(QTreeWidgetItem* parent, std::size_t number,
                                const std::vector<std::string>& items) {
  auto* const item = new QTreeWidgetItem(parent);
  item->setText(0, texts_(Text::kSection).arg(number));
  item->setText(1, texts_(Text::kItems).arg(items.size()));
  for (std::size_t i = 0; i < std::min(items.size(), kMostItems); ++i) {
    auto* const leaf = new QTreeWidgetItem(item);
    leaf->setText(0, QString::number(i));
    leaf->setText(1, ToQString(OneLine(items[i])));
  }
  if (items.size() <= kMostItems) return;
  (new QTreeWidgetItem(item))->setText(1, texts_(Text::kMoreItems).arg(items.size() - kMostItems));
}

}  // namespace vanzet::window
