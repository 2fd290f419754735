#include "view/qt/picture_widget.h"

#include <QPainter>
#include <utility>

#include "view/qt/painter_canvas.h"
#include "view/qt/texts.h"
#include "view/shared/lengths.h"
#include "view/shared/pictures/pictures.h"
#include "view/shared/texts.h"

namespace vanzet::view::qt {
namespace {

constexpr const char* kPicture = Translatable("Picture of what the values mean");

constexpr double kMargin = 12;
constexpr double kRounding = 6;

}  // namespace

PictureWidget::PictureWidget(QString nothing, QWidget* parent)
    : QFrame(parent), nothing_(std::move(nothing)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAccessibleName(Translate(kPicture));
}

void PictureWidget::Draw(std::int32_t bitmap, const PageValues& values, const Focus& focus) {
  bitmap_ = bitmap;
  emphasis_ = {focus.control, Shortened(Trimmed(focus.text.toStdString()))};
  sketch_ = SketchOf(bitmap, values);
  setAccessibleDescription(QString::fromStdString(sketch_.fault));
  update();
}

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(palette().color(QPalette::Base));
  const QRectF card = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.drawRoundedRect(card, kRounding, kRounding);
  const QRectF area = card.adjusted(kMargin, kMargin, -kMargin, -kMargin);
  if (sketch_.shapes.empty()) {
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(area, Qt::AlignCenter | Qt::TextWordWrap, nothing_);
    return;
  }
  PainterCanvas canvas(painter, font());
  Paint(canvas, BoxOf(area), sketch_, ColoursOf(palette()), emphasis_);
}

}  // namespace vanzet::view::qt
