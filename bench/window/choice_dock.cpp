#include "window/choice_dock.h"

#include <QListWidget>

namespace vanzet::window {

ChoiceDock::ChoiceDock(QWidget* parent) : QDockWidget(parent), list_(new QListWidget) {
  setObjectName("choice");
  setFeatures(DockWidgetMovable);
  setWidget(list_);
  connect(list_, &QListWidget::currentTextChanged, this, &ChoiceDock::Marked);
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
