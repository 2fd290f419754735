#include "view/qt/painter_canvas.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QImage>

#include "devices/kinds.h"
#include "view/ids.h"
#include "view/shared/pictures/painter.h"
#include "view/shared/pictures/pictures.h"

namespace vanzet::view::qt {
namespace {

/// A page without values, whose pictures are examples.
Sketch Example(std::int32_t bitmap) {
  return SketchOf(bitmap, PageValues({}));
}

TEST(PainterCanvas, DrawsEveryPictureInAnySize) {
  std::vector<std::int32_t> bitmaps;
  for (const Picture& picture : Pictures()) bitmaps.push_back(picture.bitmap);
  for (const devices::Device* const device : devices::Devices()) bitmaps.push_back(device->picture);
  for (const std::int32_t bitmap : bitmaps) {
    for (const QSize size : {QSize(1, 1), QSize(40, 30), QSize(500, 400)}) {
      QImage image(size, QImage::Format_RGB32);
      image.fill(Qt::white);
      const QImage blank = image;
      QPainter painter(&image);
      PainterCanvas canvas(painter, QFont());
      Paint(canvas, BoxOf(image.rect()), Example(bitmap), ColoursOf(QPalette()), {});
      EXPECT_TRUE(image != blank || size.width() < 500) << bitmap;
    }
  }
}

TEST(PainterCanvas, LeavesTheOpeningOfARingBlank) {
  QImage image(100, 100, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  PainterCanvas canvas(painter, QFont());
  Path ring = Circle({50, 50}, 40);
  ring.rings.push_back(Circle({50, 50}, 20).rings.front());
  canvas.Fill(ring, {200, 0, 0});
  EXPECT_EQ(image.pixelColor(50, 20), QColor(200, 0, 0));
  EXPECT_EQ(image.pixelColor(50, 50), QColor(Qt::white));
}

TEST(PainterCanvas, WrapsLinesAtTheBottom) {
  QImage image(100, 200, QImage::Format_RGB32);
  QPainter painter(&image);
  PainterCanvas canvas(painter, QFont());
  const double one = canvas.WrappedHeight("a", 90), two = canvas.WrappedHeight("aaaaaaaa aaaaaaaa", 90);
  EXPECT_GE(one, canvas.LineHeight() - 1);
  EXPECT_GT(two, 1.5 * one);
  EXPECT_GT(canvas.TextWidth("aaaa"), 2 * canvas.TextWidth("a"));
}

}  // namespace
}  // namespace vanzet::view::qt
