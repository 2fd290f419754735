#include "window/framed_style.h"

#include <QPainter>
#include <QStyleOption>

#include "window/theme.h"

namespace vanzet::window {

void FramedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (element != PE_IndicatorItemViewItemCheck) return;
  painter->save();
  painter->setPen(ColoursFor(option->palette).faint);
  painter->setBrush(Qt::NoBrush);
  painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
  painter->restore();
}

}  // namespace vanzet::window
