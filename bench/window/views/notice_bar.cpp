#include "window/views/notice_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace vanzet::window {

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent), text_(new QLabel) {
  setObjectName("noticeBar");
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(12, 4, 6, 4);
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  auto* const close = new QToolButton;
  close->setText(QString::fromUtf8("\u2715"));
  close->setAutoRaise(true);
  layout->addWidget(text_, 1);
  layout->addWidget(close);
  connect(close, &QToolButton::clicked, this, &QWidget::hide);
  hide();
}

void NoticeBar::Tell(const QString& text) {
  text_->setText(text);
  setVisible(!text.isEmpty());
}

QString NoticeBar::Message() const {
  return isHidden() ? QString() : text_->text();
}

}  // namespace vanzet::window
