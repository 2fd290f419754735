#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <optional>

#include "results/png_library.h"

namespace vanzet::results {
namespace {

Result<std::string> BytesOf(const QImage& image) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  if (!image.save(&bytes, "PNG")) return Fault{"the picture cannot be drawn"};
  return bytes.data().toStdString();
}

/// Fonts need an application. A program without a window has none; this one shows nothing on any display.
class FontUse {
 public:
  FontUse() {
    if (QCoreApplication::instance() != nullptr) return;
    // Messages of Qt about a missing display or session do not concern a picture.
    former_ = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    application_.emplace(count_, arguments_);
  }
  ~FontUse() {
    if (!application_) return;
    application_.reset();
    qInstallMessageHandler(former_);
  }
  FontUse(const FontUse&) = delete;
  FontUse& operator=(const FontUse&) = delete;

 private:
  char name_[7] = "vanzet", option_[10] = "-platform", platform_[10] = "offscreen";
  char* arguments_[4] = {name_, option_, platform_, nullptr};
  int count_ = 3;
  std::optional<QGuiApplication> application_;
  QtMessageHandler former_ = nullptr;
};

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
