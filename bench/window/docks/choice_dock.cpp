#include "window/docks/choice_dock.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "window/views/previews.h"

namespace vanzet::window {
namespace {

constexpr int kNameRole = Qt::UserRole;
constexpr int kLeastWidth = 230;  // pixels: a picture and a name beside it

QString NameOf(const QListWidgetItem* item) {
  return item == nullptr ? QString() : item->data(kNameRole).toString();
}

QPixmap NoPreview() {
  QPixmap none(kPreviewSize);
  none.fill(Qt::transparent);
  return none;
}

}  // namespace

ChoiceDock::ChoiceDock(const Texts& texts, QWidget* parent)
    : QDockWidget(parent), search_(new QLineEdit), list_(new QListWidget) {
  setObjectName("choice");
  setFeatures(DockWidgetMovable);
  auto* const content = new QWidget;
  auto* const rows = new QVBoxLayout(content);
  rows->setContentsMargins(4, 4, 4, 4);
  rows->addWidget(search_);
  rows->addWidget(list_, 1);
  setWidget(content);
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  list_->setIconSize(kPreviewSize);
  list_->setSpacing(2);
  list_->setMinimumWidth(kLeastWidth);
  list_->setWordWrap(true);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(search_, &QLineEdit::textChanged, this, &ChoiceDock::Filter);
  connect(search_, &QLineEdit::returnPressed, this, [this] {
    const QString name = NameOf(list_->currentItem());
    if (!name.isEmpty()) emit Chosen(name);
  });
  connect(list_, &QListWidget::currentItemChanged, this,
          [this](const QListWidgetItem* item) { emit Marked(NameOf(item)); });
  // The first name can be the current one already, and then a click changes nothing.
  connect(list_, &QListWidget::itemClicked, this,
          [this](const QListWidgetItem* item) { emit Marked(NameOf(item)); });
  connect(list_, &QListWidget::itemActivated, this,
          [this](const QListWidgetItem* item) { emit Chosen(NameOf(item)); });
  const auto retranslate = [this, &texts] {
    search_->setPlaceholderText(texts(Text::kSearchNames));
    search_->setAccessibleName(texts(Text::kSearchNames));
  };
  connect(&texts, &Texts::Changed, this, retranslate);
  retranslate();
  hide();
}

void ChoiceDock::Offer(const QString& title, const QStringList& names) {
  setWindowTitle(title);
  list_->setAccessibleName(title);
  list_->clear();
  search_->clear();
  for (const QString& name : names) {
    auto* const item = new QListWidgetItem(NoPreview(), name, list_);
    item->setData(kNameRole, name);
  }
  list_->setCurrentRow(-1);
  show();
  search_->setFocus();
}

void ChoiceDock::Describe(const QString& name, const QPixmap& picture, const QString& about) {
  for (int row = 0; row < list_->count(); ++row) {
    QListWidgetItem* const item = list_->item(row);
    if (NameOf(item) != name) continue;
    if (!picture.isNull()) item->setIcon(picture);
    item->setText(about.isEmpty() ? name : name + '\n' + about);
  }
}

bool ChoiceDock::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Down && key != Qt::Key_Up) return QDockWidget::eventFilter(watched, event);
  Walk(key == Qt::Key_Down ? 1 : -1);
  return true;
}

/// Leaves the names that have every word of the search, and marks the first of them.
void ChoiceDock::Filter() {
  const QStringList words = search_->text().split(' ', Qt::SkipEmptyParts);
  QListWidgetItem* first = nullptr;
  for (int row = 0; row < list_->count(); ++row) {
    QListWidgetItem* const item = list_->item(row);
    const bool fits = std::ranges::all_of(
        words, [&](const QString& word) { return item->text().contains(word, Qt::CaseInsensitive); });
    item->setHidden(!fits);
    if (fits && first == nullptr) first = item;
  }
  list_->setCurrentItem(words.isEmpty() ? nullptr : first);
}

void ChoiceDock::Walk(int step) {
  int row = list_->currentRow() + step;
  while (row >= 0 && row < list_->count() && list_->item(row)->isHidden()) row += step;
  if (row >= 0 && row < list_->count()) list_->setCurrentRow(row);
}

}  // namespace vanzet::window
