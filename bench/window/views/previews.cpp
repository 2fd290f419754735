#include "window/views/previews.h"

#include <QPainter>

#include "scene/picture.h"
#include "window/theme.h"
#include "window/views/view_frame.h"

namespace vanzet::window {
namespace {

constexpr double kMargin = 3;  // pixels around a picture

}  // namespace

geometry::Box BoxOf(const std::vector<geometry::Kurve>& contours) {
  geometry::Box box;
  for (const geometry::Kurve& contour : contours) {
    geometry::Point min, max;
    contour.Minmax(min, max);
    box.Insert(min);
    box.Insert(max);
  }
  return box;
}

QPixmap PreviewOf(const std::vector<geometry::Kurve>& contours, const QPalette& palette, qreal pixelRatio) {
  const geometry::Box box = BoxOf(contours);
  if (box.min.x > box.max.x) return {};
  QPixmap picture(kPreviewSize * pixelRatio);
  picture.setDevicePixelRatio(pixelRatio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(kMargin, kMargin);
  ViewFrame frame;
  frame.Fit(box, QSizeF(kPreviewSize) - QSizeF(2 * kMargin, 2 * kMargin));
  painter.setPen(QPen(ColoursFor(palette).text, 1));
  for (const geometry::Kurve& contour : contours) painter.drawPolyline(ChordsOf(contour, frame));
  return picture;
}

QImage PreviewOf(const scene::Model& model, const QColor& background, qreal pixelRatio) {
  scene::DrawOptions options = {.width = static_cast<int>(kPreviewSize.width() * pixelRatio),
                                .height = static_cast<int>(kPreviewSize.height() * pixelRatio)};
  options.line = pixelRatio;
  options.style.background = {background.redF(), background.greenF(), background.blueF()};
  const auto look =
      scene::LookFrom(scene::View::kIso, false, scene::PointsOf(model), options.width, options.height);
  const scene::Picture drawn = scene::Draw(model, look, options);
  QImage picture =
      QImage(drawn.bytes.data(), drawn.width, drawn.height, qsizetype{drawn.width} * 3, QImage::Format_RGB888)
          .copy();
  picture.setDevicePixelRatio(pixelRatio);
  return picture;
}

}  // namespace vanzet::window
