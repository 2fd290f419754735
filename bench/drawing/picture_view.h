#pragma once

#include <optional>
#include <string>

#include "drawing/picture.h"
#include "geometry/box.h"

namespace vanzet::drawing {

/// How a picture lies on the screen: pixels from the upper left corner, y down.
class PictureView {
 public:
  /// `content` is what has to be seen; a cleared box is a drawing without anything.
  PictureView(const geometry::Box& content, const PictureOptions& options);

  int width() const { return width_; }
  int height() const { return height_; }

  /// As a transform of SVG: millimetres with y up to pixels.
  std::string Transform() const;

  /// A length of the screen in millimetres, as text.
  std::string Pixels(double pixels) const;

  /// What is seen, in millimetres.
  const geometry::Box& seen() const { return seen_; }

  /// The part of a line that is seen, or nothing.
  struct Segment {
    geometry::Point from, to;
  };
  std::optional<Segment> SeenOf(const geometry::CLine& line) const;

 private:
  double scale_ = 1;  ///< pixels a millimetre
  int width_ = 0, height_ = 0;
  geometry::Box seen_;
};

/// A number in a picture.
std::string NumberText(double number);

}  // namespace vanzet::drawing
