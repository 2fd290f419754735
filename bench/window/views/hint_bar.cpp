#include "window/views/hint_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace vanzet::window {

HintBar::HintBar(QWidget* parent) : QFrame(parent), text_(new QLabel), cancel_(new QPushButton) {
  setObjectName("hintBar");
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(12, 4, 6, 4);
  text_->setTextFormat(Qt::PlainText);
  layout->addWidget(text_, 1);
  layout->addWidget(cancel_);
  connect(cancel_, &QPushButton::clicked, this, &HintBar::Cancelled);
  hide();
}

void HintBar::Ask(const QString& text, const QString& button) {
  text_->setText(text);
  cancel_->setText(button);
  show();
}

}  // namespace vanzet::window
