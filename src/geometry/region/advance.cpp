#include "geometry/region/advance.h"

#include <array>
#include <cmath>

namespace geometry::region {
namespace {

constexpr int kQuarter = 16, kCount = 4 * kQuarter;

struct Direction {
  int x, y;
};

/// Direction n of 64, which are spread evenly over the square |x| + |y| = 16.
constexpr Direction DirectionOf(int n) {
  const int part = n % kQuarter;
  constexpr Direction kAxes[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  const Direction from = kAxes[n / kQuarter % 4], to = kAxes[(n / kQuarter + 1) % 4];
  return {from.x * (kQuarter - part) + to.x * part, from.y * (kQuarter - part) + to.y * part};
}

constexpr bool Advances(const Direction& a, const Direction& b) {
  return a.x * b.x + a.y * b.y > kQuarter;
}

/// For each sector, from direction n to n + 1, the directions in which all of its tangents advance.
constexpr std::array<Advance, kCount> Table() {
  std::array<Advance, kCount> table{};
  for (int sector = 0; sector < kCount; ++sector) {
    for (int n = 0; n < kCount; ++n) {
      const Direction along = DirectionOf(n);
      if (Advances(DirectionOf(sector), along) && Advances(DirectionOf(sector + 1), along)) {
        table[static_cast<std::size_t>(sector)] |= Advance{1} << n;
      }
    }
  }
  return table;
}

constexpr std::array<Advance, kCount> kTable = Table();

}  // namespace

Advance AdvanceAlong(const Vector2d& tangent) {
  const double x = std::abs(tangent.dx), y = std::abs(tangent.dy);
  const double rise = y / (x + y);  // 0 on the x axis, 1 on the y axis
  const double place =
      tangent.dy >= 0 ? (tangent.dx >= 0 ? rise : 2 - rise) : (tangent.dx < 0 ? 2 + rise : 4 - rise);
  return kTable[static_cast<std::size_t>(place * kQuarter) % kCount];
}

}  // namespace geometry::region
