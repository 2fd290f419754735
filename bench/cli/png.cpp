#include "cli/png.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace vanzet::cli {

Result<std::string> PngOf(const std::string& svg) {
  QSvgRenderer renderer(QByteArray::fromStdString(svg));
  QImage image(renderer.defaultSize(), QImage::Format_ARGB32_Premultiplied);
  if (!renderer.isValid() || image.isNull()) return Fault{"the picture cannot be drawn"};
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  renderer.render(&painter);
  painter.end();
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  if (!image.save(&bytes, "PNG")) return Fault{"the picture cannot be drawn"};
  return bytes.data().toStdString();
}

}  // namespace vanzet::cli
