#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "drawing/drawing.h"

namespace vanzet::drawing {

/// The part of a drawing that a picture shows, and its size.
struct PictureOptions {
  Window window = Window::kDisplay;
  std::vector<std::string> layers = {};  ///< empty: all
  std::optional<int> width = {};         ///< in pixels; without a value it follows from the drawing
  std::optional<int> height = {};
};

/// The limits of the size of a picture, in pixels.
inline constexpr int kSmallestPicture = 32, kLargestPicture = 8192;

/// Draws the drawing as SVG: x to the right, y up, arcs as arcs, with a margin; a group for each layer. The
/// display window shows the figures that were inserted there, its lines and its contours; the construction
/// window shows the figures as they were made and its contours. Fails with `kMissing` for a layer that does
/// not exist.
Result<std::string> PictureSvg(const Drawing& drawing, const PictureOptions& options);

}  // namespace vanzet::drawing
