#pragma once

#include <cmath>
#include <numbers>
#include <vector>

#include "geometry/kurve.h"
#include "geometry/units.h"

namespace vanzet::test {

/// The geometry library in millimetres for the length of a test.
class Millimetres {
 public:
  Millimetres() : former_(geometry::GetUnits()) { geometry::SetUnits(0); }
  ~Millimetres() { geometry::SetUnits(former_); }
  Millimetres(const Millimetres&) = delete;
  Millimetres& operator=(const Millimetres&) = delete;

 private:
  std::int32_t former_;
};

/// A corner of a contour, or the end of an arc about a centre.
struct Corner {
  double x, y;
  int type = geometry::LINEAR;
  double xc = 0, yc = 0;
};

/// The contour through corners; it is closed when it ends where it begins.
inline geometry::Kurve Through(const std::vector<Corner>& corners) {
  geometry::Kurve kurve;
  for (const Corner& corner : corners) {
    const geometry::Point p(corner.x, corner.y);
    if (!kurve.started) {
      kurve.Start(p);
    } else {
      kurve.Add(corner.type, p, geometry::Point(corner.xc, corner.yc));
    }
  }
  return kurve;
}

/// The same contour the other way round.
inline geometry::Kurve Backwards(const geometry::Kurve& kurve) {
  geometry::Kurve backwards(kurve);
  backwards.Reverse();
  return backwards;
}

inline geometry::Kurve Rectangle(double x0, double y0, double x1, double y1) {
  return Through({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}, {x0, y0}});
}

/// A plate of 50 by 20 with a half disk of radius 10 at its right end, its lower edge at y.
inline geometry::Kurve Tongue(double y) {
  return Through({{0, y}, {50, y}, {50, y + 20, geometry::ACW, 50, y + 10}, {0, y + 20}, {0, y}});
}
inline constexpr double kTongueArea = 50 * 20 + std::numbers::pi * 50;

}  // namespace vanzet::test
