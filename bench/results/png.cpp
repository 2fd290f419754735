#include "results/png.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace vanzet::results {
namespace {

Result<std::string> BytesOf(const QImage& image) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  if (!image.save(&bytes, "PNG")) return Fault{"the picture cannot be drawn"};
  return bytes.data().toStdString();
}

}  // namespace

Result<std::string> PngOf(const std::string& svg) {
  QSvgRenderer renderer(QByteArray::fromStdString(svg));
  QImage image(renderer.defaultSize(), QImage::Format_ARGB32_Premultiplied);
  if (!renderer.isValid() || image.isNull()) return Fault{"the picture cannot be drawn"};
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  renderer.render(&painter);
  painter.end();
  return BytesOf(image);
}

Result<std::string> PngOf(const scene::Picture& picture) {
  return BytesOf(QImage(picture.bytes.data(), picture.width, picture.height,
                        static_cast<qsizetype>(picture.width) * 3, QImage::Format_RGB888));
}

}  // namespace vanzet::results
