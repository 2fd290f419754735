#pragma once

#include <QProxyStyle>

namespace vanzet::window {

/// A style whose check boxes in lists and trees can be told from the ground in every palette: others derive
/// their frames from the colour of the ground, which leaves nothing to see on a dark one.
class FramedStyle final : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace vanzet::window
