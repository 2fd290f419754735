#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "devices/device.h"
#include "view/shared/page_values.h"

/// A dimensioned drawing as plain data, before it has a size and colours.
///
/// Units    of a sketch: those of the values; x to the right, y up. On a canvas: pixels, y down
namespace vanzet::view {

struct Point {
  double x = 0;
  double y = 0;

  bool operator==(const Point&) const = default;
};

inline Point operator+(Point a, Point b) {
  return {a.x + b.x, a.y + b.y};
}
inline Point operator-(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}
inline Point operator*(double factor, Point a) {
  return {factor * a.x, factor * a.y};
}

/// `top` is the least y and `bottom` the greatest: on a canvas the upper and the lower edge, in a sketch,
/// where y goes up, the other way round.
struct Box {
  double left = 0, top = 0, right = 0, bottom = 0;

  double Width() const { return right - left; }
  double Height() const { return bottom - top; }
  Point Centre() const { return {left + Width() / 2, top + Height() / 2}; }

  /// True when the insides have a point in common.
  bool Intersects(const Box& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }

  /// True when no part of the other box is outside of this one.
  bool Contains(const Box& other) const {
    return left <= other.left && other.right <= right && top <= other.top && other.bottom <= bottom;
  }

  bool operator==(const Box&) const = default;
};

/// A line from point to point; a closed one also leads from the last to the first.
struct Ring {
  std::vector<Point> points;
  bool isClosed = true;
};

/// Rings whose inside is that of the odd-even rule. Arcs are chords, too short to be seen as such.
struct Path {
  std::vector<Ring> rings;
};

Path Rectangle(double left, double bottom, double right, double top);
Path Stroke(Point from, Point to);
Path Circle(Point centre, double radius);

/// The point of a circle at so many degrees from +x to +y.
Point OnCircle(Point centre, double radius, double degrees);

/// The points of an arc, 120 of a full circle.
std::vector<Point> Arc(Point centre, double radius, double fromDegrees, double toDegrees);

/// The box around all points; an empty one without points.
Box BoundsOf(const Path& path);

/// The kinds of shape. The painter takes their colours from the palette of the moment.
enum class Ink {
  kMaterial,  ///< cut: filled and hatched
  kBody,      ///< seen from outside: filled
  kGhost,     ///< there for orientation: an outline, faint
  kPart,      ///< emphasised: filled in the colour of selections
  kAxis,      ///< a centre line
};

struct Shape {
  Path path;
  Ink ink;
};

using devices::Where;

/// A distance, an angle or a corner with the letter of a value.
struct Measure {
  using Kind = devices::MeasureKind;

  Kind kind = Kind::kAlong;
  Where where = Where::kInside;
  int lane = 0;
  std::string letter = {};
  std::int32_t control = 0;  ///< the edit of its value: while that has the focus, the measure is emphasised
  Point from = {};
  Point to = {};    ///< of an angle the two directions in degrees, from +x against the clock
  double at = 0.5;  ///< the place of the letter on its line, from 0 to 1
};

struct Sketch {
  std::vector<Shape> shapes = {};
  std::vector<Measure> measures = {};
  std::vector<std::string> notes = {};   ///< lines below the drawing
  std::string fault = {};                ///< what is wrong with the values; empty: nothing
  std::vector<std::int32_t> wrong = {};  ///< the edits of the values that are at fault
  bool isExample = false;                ///< shows what the letters mean, not the values of the page
};

inline void Add(Sketch& sketch, Ink ink, const Path& path) {
  sketch.shapes.push_back({path, ink});
}

/// Sets the fault of a sketch that has none yet, if an edit wants a number and does not hold one. `name` is
/// the name of the edit; without one the text of the edit is quoted.
void FindNoNumber(Sketch& sketch, const PageValues& values, std::int32_t edit, const std::string& name = {});

}  // namespace vanzet::view
