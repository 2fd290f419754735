#pragma once

#include <optional>
#include <vector>

#include "geometry/region/loop_parts.h"

namespace geometry::region {

/// The spans of closed loops of which it is proved that they meet nothing but the next span of their loop, in
/// the common end. The proof compares parts, which are lines or arcs that are monotone in x and y:
/// - Parts that follow each other along a loop and all advance in a common direction do not meet but where
///   one ends and the next one begins.
/// - Two parts that follow each other do not meet again if a line through their common end separates them.
/// - Any other two parts are apart if their boxes are. Else they are compared as in the arrangement
///   (curve.h), which would not cut them either.
/// Where very many pairs are known to meet, all are taken to.
/// All this with a margin of 16 r (geometry/region.h), thousands of times the rounding of coordinates. Parts
/// that are shorter than 4096 r prove nothing, nor loops with arcs whose ends differ in radius by more than a
/// millionth of their chord.
class SeparateLoops {
 public:
  SeparateLoops(const Sketch& sketch, const std::vector<RegionLoop>& loops, double resolution);

  /// Whether something is proved; otherwise nothing below may be used.
  bool IsSound() const { return isSound_; }
  /// The number of spans of all loops that may meet others, and whether a span does.
  std::size_t MeetingCount() const { return meetingCount_; }
  bool Meets(std::size_t span) const { return meets_[span]; }
  const LoopParts& Parts() const { return parts_; }

  /// Of loops that meet nothing, those that bound the points of a positive winding number, by size.
  ///
  /// Such a loop is a Jordan curve, so the winding number steps by one at it and nowhere else. With w the
  /// number that all other loops make at one of its points, which is the same at all of them, it is w + 1 on
  /// the inside of an anticlockwise loop and w - 1 on that of a clockwise one, and w outside. A loop is a
  /// boundary of the positive set exactly when it is anticlockwise and w = 0, or clockwise and w = 1. The
  /// others, such as the inverted loop of a part that is gone, are left out. Nothing else of the loops
  /// matters: neither where they come from nor what is near to what.
  /// Requires: no span meets another; `loops` are those of the constructor.
  Region TakeBoundary(std::vector<RegionLoop>& loops) const;

 private:
  void Mark(std::uint32_t part);
  void MarkAll();
  void Compare();
  bool AreApart(std::uint32_t i, std::uint32_t j) const;
  bool MeetAgain(std::uint32_t i, std::uint32_t j) const;
  bool IsNear(const Vector2d& p, const Vector2d& q) const;
  bool IsNearlyCusp(const Curve& a, const Curve& b) const;
  int TurnsAround(const LoopParts::Loop& loop) const;

  LoopParts parts_;
  bool isSound_ = true;
  std::optional<BoxTree> tree_;
  std::vector<bool> meets_;
  std::size_t meetingCount_ = 0;
};

}  // namespace geometry::region
