#include "window/docks/definition_dock.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QTreeWidget>
#include <algorithm>
#include <set>
#include <span>

#include "base/one_line.h"
#include "show/page.h"
#include "window/definition_words.h"
#include "window/docks/equipment_pages.h"
#include "window/docks/row_marks.h"
#include "window/qt_text.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

constexpr int kNameWidth = 200;  // pixels

constexpr int kSpurRole = Qt::UserRole;
constexpr int kNodeRole = Qt::UserRole + 1;    // of the dialog's page; 0: none
constexpr int kOpenRole = Qt::UserRole + 2;    // open when a project is shown first
constexpr int kDeviceRole = Qt::UserRole + 3;  // the name of the row's device; empty: none
constexpr std::size_t kMostItems = 200;        // of a section; 3D texts have thousands

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

int SpurOf(const QTreeWidgetItem* item) {
  while (item->parent() != nullptr) item = item->parent();
  return item->data(0, kSpurRole).toInt();
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
  tree_->header()->resizeSection(0, kNameWidth);
  setWidget(tree_);
  connect(tree_, &QTreeWidget::itemClicked, this,
          [this](const QTreeWidgetItem* item) { emit SpurActivated(SpurOf(item)); });
  connect(tree_, &QTreeWidget::itemActivated, this, &DefinitionDock::AskForPage);
  tree_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(tree_, &QTreeWidget::customContextMenuRequested, this, &DefinitionDock::ShowMenu);
  connect(&texts_, &Texts::Changed, this, &DefinitionDock::Retranslate);
  Retranslate();
}

void DefinitionDock::AskForPage(const QTreeWidgetItem* item) {
  const std::int32_t node = item->data(0, kNodeRole).toInt();
  if (node != 0) emit PageWanted(SpurOf(item), node);
}

void DefinitionDock::ShowMenu(const QPoint& place) {
  const QTreeWidgetItem* const item = tree_->itemAt(place);
  if (item == nullptr) return;
  QMenu menu;
  QAction* const define = menu.addAction(texts_(Text::kDefinePart), this, [&] { AskForPage(item); });
  define->setEnabled(item->data(0, kNodeRole).toInt() != 0);
  const QString device = item->data(0, kDeviceRole).toString();
  menu.addAction(texts_(Text::kShowInCatalogue), this, [&] { emit DeviceWanted(device); })
      ->setEnabled(!device.isEmpty());
  menu.addAction(texts_(Text::kCopyRow), this, [&] {
    QApplication::clipboard()->setText((item->text(0) + " " + item->text(1)).trimmed());
  });
  menu.exec(tree_->viewport()->mapToGlobal(place));
}

void DefinitionDock::Retranslate() {
  setWindowTitle(texts_(Text::kDefinitionTree));
  tree_->setAccessibleName(texts_(Text::kDefinitionTree));
  tree_->setHeaderLabels({texts_(Text::kTreeName), texts_(Text::kTreeContent)});
  Refill();
}

void DefinitionDock::Show(std::vector<results::SpurDefinition> spurs, LengthUnit unit) {
  spurs_ = std::move(spurs);
  unit_ = unit;
  Refill();
}

void DefinitionDock::Mark(int spur, const scene::SceneBody* body) {
  const QTreeWidgetItem* const marked = body == nullptr ? nullptr : RowOf(spur, *body);
  for (int i = 0; i < tree_->topLevelItemCount(); ++i) {
    ForEach(tree_->topLevelItem(i), [&](QTreeWidgetItem* item) {
      if (item->data(0, kNodeRole).toInt() != 0) MarkRow(*item, item == marked);
    });
  }
}

void DefinitionDock::Select(int spur, const scene::SceneBody* body) {
  tree_->clearSelection();
  if (body != nullptr) tree_->setCurrentItem(RowOf(spur, *body));
}

/// The first row whose page defines the body; null without one.
QTreeWidgetItem* DefinitionDock::RowOf(int spur, const scene::SceneBody& body) const {
  const auto held = std::ranges::find(spurs_, spur, &results::SpurDefinition::spur);
  if (held == spurs_.end() || !held->definition) return nullptr;
  const std::int32_t node = NodeOf(body, scene::ReadEquipment(*held->definition));
  QTreeWidgetItem* row = nullptr;
  ForEach(tree_->topLevelItem(static_cast<int>(held - spurs_.begin())), [&](QTreeWidgetItem* item) {
    if (row == nullptr && node != 0 && item->data(0, kNodeRole).toInt() == node) row = item;
  });
  return row;
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
      const bool isOpenAtFirst = spur.spur == 0 && item->data(0, kOpenRole).toBool();
      item->setExpanded(open.contains(PlaceOf(item)) || (isFirst && isOpenAtFirst));
    });
  }
}

QTreeWidgetItem* DefinitionDock::AddSpur(const results::SpurDefinition& spur) {
  auto* const item = new QTreeWidgetItem(tree_);
  item->setText(0, texts_(Text::kSpur).arg(spur.spur + 1));
  item->setData(0, kSpurRole, spur.spur);
  item->setData(0, kOpenRole, true);
  QFont bold = item->font(0);
  bold.setBold(true);
  item->setFont(0, bold);
  if (!spur.definition) {
    item->setText(1, texts_(Text::kNoDefinition));
    return item;
  }
  item->setText(1, texts_(Text::kVdmAndVersion).arg(spur.vdm).arg(spur.definition->version));
  AddEquipment(item, spur);
  AddRecords(item, *spur.definition);
  return item;
}

/// The first row of the page is about the spur itself.
void DefinitionDock::AddEquipment(QTreeWidgetItem* parent, const results::SpurDefinition& spur) {
  const show::Style style{texts_.translations(),
                          [this](double length) { return show::LengthForPeople(length, unit_); }};
  const show::Rows rows = show::RowsOf({spur.spur, spur.vdm, *spur.definition}, style);
  const scene::Equipment equipment = scene::ReadEquipment(*spur.definition);
  std::vector<QTreeWidgetItem*> above = {parent};  // by level
  for (const show::Row& row : std::span(rows.all()).subspan(1)) {
    const auto level = std::min(static_cast<std::size_t>(row.level), above.size() - 1);
    auto* const item = new QTreeWidgetItem(above[level], {ToQString(row.label), ToQString(row.value)});
    item->setData(0, kNodeRole, NodeOf(row, equipment));
    item->setData(0, kOpenRole, level == 0);
    item->setData(0, kDeviceRole, ToQString(DeviceOf(row, equipment)));
    item->setToolTip(1, item->text(1));
    above.resize(level + 1);
    above.push_back(item);
  }
}

void DefinitionDock::AddRecords(QTreeWidgetItem* parent, const project::Definition& definition) {
  auto* const records = new QTreeWidgetItem(parent, {texts_(Text::kRecords)});
  records->setForeground(0, ColoursFor(palette()).faint);
  std::size_t number = 0;
  for (const project::Operation& operation : definition.operations)
    AddOperation(records, number++, operation);
}

void DefinitionDock::AddOperation(QTreeWidgetItem* parent, std::size_t number,
                                  const project::Operation& operation) {
  auto* const item = new QTreeWidgetItem(parent);
  item->setText(
      0, QString::number(number) + "  " + OperationText(texts_.translations(), OneLine(operation.Label())));
  item->setToolTip(0, ToQString(OneLine(operation.Label())));
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
