#pragma once

#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <vector>

#include "drawing/board.h"
#include "drawing/drawing_text.h"
#include "drawing/outline.h"
#include "support/temporary_folder.h"

namespace vanzet::drawing {

/// A closed contour through the corners.
inline geometry::Kurve CurveThrough(const std::vector<geometry::Point>& corners) {
  return *ClosedThrough(corners);
}

inline geometry::Kurve Square(double size) {
  return CurveThrough({{0, 0}, {size, 0}, {size, size}, {0, size}});
}

/// Reads a text as the drawing "d.txt".
inline Result<Drawing> ReadText(const std::string& text) {
  std::istringstream stream(text);
  return ReadDrawing(stream, "d.txt");
}

}  // namespace vanzet::drawing
