#include "window/docks/choice_dock.h"

#include <QListWidget>

namespace vanzet::window {

ChoiceDock::ChoiceDock(QWidget* parent) : QDockWidget(parent), list_(new QListWidget) {
  setObjectName("choice");
  setFeatures(DockWidgetMovable);
  setWidget(list_);
  connect(list_, &QListWidget::currentTextChanged, this, &ChoiceDock::Marked);
  // The list may have made its first name the current one by itself.
  connect(list_, &QListWidget::itemClicked, this,
          [this](const QListWidgetItem* item) { emit Marked(item->text()); });
  connect(list_, &QListWidget::itemActivated, this,
          [this](const QListWidgetItem* item) { emit Chosen(item->text()); });
  hide();
}

void ChoiceDock::Offer(const QString& title, const QStringList& names) {
  setWindowTitle(title);
  list_->clear();
  list_->addItems(names);
  list_->setCurrentRow(-1);
  show();
}

}  // namespace vanzet::window
