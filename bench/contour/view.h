#pragma once

#include <string>

#include "contour/drawing.h"

namespace vanzet::contour {

/// How a picture lies on the screen: pixels from the upper left corner, y down.
class View {
 public:
  explicit View(const Drawing& drawing);

  double width() const { return width_; }
  double height() const { return height_; }
  double scale() const { return scale_; }  ///< pixels a millimetre

  /// Where a point of the drawing is in pixels.
  geometry::Point ToScreen(const geometry::Point& point) const;

  /// As a transform of SVG: millimetres with y up to pixels.
  std::string Transform() const;

  /// What of the drawing is seen, in millimetres.
  geometry::Point low() const;
  geometry::Point high() const;

 private:
  geometry::Box box_;  ///< of all that is drawn
  double scale_ = 1;
  double width_ = 0, height_ = 0;
};

}  // namespace vanzet::contour
