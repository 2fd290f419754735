#include "window/catalogue/catalogue_page.h"

#include <QComboBox>
#include <QEvent>
#include <QHeaderView>
#include <QHideEvent>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "devices/kinds.h"
#include "window/catalogue/device_picture.h"
#include "window/qt_text.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

constexpr int kTyping = 60;  // milliseconds

/// A panel shows two devices.
constexpr std::size_t kShown = 2;

// Pixels.
constexpr int kNameWidth = 240, kKindWidth = 120, kLetterWidth = 76, kFigureWidth = 130;

/// The types of a kind, by whatever code.
std::vector<std::int32_t> TypesOf(const devices::Kind& kind) {
  std::vector<std::int32_t> types;
  for (const devices::Device& device : kind.devices) types.push_back(device.code);
  types.push_back(kind.own.code);
  if (kind.ownOlder != 0) types.push_back(kind.ownOlder);
  return types;
}

}  // namespace

CataloguePage::CataloguePage(const Texts& texts, QWidget* parent)
    : QWidget(parent), texts_(texts), model_(new DeviceModel(texts, this)) {
  setObjectName("catalogue");
  auto* const rows = new QVBoxLayout(this);
  rows->addWidget(MakeSearch());
  auto* const beside = new QHBoxLayout;
  beside->addWidget(MakeTable(), 1);
  beside->addWidget(MakePanel());
  rows->addLayout(beside, 1);
  rows->addWidget(MakeButtons());
  AddKeys();
  setFocusProxy(search_);
  typing_.setSingleShot(true);
  typing_.setInterval(kTyping);
  connect(&typing_, &QTimer::timeout, this, &CataloguePage::Filter);
  connect(search_, &QLineEdit::textChanged, this, [this] { typing_.start(); });
  connect(kinds_, &QComboBox::activated, this, &CataloguePage::Filter);
  connect(model_, &DeviceModel::EditWanted, this, &CataloguePage::EditWanted, Qt::QueuedConnection);
  connect(&texts_, &Texts::Changed, this, &CataloguePage::Retranslate);
  Retranslate();
}

void CataloguePage::AddKeys() {
  const auto add = [this](const QKeySequence& keys) {
    return new QShortcut(keys, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
  };
  connect(add(Qt::Key_Escape), &QShortcut::activated, this, &CataloguePage::Left);
  connect(new QShortcut(QKeySequence::Delete, table_, nullptr, nullptr, Qt::WidgetShortcut),
          &QShortcut::activated, this, &CataloguePage::AskToRemove);
  connect(add(QKeySequence::Find), &QShortcut::activated, search_, [this] { search_->setFocus(); });
}

QWidget* CataloguePage::MakeSearch() {
  auto* const line = new QWidget;
  auto* const layout = new QHBoxLayout(line);
  layout->setContentsMargins(0, 0, 0, 0);
  search_ = new QLineEdit;
  search_->setClearButtonEnabled(true);
  kinds_ = new QComboBox;
  count_ = new QLabel;
  layout->addWidget(search_, 1);
  layout->addWidget(kinds_);
  layout->addWidget(count_);
  return line;
}

QWidget* CataloguePage::MakeTable() {
  table_ = new QTableView;
  table_->setModel(model_);
  table_->setAlternatingRowColors(true);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setIconSize(DeviceModel::kThumbnail);
  table_->setWordWrap(false);
  table_->setTabKeyNavigation(false);
  // A third click on a heading brings back the order of the catalogue.
  table_->horizontalHeader()->setSortIndicatorClearable(true);
  table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  table_->setSortingEnabled(true);
  // All rows are as high as the first, which no number of devices makes slow.
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->verticalHeader()->setDefaultSectionSize(DeviceModel::kThumbnail.height() + 4);
  table_->verticalHeader()->hide();
  for (int column = 0; column < model_->columnCount(); ++column) {
    const bool isLetter = column >= DeviceModel::kFirstLetter && column < DeviceModel::kFirstFigure;
    table_->setColumnWidth(column, isLetter ? kLetterWidth : kFigureWidth);
  }
  table_->setColumnWidth(DeviceModel::kName, kNameWidth);
  table_->setColumnWidth(DeviceModel::kKind, kKindWidth);
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &CataloguePage::ShowSelected);
  return table_;
}

/// Two pictures can be higher than the window.
QWidget* CataloguePage::MakePanel() {
  panel_ = new DevicePanel(texts_);
  auto* const area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setWidget(panel_);
  area->setFixedWidth(panel_->minimumWidth() + area->verticalScrollBar()->sizeHint().width());
  return area;
}

QWidget* CataloguePage::MakeButtons() {
  auto* const line = new QWidget;
  auto* const layout = new QHBoxLayout(line);
  layout->setContentsMargins(0, 0, 0, 0);
  fault_ = new QLabel;
  fault_->setTextFormat(Qt::PlainText);
  fault_->setWordWrap(true);
  layout->addWidget(fault_, 1);
  for (QPushButton** const button : {&add_, &remove_, &undo_, &sheet_, &back_})
    layout->addWidget(*button = new QPushButton);
  undo_->setEnabled(false);
  add_->setMenu(new QMenu(add_));
  connect(add_->menu(), &QMenu::aboutToShow, this, &CataloguePage::FillAddMenu);
  connect(remove_, &QPushButton::clicked, this, &CataloguePage::AskToRemove);
  connect(undo_, &QPushButton::clicked, this, &CataloguePage::UndoWanted);
  connect(sheet_, &QPushButton::clicked, this, &CataloguePage::SheetWanted);
  connect(back_, &QPushButton::clicked, this, &CataloguePage::Left);
  return line;
}

void CataloguePage::Retranslate() {
  search_->setPlaceholderText(texts_(Text::kSearchDevices));
  search_->setAccessibleName(texts_(Text::kSearchDevices));
  kinds_->setAccessibleDescription(texts_(Text::kDeviceKind));
  table_->setAccessibleName(texts_(Text::kDevices));
  add_->setText(texts_(Text::kAddDevice));
  remove_->setText(texts_(Text::kRemoveDevices));
  undo_->setText(texts_(Text::kUndoEdit));
  sheet_->setText(texts_(Text::kContactSheet));
  back_->setText(texts_(Text::kBackToProject));
  FillKinds();
  model_->Retranslate();
  ShowCount();
}

void CataloguePage::FillKinds() {
  const int chosen = std::max(kinds_->currentIndex(), 0);
  kinds_->clear();
  kinds_->addItem(texts_(Text::kAllKinds));
  for (const devices::Kind* const kind : devices::Kinds()) kinds_->addItem(NameOfKind(texts_, *kind));
  kinds_->setCurrentIndex(chosen);
}

/// A device of each kind and shape, and one like that which is selected.
void CataloguePage::FillAddMenu() {
  QMenu& menu = *add_->menu();
  menu.clear();
  for (const devices::Kind* const kind : devices::Kinds()) {
    for (const devices::Device& device : kind->devices) {
      const QString name = KindTextOf(texts_, device.code);
      menu.addAction(name, this, [this, name, code = device.code] { emit AddWanted(code, name); });
    }
  }
  const auto selected = Selected(1);
  QAction* const copy = menu.addAction(texts_(Text::kCopyDevice), this,
                                       [this, selected] { emit CopyWanted(ToQString(selected.front())); });
  copy->setEnabled(!selected.empty());
}

void CataloguePage::AskToRemove() {
  QStringList names;
  for (const std::string& name : Selected(model_->shop().catalogue.entries().size()))
    names << ToQString(name);
  if (!names.isEmpty()) emit RemoveWanted(names);
}

void CataloguePage::EditName(const std::string& name) {
  if (!model_->RowOf(name)) Find({});
  Select({name});
  const auto row = model_->RowOf(name);
  if (!row) return;
  table_->setFocus();
  table_->edit(model_->index(*row, DeviceModel::kName));
}

void CataloguePage::Show(catalogue::Shop shop, LengthUnit unit) {
  const auto selected = Selected(kShown);
  model_->SetLook(palette(), devicePixelRatio());
  model_->Show(std::move(shop), unit);
  Select(selected);
  ShowCount();
  ShowSelected();
}

void CataloguePage::Filter() {
  typing_.stop();
  const auto selected = Selected(kShown);
  catalogue::Query query = catalogue::QueryOf(search_->text().toStdString());
  if (const int kind = kinds_->currentIndex(); kind > 0)
    query.types = TypesOf(*devices::Kinds()[static_cast<std::size_t>(kind - 1)]);
  model_->Filter(std::move(query));
  Select(selected);
  ShowCount();
}

void CataloguePage::ShowCount() {
  count_->setText(
      texts_(Text::kDeviceCount).arg(model_->rowCount()).arg(model_->shop().catalogue.entries().size()));
}

void CataloguePage::Find(const QString& text) {
  kinds_->setCurrentIndex(0);
  search_->setText(text);
  Filter();
  Select({text.toStdString()});
}

std::vector<std::string> CataloguePage::Selected(std::size_t most) const {
  std::vector<std::string> names;
  const QItemSelection selection = table_->selectionModel()->selection();
  for (const QItemSelectionRange& range : selection) {
    for (int row = range.top(); row <= range.bottom() && names.size() < most; ++row)
      names.push_back(model_->DeviceAt(row).name);
  }
  return names;
}

/// Selecting the same ones again changes nothing.
void CataloguePage::Select(const std::vector<std::string>& names) {
  if (Selected(kShown) == names) return;
  const QSignalBlocker quiet(table_->selectionModel());
  table_->clearSelection();
  for (const std::string& name : names) {
    const auto row = model_->RowOf(name);
    if (!row) continue;
    const QModelIndex index = model_->index(*row, 0);
    table_->selectionModel()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    table_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    table_->scrollTo(index);
  }
  ShowSelected();
  table_->viewport()->update();
}

void CataloguePage::ShowSelected() {
  panel_->Show(*model_, Selected(kShown));
}

void CataloguePage::SetFault(const QString& fault) {
  QPalette colours = palette();
  colours.setColor(QPalette::WindowText, ColoursFor(colours).warning);
  fault_->setPalette(colours);
  fault_->setText(fault);
}

QString CataloguePage::Fault() const {
  return fault_->text();
}

void CataloguePage::SetCanUndo(bool canUndo) {
  undo_->setEnabled(canUndo);
}

bool CataloguePage::IsEditing() const {
  const QWidget* const focus = focusWidget();
  return qobject_cast<const QLineEdit*>(focus) != nullptr && focus->parentWidget() == table_->viewport();
}

void CataloguePage::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  // A window that is minimised is not left.
  if (!event->spontaneous()) emit Hidden();
}

void CataloguePage::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) model_->SetLook(palette(), devicePixelRatio());
}

}  // namespace vanzet::window
