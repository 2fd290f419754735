#pragma once

#include <QPainter>
#include <QPalette>

#include "view/shared/canvas.h"

namespace vanzet::view::qt {

/// Draws with a painter of Qt.
class PainterCanvas final : public Canvas {
 public:
  /// `painter` must outlive this.
  PainterCanvas(QPainter& painter, const QFont& font);

  void Fill(const Path& path, Rgb colour) override;
  void Hatch(const Path& path, Rgb colour) override;
  void Stroke(const Path& path, const Pen& pen) override;
  void Plate(const Box& box, double rounding, Rgb fill, const Pen& frame) override;
  void Text(const Box& box, TextPlace place, const std::string& text, Rgb colour) override;
  double TextWidth(const std::string& text) override;
  double LineHeight() override;
  double WrappedHeight(const std::string& text, double width) override;

 private:
  QPainter& painter_;
};

inline Box BoxOf(const QRectF& rect) {
  return {rect.left(), rect.top(), rect.right(), rect.bottom()};
}

QColor ColourOf(Rgb colour);

/// The colours of pictures.
Palette ColoursOf(const QPalette& palette);

}  // namespace vanzet::view::qt
