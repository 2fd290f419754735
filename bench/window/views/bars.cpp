#include "window/views/bars.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace vanzet::window {

ViewPane::ViewPane(QWidget* view, QWidget* parent) : QFrame(parent), title_(new QLabel) {
  setObjectName("viewPane");
  auto* const header = new QWidget;
  header->setObjectName("viewHeader");
  header_ = new QHBoxLayout(header);
  header_->setContentsMargins(10, 2, 4, 2);
  header_->setSpacing(2);
  header_->addWidget(title_);
  header_->addStretch();
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(1, 1, 1, 1);
  layout->setSpacing(0);
  layout->addWidget(header);
  layout->addWidget(view, 1);
}

void ViewPane::SetTitle(const QString& title) {
  title_->setText(title);
}

void ViewPane::Add(QWidget* control) {
  header_->addWidget(control);
}

void ViewPane::Add(QAction* action) {
  auto* const button = new QToolButton;
  button->setDefaultAction(action);
  button->setAutoRaise(true);
  header_->addWidget(button);
}

}  // namespace vanzet::window
