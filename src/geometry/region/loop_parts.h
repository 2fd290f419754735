#pragma once

#include <vector>

#include "geometry/region/box_tree.h"
#include "geometry/region/curve.h"
#include "geometry/region/sketch.h"

namespace geometry::region {

/// Closed loops, cut into parts that are monotone in x and y. The parts of a loop follow each other.
class LoopParts {
 public:
  /// The first and the last part of a loop.
  struct Loop {
    std::uint32_t first = 0, last = 0;
    bool isAnticlockwise = false;  ///< if the loop does not cross itself
  };

  /// The margin is 16 times the resolution, and more where arcs are not exact or parts not quite monotone.
  LoopParts(const Sketch& sketch, double resolution);

  /// Prepares for loops of so many spans in all.
  void Reserve(std::size_t spans);
  /// Returns false for a loop with arcs that are too inexact for a comparison.
  bool Add(const RegionLoop& loop);

  double Margin() const { return margin_; }
  Curve operator[](std::uint32_t i) const;
  std::size_t Count() const { return parts_.size(); }
  std::uint32_t Next(std::uint32_t i) const { return parts_[i].next; }
  /// The number of the span that it is a part of, over all loops.
  std::uint32_t SpanOf(std::uint32_t i) const { return parts_[i].span; }
  /// The boxes of the parts, grown by the margin. Call this once, after all loops.
  std::vector<BoxTree::Item> TakeBoxes();
  const std::vector<Loop>& Loops() const { return loops_; }
  /// Whether the part is too short for a comparison.
  bool IsShort(std::uint32_t i) const;
  /// The parts that no line through their end separates from the next one, and all short ones.
  const std::vector<std::uint32_t>& DoubtfulJoints() const { return doubtful_; }
  double Top() const { return top_; }

 private:
  struct Part {
    Vector2d a, b;
    double k;
    std::uint32_t next, span;
  };
  /// The part before, as far as a joint is concerned.
  struct Arrival {
    Vector2d chord, tangent;
  };
  void Widen(double inexact);
  bool AddArc(const RegionSpan& span, const Vector2d& a, const Vector2d& b);
  void AddLine(const Vector2d& a, const Vector2d& b);
  void AddPart(const Vector2d& a, const Vector2d& b, double k, const Tangents& tangents);
  void CheckJoint(std::uint32_t before, const Vector2d& at, const Vector2d& chord, const Vector2d& tangent);
  Vector2d Local(const Point& p) const { return {p.x - base_.dx, p.y - base_.dy}; }

  Vector2d base_;
  double shortest_, margin_;
  std::vector<Part> parts_;
  std::vector<BoxTree::Item> boxes_;
  std::vector<Loop> loops_;
  std::vector<std::uint32_t> doubtful_;
  std::uint32_t spanCount_ = 0;
  Arrival arrival_;
  Vector2d firstTangent_, leftmost_;
  double top_ = -1e300;
};

}  // namespace geometry::region
