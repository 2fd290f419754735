#include "geometry/region/vertex_net.h"

#include <algorithm>
#include <cmath>

namespace geometry::region {
namespace {

constexpr std::uint32_t kNone = 0xffffffffu;
constexpr double kCellInDistances = 16;

}  // namespace

VertexNet::VertexNet(double distance)
    : distance_(distance), perCell_(1 / (kCellInDistances * distance)), slots_(64, 0) {}

VertexNet::Cell VertexNet::CellOf(const Vector2d& p) const {
  return {static_cast<std::int64_t>(std::floor(p.dx * perCell_)),
          static_cast<std::int64_t>(std::floor(p.dy * perCell_))};
}

std::size_t VertexNet::SlotOf(const Cell& cell) const {
  std::uint64_t h = static_cast<std::uint64_t>(cell.x) * 0x9E3779B97F4A7C15u;
  h = (h ^ (h >> 29)) + static_cast<std::uint64_t>(cell.y) * 0xBF58476D1CE4E5B9u;
  h ^= h >> 32;
  return static_cast<std::size_t>(h * 0x94D049BB133111EBu >> 20) & (slots_.size() - 1);
}

void VertexNet::Insert(std::uint32_t i) {
  std::size_t slot = SlotOf(CellOf(points_[i]));
  while (slots_[slot] != 0) slot = (slot + 1) & (slots_.size() - 1);
  slots_[slot] = i + 1;
}

void VertexNet::Grow() {
  slots_.assign(slots_.size() * 4, 0);
  for (std::uint32_t i = 0; i < points_.size(); ++i) Insert(i);
}

void VertexNet::Search(const Cell& cell, const Vector2d& p, double& nearest, std::uint32_t& found) const {
  for (std::size_t slot = SlotOf(cell); slots_[slot] != 0; slot = (slot + 1) & (slots_.size() - 1)) {
    const double away = (points_[slots_[slot] - 1] - p).Magnitude();
    if (away > nearest || (away == nearest && found != kNone)) continue;
    nearest = away;
    found = slots_[slot] - 1;
  }
}

std::uint32_t VertexNet::Add(const Vector2d& p) {
  const Vector2d reach(distance_, distance_);
  const Cell low = CellOf(p - reach), high = CellOf(p + reach);
  double nearest = distance_;
  std::uint32_t found = kNone;
  for (std::int64_t x = low.x; x <= high.x; ++x) {
    for (std::int64_t y = low.y; y <= high.y; ++y) Search({x, y}, p, nearest, found);
  }
  if (found != kNone) return found;
  if (points_.size() * 2 >= slots_.size()) Grow();
  points_.push_back(p);
  Insert(static_cast<std::uint32_t>(points_.size() - 1));
  return static_cast<std::uint32_t>(points_.size() - 1);
}

}  // namespace geometry::region
