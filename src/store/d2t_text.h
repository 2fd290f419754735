#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The description of a jaw as a tool holder for the simulation: docs/formats/d2t.md.
///
/// Shape    head lines, then the value "Contour" with a line for each element of the outline
/// Items    one line each, its line feed included
namespace vanzet {

/// The lines before the contour.
std::span<const std::string_view> D2tHead();

/// A step along the outline.
struct D2tElement {
  /// 1 straight, 2 a clockwise arc, 3 an anticlockwise one; the first element is a move in any case.
  std::int32_t gCode;
  double x, y;    ///< the end, in the units of the host
  double radius;  ///< of an arc
};

/// The line of an element; all but the last one say that the value continues.
std::string D2tLine(const D2tElement& element, bool isFirst, bool isLast);

}  // namespace vanzet
