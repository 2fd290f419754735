#include "contour/dxf/doubles.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <set>
#include <tuple>
#include <utility>

namespace vanzet::contour {
namespace {

/// A vertex, and the arc that begins there, in steps of 1e-6 mm.
using Corner = std::tuple<std::int64_t, std::int64_t, std::int64_t>;
using Shape = std::vector<Corner>;

std::int64_t Rounded(double length) {
  return std::llround(length * 1e6);
}

Shape ShapeOf(const Piece& piece) {
  Shape shape;
  shape.reserve(piece.segments.size() + 1);
  geometry::Point at = piece.start;
  for (const Segment& segment : piece.segments) {
    const double height = std::fabs(segment.bulge) > 1e3 ? 1e9 : segment.bulge * Dist(at, segment.end) / 2;
    shape.emplace_back(Rounded(at.x), Rounded(at.y), Rounded(height));
    at = segment.end;
  }
  shape.emplace_back(Rounded(at.x), Rounded(at.y), 0);
  return shape;
}

/// From the smallest vertex on; a closed shape has its first vertex once.
void TurnToTheSmallest(Shape& shape) {
  shape.pop_back();
  std::rotate(shape.begin(), std::ranges::min_element(shape), shape.end());
}

/// The same for all pieces that are the same.
Shape KeyOf(Piece piece) {
  Shape forward = ShapeOf(piece);
  piece.Reverse();
  Shape backward = ShapeOf(piece);
  const Corner &first = forward.front(), &last = forward.back();
  const bool isClosed = forward.size() > 2 && std::get<0>(first) == std::get<0>(last) &&
                        std::get<1>(first) == std::get<1>(last);
  if (isClosed) {
    TurnToTheSmallest(forward);
    TurnToTheSmallest(backward);
  }
  return std::min(forward, backward);
}

}  // namespace

std::map<std::string, int> DropDoubles(std::vector<PlacedPiece>& pieces) {
  std::map<std::string, int> dropped;
  std::set<Shape> seen;
  std::erase_if(pieces, [&](const PlacedPiece& placed) {
    const bool isNew = seen.insert(KeyOf(placed.piece)).second;
    if (!isNew) ++dropped[placed.kind];
    return !isNew;
  });
  return dropped;
}

int DropDoubles(std::vector<Piece>& pieces) {
  std::set<Shape> seen;
  return static_cast<int>(
      std::erase_if(pieces, [&](const Piece& piece) { return !seen.insert(KeyOf(piece)).second; }));
}

}  // namespace vanzet::contour
