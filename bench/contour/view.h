#pragma once

#include <optional>
#include <string>
#include <vector>

#include "contour/drawing.h"

/// The layout of a picture: its scale, the places of its labels, and its legend.
namespace vanzet::contour {

/// The mapping of a drawing to the screen: pixels from the upper left corner, y down.
class View {
 public:
  explicit View(const Drawing& drawing);

  double width() const { return width_; }
  double height() const { return height_; }
  double scale() const { return scale_; }  ///< pixels per millimetre

  /// The place of a point of the drawing in pixels.
  geometry::Point ToScreen(const geometry::Point& point) const;

  /// The mapping as a transform of SVG: from millimetres with y up to pixels.
  std::string Transform() const;

  /// The corners of the visible part of the drawing, in millimetres.
  geometry::Point low() const;
  geometry::Point high() const;

 private:
  geometry::Box box_;  ///< of all that is drawn
  double scale_ = 1;
  double width_ = 0, height_ = 0;
};

/// A text of the picture, its middle in pixels.
struct Label {
  std::string text;
  geometry::Point middle;
};

inline constexpr double kLabelHeight = 12;

/// The numbers of the vertices, each next to its vertex where it covers least of the contours and no other
/// number. A number without room is left out; all are when there are more than 1000 vertices.
std::vector<Label> VertexNumbers(const Contours& contours, const View& view);

/// The style of the contours of a role; widths in pixels.
struct DrawingStyle {
  const char* colour;
  const char* fill;
  double width;
  bool hasArrows;
};
const DrawingStyle& StyleOf(Drawing::Role role);

/// The names of the layers below a picture, each after a line in the layer's style. Empty, and without
/// height, unless at least two layers have contours and a name.
std::string Legend(const Drawing& drawing, double top);
double LegendHeight(const Drawing& drawing);

}  // namespace vanzet::contour
