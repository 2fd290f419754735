#pragma once

#include <QCheckBox>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QStyleOptionButton>
#include <cmath>

/// Frames of edits, lists and boxes that can be told from the ground in every palette: styles derive theirs
/// from the colour of the ground, which leaves nothing to see on a dark one.
namespace vanzet::view::qt {

/// A colour that stands out from the palette's ground by 3 to 1 at least.
inline QColor FrameColour(const QPalette& palette, bool isEnabled) {
  const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
  const QColor ground = palette.color(QPalette::Active, QPalette::Window);
  const double part = isEnabled ? 0.62 : 0.3;
  const auto mix = [&](int a, int b) { return static_cast<int>(std::lround(a * part + b * (1 - part))); };
  return {mix(text.red(), ground.red()), mix(text.green(), ground.green()), mix(text.blue(), ground.blue())};
}

inline QRect FrameOf(const QWidget& widget) {
  return widget.rect();
}

inline QRect FrameOf(const QCheckBox& box) {
  QStyleOptionButton option;
  option.initFrom(&box);
  return box.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &box);
}

/// A widget with such a frame over that of its style. An edit with the focus keeps the style's frame.
template <class Widget>
class Framed : public Widget {
 public:
  using Widget::Widget;

 protected:
  void paintEvent(QPaintEvent* event) override {
    Widget::paintEvent(event);
    constexpr bool kHasFocusFrame = !std::is_same_v<Widget, QCheckBox>;
    if (kHasFocusFrame && this->hasFocus()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(FrameColour(this->palette(), this->isEnabled()));
    constexpr double kRounding = 2;
    const QRectF frame = QRectF(FrameOf(*this)).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(frame, kRounding, kRounding);
  }
};

}  // namespace vanzet::view::qt
