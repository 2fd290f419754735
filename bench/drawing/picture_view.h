#pragma once

#include <optional>
#include <string>

#include "drawing/picture.h"
#include "geometry/box.h"

namespace vanzet::drawing {

/// The mapping from the drawing to the pixels of a picture, which count from the upper left corner, y down.
class PictureView {
 public:
  /// `content` is the box that must be visible; a cleared box stands for an empty drawing.
  PictureView(const geometry::Box& content, const PictureOptions& options);

  int width() const { return width_; }
  int height() const { return height_; }

  /// The transform of SVG from millimetres with y up to pixels.
  std::string Transform() const;

  /// A length in pixels as text in millimetres.
  std::string Pixels(double pixels) const;

  /// The visible box, in millimetres.
  const geometry::Box& seen() const { return seen_; }

  /// The visible part of a line, or nothing.
  struct Segment {
    geometry::Point from, to;
  };
  std::optional<Segment> VisiblePartOf(const geometry::CLine& line) const;

 private:
  double scale_ = 1;  ///< pixels a millimetre
  int width_ = 0, height_ = 0;
  geometry::Box seen_;
};

/// A number in a picture.
std::string NumberText(double number);

}  // namespace vanzet::drawing
