#pragma once

#include <optional>
#include <string>
#include <vector>

#include "contour/view.h"

namespace vanzet::contour {

/// A text of the picture, its middle in pixels.
struct Label {
  std::string text;
  geometry::Point middle;
};

inline constexpr double kLabelHeight = 12;

/// The numbers of the vertices, each beside its vertex where it covers least of the contours and of the other
/// numbers. A number without room is left out, and all are when there are more than 1000 vertices.
std::vector<Label> VertexNumbers(const Contours& contours, const View& view);

}  // namespace vanzet::contour
