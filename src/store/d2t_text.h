#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// How the simulation is told of a jaw as a tool holder: docs/formats/d2t.md.
///
/// Shape    head lines, then the one value "Contour", an element of the outline a line
/// Items    one line each, its line feed included
namespace vanzet {

/// The lines before the contour.
std::span<const std::string_view> D2tHead();

/// A step along the outline.
struct D2tElement {
  std::int32_t
      gCode;    ///< 1 straight, 2 a clockwise arc, 3 an anticlockwise one; the first is a move whatever it is
  double x, y;  ///< where it ends, in the units of the host
  double radius;  ///< of an arc
};

/// The line of an element; all but the last say that the value goes on.
std::string D2tLine(const D2tElement& element, bool isFirst, bool isLast);

}  // namespace vanzet
