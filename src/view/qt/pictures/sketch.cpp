#include "view/qt/pictures/sketch.h"

namespace vanzet::view::qt {

QPainterPath Rectangle(double left, double bottom, double right, double top) {
  QPainterPath path;
  path.addRect(QRectF(QPointF(left, bottom), QPointF(right, top)));
  return path;
}

QPainterPath Stroke(QPointF from, QPointF to) {
  QPainterPath path;
  path.moveTo(from);
  path.lineTo(to);
  return path;
}

}  // namespace vanzet::view::qt
