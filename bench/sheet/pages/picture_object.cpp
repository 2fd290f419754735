#include "sheet/pages/picture_object.h"

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>

namespace vanzet::sheet {
namespace {

constexpr int kNumber = QTextFormat::UserProperty + 1;

QByteArray BytesOf(const Picture& picture) {
  return {picture.bytes.data(), static_cast<qsizetype>(picture.bytes.size())};
}

}  // namespace

QTextCharFormat PictureObject::FormatOf(const Picture& picture, double room) {
  const double part = std::min(1.0, room / picture.width) * units_;
  QTextCharFormat format;
  format.setObjectType(kType);
  format.setProperty(kNumber, static_cast<int>(pictures_.size()));
  pictures_.push_back({&picture, QSizeF(picture.width, picture.height) * part});
  return format;
}

const PictureObject::Placed& PictureObject::Find(const QTextFormat& format) const {
  return pictures_.at(static_cast<std::size_t>(format.intProperty(kNumber)));
}

QSizeF PictureObject::intrinsicSize(QTextDocument* /*document*/, int /*place*/, const QTextFormat& format) {
  return Find(format).size;
}

void PictureObject::drawObject(QPainter* painter, const QRectF& frame, QTextDocument* /*document*/,
                               int /*place*/, const QTextFormat& format) {
  const Picture& picture = *Find(format).picture;
  if (picture.format == Picture::Format::kPng) {
    painter->drawImage(frame, QImage::fromData(BytesOf(picture), "PNG"));
    return;
  }
  QSvgRenderer renderer(BytesOf(picture));
  renderer.render(painter, frame);
}

}  // namespace vanzet::sheet
