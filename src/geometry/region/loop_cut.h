#pragma once

#include <vector>

#include "geometry/region/sketch.h"

namespace geometry::region {

/// Two spans of a chain, counted around it, and a common point of their offsets. The offset curve is cut
/// there: it goes from the one to the other, and the loop between them is left out.
struct LoopCut {
  std::size_t first = 0, last = 0;
  Vector2d common;
  double alongFirst = 0, alongLast = 0;  ///< the places of the feet, as products with the chord
};

/// Cuts off loops of an offset curve, where spans between two others have no part of the offset: the loop
/// that a bend leaves which is tighter than the distance.
///
/// Let F and G be the feet of the common point X on the two spans, at the distance d, K the chain from F to
/// G, and D the set that is bounded by K and the normals FX and GX. The loop is cut off if
/// - all tangents of K, also those that a corner sweeps, are within less than half a turn, and
/// - no point of K is nearer to X than d.
/// K is then a graph over some line, on the other side of the open disc of d around X, so that D is bounded
/// by a curve without crossings and is on K's side of the offset. The loop is the boundary of the strips that
/// K sweeps, less that of D: without it, the points of D are counted once, and those of the strips of K not
/// at all. No sign changes:
/// - What is counted now was counted. The point of D that is farthest from K is either on one of the normals,
///   so within d, or in the convex hull of the points of K that are nearest to it. Then the normals of K
///   there would not be within half a turn. So all of D is within d of K, and the nearest way from a point of
///   D to K, which stays in D, is a normal of K: the point is in a strip.
/// - What was counted still is. Let z be the point of all chains that is nearest to p, not farther than d. If
///   z is not on any such K, the strip at z, which holds p, is still counted. If it is, the way from z to p
///   begins in D. It does not leave D, since at a crossing c of the normal FX F is as near as z is, and p
///   would be nearer to F than to z. So p is in D.
/// The parts K of several cuts have no points in common. A corner that corner_trim.h shortens is such a cut
/// too.
///
/// The last step needs the points around all ends, so this is not for paths with butt ends; nor may K have
/// sharp or cut corners that open, which hold points farther than d. Comparisons are exact but for a
/// sixteenth of r (geometry/region.h) in the distance of X from K.
class LoopCutter {
 public:
  /// Requires: all of these stay. The spans are a closed chain.
  LoopCutter(const Sketch& sketch, const std::vector<RegionSpan>& spans, double left, Corner corner);

  /// Looks for a cut around the corner after that span. Requires: the spans ascend from call to call.
  void CutAround(std::size_t span);
  /// The cuts in their order. A cut over the end of the list has `last` below `first` and is the last one.
  std::vector<LoopCut> Take();

 private:
  /// A span at an end of a loop, and the common point's foot on it.
  struct Side {
    std::size_t place = 0;
    Shape shape;
    Vector2d tangent{};  ///< at the foot
    double along = 0;
  };
  /// Where the ends of a loop have to go: 1 away from it, -1 towards it, 0 when they are right.
  struct Move {
    int low = 0, high = 0;
  };
  /// The search around one corner: `below` counts the cuts that are left of it.
  struct Search {
    Side low, high;
    std::size_t corner = 0, below = 0;
    Vector2d common;
  };
  Shape ShapeAt(std::size_t place) const { return sketch_.ShapeOf(spans_[place % spans_.size()]); }
  bool IsCutOff(std::size_t place) const;
  bool CanEnd(const Shape& shape) const;
  bool SetFoot(Side& side, const Vector2d& common) const;
  bool FindCommon(Search& search) const;
  Move Compare(Search& search) const;
  int MoveOfLow(const Search& search) const;
  int MoveOfHigh(const Search& search) const;
  double TrimmedAt(const Shape& before, const Shape& after, Side side, double untrimmed) const;
  bool Go(Search& search, const Move& move) const;
  bool GoLow(Search& search, int move) const;
  bool GoHigh(Search& search, int move) const;
  bool Opens(const Vector2d& before, const Vector2d& after) const;
  bool IsLoop(const Search& search) const;

  const Sketch& sketch_;
  const std::vector<RegionSpan>& spans_;
  double left_, least_;
  bool mayOpen_;
  std::size_t steps_;  ///< that may still be taken
  std::vector<LoopCut> cuts_;
};

}  // namespace geometry::region
