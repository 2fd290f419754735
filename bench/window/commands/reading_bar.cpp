#include "window/commands/reading_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace vanzet::window {
namespace {

constexpr int kBarWidth = 160;     // pixels
constexpr int kStandstill = 2000;  // milliseconds after which a percentage no longer says that work goes on

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
  connect(&reader, &BodyReader::Ended, &standstill_, &QTimer::stop);
  connect(cancel_, &QPushButton::clicked, &reader, &BodyReader::Cancel);
  standstill_.setSingleShot(true);
  standstill_.setInterval(kStandstill);
  connect(&standstill_, &QTimer::timeout, this, &ReadingBar::ShowStandstill);
  hide();
}

void ReadingBar::Show(const QString& name, double done) {
  reading_ = name;
  name_->setText(texts_(Text::kReadingBody).arg(name));
  bar_->setAccessibleName(name_->text());
  bar_->setRange(0, 100);
  bar_->setValue(static_cast<int>(done * 100));
  standstill_.start();
  cancel_->setText(texts_(Text::kCancel));
  show();
}

/// One step of the work, such as a large face, takes longer: how much of it is done is not known.
void ReadingBar::ShowStandstill() {
  const int done = bar_->value();
  name_->setText(texts_(Text::kLongStep).arg(reading_, QString::number(done)));
  bar_->setAccessibleName(name_->text());
  bar_->setRange(0, 0);
}

}  // namespace vanzet::window
