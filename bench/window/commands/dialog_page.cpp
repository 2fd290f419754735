#include "window/commands/dialog_page.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <algorithm>

#include "view/ids.h"

namespace vanzet::window {
namespace {

constexpr int kWait = 20;        // milliseconds between looks for the dialog
constexpr int kMostTries = 500;  // looks; a dialog that does not come has failed

/// The widget of a control; null while the dialog is not open.
template <class Widget>
Widget* WidgetOf(std::int32_t control) {
  for (QWidget* const widget : QApplication::allWidgets()) {
    auto* const found = qobject_cast<Widget*>(widget);
    if (found != nullptr && found->objectName().toInt() == control && found->isVisible()) return found;
  }
  return nullptr;
}

void ChooseSpur(int spur) {
  auto* const spurs = WidgetOf<QComboBox>(control::kSpurs);
  if (spurs == nullptr || spurs->currentIndex() == spur || spur >= spurs->count()) return;
  spurs->setCurrentIndex(spur);
  emit spurs->activated(spur);
}

/// The field gets the keys, with its text selected: what is typed then takes its place.
bool FocusField(std::int32_t control) {
  auto* const field = WidgetOf<QWidget>(control);
  if (field == nullptr || !field->isEnabled()) return false;
  field->activateWindow();
  field->setFocus(Qt::OtherFocusReason);
  if (auto* const edit = qobject_cast<QLineEdit*>(field)) edit->selectAll();
  return true;
}

}  // namespace

QString SelectedPage() {
  const auto* const tree = WidgetOf<QTreeWidget>(control::kTree);
  const QTreeWidgetItem* const item = tree == nullptr ? nullptr : tree->currentItem();
  return item == nullptr ? QString() : item->text(0);
}

DialogPage::DialogPage(QObject* parent) : QObject(parent) {
  wait_.setInterval(kWait);
  connect(&wait_, &QTimer::timeout, this, &DialogPage::TryToShow);
}

void DialogPage::Show(int spur, std::int32_t node, std::span<const std::int32_t> fields) {
  spur_ = spur;
  node_ = node;
  fields_.assign(fields.begin(), fields.end());
  tries_ = 0;
  wait_.start();
}

void DialogPage::TryToShow() {
  if (++tries_ > kMostTries) wait_.stop();
  auto* const tree = WidgetOf<QTreeWidget>(control::kTree);
  if (tree == nullptr) return;
  wait_.stop();
  ChooseSpur(spur_);
  for (QTreeWidgetItemIterator item(tree); *item != nullptr; ++item) {
    if ((*item)->data(0, Qt::UserRole).toInt() != node_) continue;
    tree->setCurrentItem(*item);
    std::ranges::find_if(fields_, FocusField);
    return;
  }
}

}  // namespace vanzet::window
