#include "window/commands/reading_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace vanzet::window {
namespace {

constexpr int kBarWidth = 160;  // pixels

}  // namespace

ReadingBar::ReadingBar(const Texts& texts, BodyReader& reader, QWidget* parent)
    : QWidget(parent), texts_(texts), name_(new QLabel), bar_(new QProgressBar), cancel_(new QPushButton) {
  name_->setTextFormat(Qt::PlainText);
  bar_->setRange(0, 100);
  bar_->setFixedWidth(kBarWidth);
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  for (QWidget* const part :
       {static_cast<QWidget*>(name_), static_cast<QWidget*>(bar_), static_cast<QWidget*>(cancel_)}) {
    layout->addWidget(part);
  }
  connect(&reader, &BodyReader::Progressed, this, &ReadingBar::Show);
  connect(&reader, &BodyReader::Ended, this, &QWidget::hide);
  connect(cancel_, &QPushButton::clicked, &reader, &BodyReader::Cancel);
  hide();
}

void ReadingBar::Show(const QString& name, double done) {
  name_->setText(texts_(Text::kReadingBody).arg(name));
  bar_->setAccessibleName(name_->text());
  bar_->setValue(static_cast<int>(done * 100));
  cancel_->setText(texts_(Text::kCancel));
  show();
}

}  // namespace vanzet::window
