#include "window/views/ring.h"

#include <QPainter>

namespace vanzet::window {

void PaintRing(QPainter& painter, const QPointF& place) {
  constexpr QColor kRed(0xd3, 0x12, 0x2a);
  constexpr double kRadius = 16;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(kRed, 2.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(place, kRadius, kRadius);
}

}  // namespace vanzet::window
