#include "window/commands/command_palette.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include "window/commands/workplace.h"

namespace vanzet::window {
namespace {

constexpr QSize kSize = {560, 520};  // pixels
constexpr int kNameWidth = 400;

/// The keys that a list of names acts on while its edit has the focus.
bool IsMove(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

}  // namespace

CommandPalette::CommandPalette(const Texts& texts, const Actions& actions, QWidget* parent)
    : QDialog(parent), letters_(new QLineEdit), list_(new QTreeWidget) {
  setWindowTitle(TitleOf(texts(Text::kPalette)));
  resize(kSize);
  letters_->setPlaceholderText(texts(Text::kFindCommand));
  letters_->setAccessibleName(texts(Text::kFindCommand));
  letters_->installEventFilter(this);
  list_->setAccessibleName(windowTitle());
  list_->setColumnCount(2);
  list_->setRootIsDecorated(false);
  list_->header()->hide();
  list_->header()->resizeSection(0, kNameWidth);
  auto* const rows = new QVBoxLayout(this);
  rows->addWidget(letters_);
  rows->addWidget(list_, 1);
  Fill(actions);
  Filter({});
  connect(letters_, &QLineEdit::textChanged, this, &CommandPalette::Filter);
  connect(letters_, &QLineEdit::returnPressed, this, &CommandPalette::Choose);
  connect(list_, &QTreeWidget::itemActivated, this, &CommandPalette::Choose);
}

/// A command that cannot run now is listed, too: its key can be looked up.
void CommandPalette::Fill(const Actions& actions) {
  // Names begin at the same place, with an icon or without.
  QPixmap blank(list_->iconSize().expandedTo({16, 16}));
  blank.fill(Qt::transparent);
  for (const ActionRow& row : ActionRows()) {
    if (row.form == 'm') continue;
    QAction* const action = actions[row.command];
    auto* const item = new QTreeWidgetItem(
        list_, {TitleOf(action->text()), action->shortcut().toString(QKeySequence::NativeText)});
    item->setIcon(0, action->icon().isNull() ? blank : action->icon());
    item->setData(0, Qt::UserRole, QVariant::fromValue<QObject*>(action));
    item->setDisabled(!action->isEnabled());
  }
}

void CommandPalette::Filter(const QString& letters) {
  list_->setCurrentItem(nullptr);
  for (QTreeWidgetItemIterator item(list_); *item != nullptr; ++item) {
    (*item)->setHidden(!(*item)->text(0).contains(letters, Qt::CaseInsensitive));
    const bool canRun = !(*item)->isHidden() && !(*item)->isDisabled();
    if (canRun && list_->currentItem() == nullptr) list_->setCurrentItem(*item);
  }
}

void CommandPalette::Choose() {
  const QTreeWidgetItem* const item = list_->currentItem();
  if (item == nullptr || item->isDisabled()) return;
  chosen_ = qobject_cast<QAction*>(item->data(0, Qt::UserRole).value<QObject*>());
  accept();
}

bool CommandPalette::eventFilter(QObject* watched, QEvent* event) {
  const bool isMove = event->type() == QEvent::KeyPress && IsMove(static_cast<QKeyEvent*>(event)->key());
  if (!isMove) return QDialog::eventFilter(watched, event);
  QApplication::sendEvent(list_, event);
  return true;
}

}  // namespace vanzet::window
