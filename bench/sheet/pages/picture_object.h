#pragma once

#include <QTextObjectInterface>
#include <vector>

#include "sheet/sheet.h"

namespace vanzet::sheet {

/// Draws the pictures of a text document: SVG as lines, in any size.
///
/// Owns   nothing; the pictures have to live as long
/// Units  those of the device that the document is for
class PictureObject final : public QObject, public QTextObjectInterface {
  Q_OBJECT
  Q_INTERFACES(QTextObjectInterface)

 public:
  static constexpr int kType = QTextFormat::UserObject + 1;

  explicit PictureObject(double unitsOfMillimetre) : units_(unitsOfMillimetre) {}

  /// The format of the character that stands for a picture, which becomes at most as wide as `room`, in
  /// millimetres.
  QTextCharFormat FormatOf(const Picture& picture, double room);

  QSizeF intrinsicSize(QTextDocument* document, int place, const QTextFormat& format) override;
  void drawObject(QPainter* painter, const QRectF& frame, QTextDocument* document, int place,
                  const QTextFormat& format) override;

 private:
  struct Placed {
    const Picture* picture;
    QSizeF size;
  };
  const Placed& Find(const QTextFormat& format) const;

  double units_;
  std::vector<Placed> pictures_;
};

}  // namespace vanzet::sheet
