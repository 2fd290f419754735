#pragma once

#include <cmath>
#include <vector>

#include "geometry/region/loop_cut.h"
#include "geometry/region/sketch.h"

namespace geometry::region {

/// The end of an open path: a corner of half a turn, whose spans carry no words, or no end but a corner.
enum class EndForm { kCorner, kRound, kSquare, kButt };

/// Makes the offset curve of a closed chain of spans, at a signed distance to the left: a closed loop that
/// may cross itself.
///
/// Each span sweeps the strip between it and its offset, and each corner that opens on that side a sector.
/// The loop is the boundary of all of them, counted as often as they overlap: the boundary of the chain's
/// own set, less the strips on its left or with the strips on its right. A point thus belongs to the offset
/// set exactly when the loops of all its chains have a positive winding number there. What the strips have in
/// common at a corner of the other kind is passed as a spur to the corner and back, or cut off where nothing
/// depends on it: at the corner alone (corner_trim.h), or with spans that have no part of the offset
/// (loop_cut.h).
class OffsetChain {
 public:
  OffsetChain(const Sketch& sketch, double left, const RegionOffset& options);

  /// Spans without a length are left out. Requires: each span begins where the one before it ends.
  RegionLoop Around(const std::vector<RegionSpan>& spans) {
    return Around(spans, spans.size(), EndForm::kCorner);
  }
  /// The chain of an open path and of its way back: the ends after `there` spans and after the last one have
  /// that form.
  RegionLoop Around(const std::vector<RegionSpan>& spans, std::size_t there, EndForm end);

  /// The distance below which points of the loops so far are one.
  double Resolution() const { return sketch_.Resolution(std::abs(left_), vias_); }

 private:
  /// The spans, from which of them on they are followed, and the cuts, counted from there.
  struct Chain {
    const std::vector<RegionSpan>& spans;
    std::size_t there;
    EndForm end;
    std::size_t start = 0;
    std::vector<LoopCut> cuts;
  };
  /// A span of the chain, and the ends of its offset.
  struct Link {
    const RegionSpan* source = nullptr;
    std::size_t place = 0;  ///< in the list of spans
    bool isBack = false;    ///< on the way back of a path
    Shape shape;
    Vector2d start, end;
  };
  /// The curve between the offsets of two spans: an arc, or lines from the new end of the first one over
  /// `via` to the new start of the second one.
  struct Joint {
    Vector2d end, start;
    Vector2d via[2];
    int viaCount = 0;
    bool isArc = false;
    bool isEnd = false;
    bool isSpur = false;
  };
  RegionLoop Follow(const Chain& chain);
  Joint CutAt(const Chain& chain, const LoopCut& cut, Link& after) const;
  void AddCuts(Chain& chain);
  void AddJoint(const Link& before, const Joint& joint, const Link& after);
  Vector2d Outwards(const Vector2d& tangent) const { return tangent.LeftNormal() * left_; }
  bool SetLink(const Chain& chain, std::size_t i, Link& link) const;
  Joint CornerOf(const Link& before, const Link& after, EndForm end) const;
  Joint EndOf(const Link& before, const Link& after, EndForm end) const;
  Joint SharpCornerOf(const Link& before, const Link& after, double turn) const;
  void AddSpan(const Link& link, const Vector2d& end);
  void AddCorner(const Link& before, const Joint& corner, const Link& after);
  void AddArc(const Link& before, const Joint& corner, RegionSpan origin);
  void AddMoved(const Link& link, const Vector2d& end);
  bool IsApart(const Vector2d& to) const;
  void Add(const RegionSpan& origin, std::int32_t dir, const Vector2d& to);
  void Append(const RegionSpan& origin, std::int32_t dir, const Vector2d& to);
  void Close(const Vector2d& start);

  const Sketch& sketch_;
  double left_, shortest_;
  RegionOffset options_;
  Box vias_;  ///< of the points of corners; sharp ones may be far away
  RegionLoop loop_;
  Vector2d at_;                     ///< where the loop has come to
  std::vector<std::size_t> spurs_;  ///< the spans before corners, or before arcs, with a spur
};

}  // namespace geometry::region
