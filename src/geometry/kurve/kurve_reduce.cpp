#include <algorithm>

#include "geometry/kurve.h"

namespace geometry {
namespace {

/// The vertices of a contour, ready to be compared with many lines.
///
/// A distance from a line rises and falls with each coordinate, and so does its rounding: where the corners
/// of a box are within the tolerance, all points inside are. That keeps long straight runs from costing the
/// square of their vertices, without changing any result.
class Runs {
 public:
  explicit Runs(const Kurve& k) : boxes_(k.blocks.size()) {
    points_.reserve(static_cast<std::size_t>(k.nVertices));
    for (std::size_t i = 0; i < static_cast<std::size_t>(k.nVertices); ++i) {
      const SpanVertexBlock& block = *k.blocks[i / kBlock];
      points_.emplace_back(block.x[i % kBlock], block.y[i % kBlock]);
      boxes_[i / kBlock].Insert(points_.back());
    }
  }

  /// Whether all vertices between the two lie within `tolerance` of the line from one to the other.
  bool Straight(std::size_t anchor, std::size_t current, double tolerance) const {
    const CLine line(points_[anchor], points_[current]);
    if (!line.ok) return false;
    for (std::size_t i = anchor + 1; i < current;) {
      const bool wholeBlock = i % kBlock == 0 && i + kBlock <= current;
      if (wholeBlock && Within(line, boxes_[i / kBlock], tolerance)) {
        i += kBlock;
      } else if (NearZero(line.Dist(points_[i]), tolerance)) {
        ++i;
      } else {
        return false;
      }
    }
    return true;
  }

 private:
  static constexpr std::size_t kBlock = SPANSTORAGE;

  static bool Within(const CLine& line, const Box& box, double tolerance) {
    const Point corners[] = {box.min, box.max, {box.min.x, box.max.y}, {box.max.x, box.min.y}};
    return std::ranges::all_of(corners,
                               [&](const Point& corner) { return NearZero(line.Dist(corner), tolerance); });
  }

  std::vector<Point> points_;
  std::vector<Box> boxes_;
};

}  // namespace

int Kurve::Reduce(double tolerance) {
  if (SpanCount() < 3) return 0;
  const Runs vertices(*this);
  Kurve kept;
  const auto keep = [&](int vertexNumber) {
    kept.Add(Stored(vertexNumber), true);
    kept.ModifyIndex(kept.nVertices - 1, StoredIndex(vertexNumber));
  };
  const auto straight = [&](int from, int to) {
    return vertices.Straight(static_cast<std::size_t>(from), static_cast<std::size_t>(to), tolerance);
  };
  keep(0);
  int anchor = 0;
  for (int current = 1; current < nVertices; ++current) {
    const bool isArc = Stored(current).type != LINEAR;
    const bool runs = current == anchor + 1 || (!isArc && straight(anchor, current));
    if (!runs) keep(anchor = current - 1);
    if (isArc) keep(anchor = current);
  }
  if (anchor != nVertices - 1) keep(nVertices - 1);
  const int removed = nVertices - kept.nVertices;
  if (removed > 0) TakeVertices(kept);
  return removed;
}

}  // namespace geometry
