#include "window/docks/section_picture.h"

#include <QPainter>
#include <utility>

namespace vanzet::window {
namespace {

constexpr int kLeastWidth = 120, kLeastHeight = 60;  // pixels

}  // namespace

SectionPicture::SectionPicture(QWidget* parent) : QWidget(parent) {
  setMinimumSize(kLeastWidth, kLeastHeight);
}

void SectionPicture::SetTitle(const QString& title) {
  title_ = title;
  setAccessibleName(title);
  update();
}

void SectionPicture::Show(std::shared_ptr<const ShownSection> section, const QString& hint) {
  section_ = std::move(section);
  hint_ = hint;
  update();
}

void SectionPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette().base());
  painter.setPen(palette().color(QPalette::Text));
  const int line = fontMetrics().height();
  painter.drawText(QRect(4, 2, width() - 8, line), Qt::AlignLeft, title_);
  const QRect room = rect().adjusted(0, line + 2, 0, 0);
  if (section_ == nullptr) {
    painter.drawText(room.adjusted(4, 0, -4, 0), Qt::AlignCenter | Qt::TextWordWrap, hint_);
    return;
  }
  ViewFrame frame;
  frame.Fit(section::BoxOf(section_->section), room.size());
  painter.translate(room.topLeft());
  SectionPainter(painter, frame, room.size(), palette()).PaintBodies(*section_, {});
}

}  // namespace vanzet::window
