#include <cmath>
#include <optional>
#include <stdexcept>

#include "geometry/region/nearest.h"

/// Distances between contours, and the check of an offset.
namespace geometry {
namespace {

using region::BoxTree;
using region::NearestSearch;
using region::Nearness;
using region::Piece;
using region::Pieces;
using region::PreparedCurve;
using region::Sketch;

constexpr double kCornerTolerances = 5;

Region LoopOf(const KurveEx& contour) {
  Region region;
  region.loops.emplace_back();
  for (const Span& s : contour.spans) region.loops[0].spans.push_back({s.dir, s.p0, s.p1, s.pc, s.ID});
  return region;
}

/// Two contours in common coordinates, in pieces. Throws std::runtime_error when they are not sound.
class Compared {
 public:
  Compared(const KurveEx& a, const KurveEx& b) : a_(LoopOf(a)), b_(LoopOf(b)), sketch_({&a_, &b_}) {
    if (!sketch_.IsSound()) throw std::runtime_error("The coordinates of a contour are not sound.");
  }
  Pieces First() const { return PiecesOf(a_); }
  Pieces Second() const { return PiecesOf(b_); }
  Point PointAt(const Vector2d& p) const { return sketch_.PointAt(p); }

 private:
  Pieces PiecesOf(const Region& drawn) const {
    Sketch sketch = sketch_;
    sketch.AddLoops(drawn.loops, {1, 0});
    Pieces pieces(std::max(sketch.Distance(), 1e-300));
    for (const region::Stroke& stroke : sketch.Strokes()) pieces.Add(stroke);
    return pieces;
  }

  Region a_, b_;
  Sketch sketch_;
};

Nearness NearestOf(const Pieces& a, const Pieces& b) {
  const NearestSearch search(b);
  Nearness nearest;
  for (const Piece& piece : a.List()) {
    nearest = search.Search(a.CurveOf(piece), nearest);
    if (nearest.distance == 0) break;
  }
  return nearest;
}

/// A point where two pieces meet other than in their ends.
std::optional<Vector2d> CrossingOf(const Pieces& pieces) {
  std::vector<PreparedCurve> curves;
  std::vector<BoxTree::Item> boxes;
  for (const Piece& piece : pieces.List()) {
    curves.emplace_back(pieces.CurveOf(piece), pieces.Distance());
    const Box& box = curves.back().Bounds();
    boxes.push_back({box.min.x, box.min.y, box.max.x, box.max.y, true});
  }
  std::optional<Vector2d> crossing;
  BoxTree(std::move(boxes)).VisitPairs([&](std::uint32_t i, std::uint32_t j) {
    const Piece &a = pieces.List()[i], &b = pieces.List()[j];
    const bool startIsCommon = a.from == b.from || a.from == b.to,
               endIsCommon = a.to == b.from || a.to == b.to;
    Vector2d found[2];
    const int count = curves[i].Meet(curves[j], {startIsCommon, endIsCommon}, found);
    for (int n = 0; n < count; ++n) {
      const region::Curve& shape = curves[i].Shape();
      const bool isCommon = (startIsCommon && (found[n] - shape.a).Magnitude() <= 2 * pieces.Distance()) ||
                            (endIsCommon && (found[n] - shape.b).Magnitude() <= 2 * pieces.Distance());
      if (!isCommon) crossing = found[n];
    }
    return !crossing;
  });
  return crossing;
}

}  // namespace

double NearestDistance(const KurveEx& a, const KurveEx& b) {
  const Compared both(a, b);
  return NearestOf(both.First(), both.Second()).distance;
}

OffsetCheck CheckOffset(const KurveEx& source, const KurveEx& result, double distance) {
  const Compared both(result, source);
  const Pieces made = both.First();
  const Nearness nearest = NearestOf(made, both.Second());
  OffsetCheck check{OffsetCheck::Finding::Clean, both.PointAt(nearest.place), nearest.distance};
  if (const auto crossing = CrossingOf(made)) {
    check.finding = OffsetCheck::Finding::Crosses;
    check.place = both.PointAt(*crossing);
  } else if (nearest.distance < std::abs(distance) - kCornerTolerances * TOLERANCE) {
    check.finding = OffsetCheck::Finding::TooNear;
  }
  return check;
}

bool OffsetIsClean(const KurveEx& source, const KurveEx& result, double distance) {
  return CheckOffset(source, result, distance).finding == OffsetCheck::Finding::Clean;
}

}  // namespace geometry
