#pragma once

#include <cstdint>
#include <vector>

#include "geometry/point.h"

namespace geometry::region {

/// Points of which no two are within a distance of each other: a new one that is near an old one is the old
/// one.
class VertexNet {
 public:
  explicit VertexNet(double distance);

  /// The number of the point nearest to `p` among those within the distance, or of a new one at `p`.
  std::uint32_t Add(const Vector2d& p);
  const Vector2d& operator[](std::uint32_t i) const { return points_[i]; }
  std::size_t Count() const { return points_.size(); }

 private:
  struct Cell {
    std::int64_t x, y;
  };
  Cell CellOf(const Vector2d& p) const;
  std::size_t SlotOf(const Cell& cell) const;
  void Grow();
  void Insert(std::uint32_t i);
  void Search(const Cell& cell, const Vector2d& p, double& nearest, std::uint32_t& found) const;

  double distance_, perCell_;
  std::vector<Vector2d> points_;
  std::vector<std::uint32_t> slots_;  ///< point numbers from 1, 0 for none; open addressing
};

}  // namespace geometry::region
