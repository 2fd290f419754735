#include "results/png_library.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include "results/font_use.h"

namespace vanzet::results {
namespace {

Result<std::string> BytesOf(const QImage& image) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  if (!image.save(&bytes, "PNG")) return Fault{"the picture cannot be drawn"};
  return bytes.data().toStdString();
}

Result<std::string> PngOfSvg(const std::string& svg) {
  const FontUse fonts;
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

Result<std::string> PngOfPicture(const scene::Picture& picture) {
  return BytesOf(QImage(picture.bytes.data(), picture.width, picture.height,
                        static_cast<qsizetype>(picture.width) * 3, QImage::Format_RGB888));
}

}  // namespace
}  // namespace vanzet::results

/// The only function of the library that others see.
extern "C" const void* vanzetPng() {
  using namespace vanzet::results;
  static const PngLibrary library{.ofSvg = PngOfSvg, .ofPicture = PngOfPicture};
  return &library;
}
