#pragma once

#include <vector>

#include "geometry/region/sketch.h"

namespace geometry::region {

/// A span of a closed chain that is offset: its shape and where it comes from.
struct ChainLink {
  Shape shape;
  RegionSpan source;
};

/// The end of an open path: a corner of half a turn, whose spans carry no words, or no end but a corner.
enum class EndForm { kCorner, kRound, kSquare, kButt };

/// Adds to a sketch the offset of closed chains, at a signed distance to the left.
///
/// Each span sweeps the strip between it and its offset, and each corner that opens on that side a sector.
/// The curve is the boundary of all of them, counted as often as they overlap: the boundary of the chain's
/// own set, less the strips on its left or with the strips on its right. A face thus belongs to the offset
/// set exactly when its winding number is positive. What the strips have in common at a corner of the other
/// kind is passed as a spur to the corner and back, or cut off where nothing depends on it.
class OffsetChain {
 public:
  OffsetChain(Sketch& sketch, double left, const RegionOffset& options)
      : sketch_(sketch), left_(left), options_(options) {}

  /// Requires: the links have a length, and each begins where the one before it ends.
  void Add(const std::vector<ChainLink>& links) { Add(links, links.size(), EndForm::kCorner); }
  /// The chain of an open path and of its way back: the ends after `there` links and after the last one have
  /// that form.
  void Add(const std::vector<ChainLink>& links, std::size_t there, EndForm end);

 private:
  /// A source span's offset, which corners lengthen.
  struct Moved {
    Vector2d start, end;
  };
  Vector2d Outwards(const Vector2d& tangent) const { return tangent.LeftNormal() * left_; }
  void AddSpan(const ChainLink& link, const Moved& moved);
  bool Shorten(const ChainLink& before, Moved& from, const ChainLink& after, Moved& to) const;
  void AddCorner(const ChainLink& before, Moved& from, const ChainLink& after, Moved& to);
  void AddSharp(const ChainLink& before, Moved& from, const ChainLink& after, Moved& to, double turn);
  void AddRound(const ChainLink& before, const Moved& from, const Moved& to, const Tangents& tangents,
                double turn, const RegionSpan& corner);
  void AddEnd(const ChainLink& before, const Moved& from, const Moved& to, EndForm end);
  void Extend(const ChainLink& link, Vector2d& end, const Vector2d& to, bool atEnd);

  Sketch& sketch_;
  double left_;
  RegionOffset options_;
};

}  // namespace geometry::region
