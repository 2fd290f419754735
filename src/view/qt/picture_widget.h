#pragma once

#include <QFrame>
#include <cstdint>

#include "view/shared/pictures/painter.h"

namespace vanzet::view::qt {

/// The picture of a page on a card. It follows the values while they are typed.
class PictureWidget final : public QFrame {
 public:
  /// `nothing` is shown on the card without a picture.
  PictureWidget(QString nothing, QWidget* parent);

  /// The edit that has the focus, with its text as it is shown.
  struct Focus {
    std::int32_t control;
    QString text;
  };

  /// Draws the picture of that id (0: none) with the values of the page. The measure of the edit that has the
  /// focus is emphasised.
  void Draw(std::int32_t bitmap, const PageValues& values, const Focus& focus);

  std::int32_t Bitmap() const { return bitmap_; }
  const Sketch& ShownSketch() const { return sketch_; }

  QSize sizeHint() const override { return {420, 340}; }
  QSize minimumSizeHint() const override { return {260, 220}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const QString nothing_;
  std::int32_t bitmap_ = 0;
  Emphasis emphasis_;
  Sketch sketch_;
};

}  // namespace vanzet::view::qt
