#pragma once

#include <cmath>

namespace vanzet::contour {

/// A point or a vector of space.
struct Space {
  double x = 0, y = 0, z = 0;
};

constexpr Space operator+(const Space& a, const Space& b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Space operator-(const Space& a, const Space& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr Space operator*(const Space& a, double factor) {
  return {a.x * factor, a.y * factor, a.z * factor};
}
constexpr Space CrossOf(const Space& a, const Space& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double LengthOf(const Space& a) {
  return std::hypot(a.x, a.y, a.z);
}

/// How something is placed in space: where its origin goes, and the images of its axes. They may have any
/// length and any angle between them, so that a placement can also scale and mirror.
struct Placement {
  Space x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1}, origin{};

  constexpr Space Direction(const Space& v) const { return x * v.x + y * v.y + z * v.z; }
  constexpr Space Point(const Space& p) const { return Direction(p) + origin; }

  static constexpr Placement Move(const Space& by) { return {.origin = by}; }
  static constexpr Placement Scale(double x, double y, double z) { return {{x, 0, 0}, {0, y, 0}, {0, 0, z}}; }
  static Placement Turn(double radians) {
    const double cosine = std::cos(radians), sine = std::sin(radians);
    return {{cosine, sine, 0}, {-sine, cosine, 0}, {0, 0, 1}};
  }
};

/// First `inner`, then `outer`.
constexpr Placement operator*(const Placement& outer, const Placement& inner) {
  return {outer.Direction(inner.x), outer.Direction(inner.y), outer.Direction(inner.z),
          outer.Point(inner.origin)};
}

}  // namespace vanzet::contour
