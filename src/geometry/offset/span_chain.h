#pragma once

#include "geometry/kurveex.h"
#include "geometry/offset/box_levels.h"

namespace geometry {

/// A raw offset, with all that the removal of loops needs of it.
struct RawContour {
  KurveEx contour;
  std::vector<FlatBox> boxes;  ///< of its spans
  bool joined = false;         ///< each span begins exactly at the end of the one before it
  bool summed = false;         ///< the totals are those of its spans
};

/// The spans of a raw offset while they are made.
///
/// An added span begins where the chain ends, as in `KurveEx::Add`, and has its tangents at once, but its
/// measures only when the next one follows: until then its end may move. A span is thus complete while it is
/// still at hand, and nobody goes through the spans again for boxes and totals.
///
/// Errors   what `SetProperties` throws
class SpanChain {
 public:
  void Reserve(std::size_t spans);

  bool Started() const { return k_.start.ok; }
  void Start(const Point& p) { k_.Start(p); }
  Point End() const { return k_.spans.empty() ? k_.start : k_.spans.back().p1; }

  /// Adds a target whose tangents are set, with its ID and index words. One that is null then is left out.
  void Add(const Span& target);
  /// Adds a target as it is, null or not.
  void AddAsIs(const Span& target);
  void AddNull(const Point& p, std::uint32_t ID);
  /// Adds an arc from the end of the chain; a null one is left out unless `keepNull`.
  void AddArc(int dir, const Point& end, const Point& centre, std::uint32_t ID, bool keepNull);

  /// The last span becomes one along `along` that ends at `p`.
  void MoveEnd(const Span& along, const Point& p);
  void MoveStart(const Point& p);

  RawContour Take();

 private:
  void Settle(Span& added, const Point& begin);
  void DropNull();
  void CompleteAllButLast();
  void Complete(Span& span);

  KurveEx k_;
  std::vector<FlatBox> boxes_;   ///< of the spans that are complete
  double perim_ = 0, area_ = 0;  ///< theirs
  bool startMoved_ = false;      ///< since the first one was complete
};

}  // namespace geometry
