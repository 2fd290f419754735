#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "drawing/drawing.h"

namespace vanzet::drawing {

/// What of a drawing is shown, and how large.
struct PictureOptions {
  Window window = Window::kDisplay;
  std::vector<std::string> layers = {};  ///< empty: all
  std::optional<int> width = {};         ///< in pixels; what is left out follows from the drawing
  std::optional<int> height = {};
};

/// The sizes of pictures, in pixels.
inline constexpr int kSmallestPicture = 32, kLargestPicture = 8192;

/// The drawing as SVG: x to the right, y up, arcs as arcs, all of it with a margin; a group for each layer.
/// The display window has what was inserted there, its lines and its contours; the construction window the
/// figures as they were made and its contours. A fault when a layer is asked for that is not there.
Result<std::string> PictureSvg(const Drawing& drawing, const PictureOptions& options);

}  // namespace vanzet::drawing
