#pragma once

#include <vector>

#include "geometry/kurveex.h"

/// Regions of the plane, bounded by lines and arcs: cleaning, union, intersection, difference.
///
/// Every operation makes one arrangement of its curves and takes the faces that a rule of winding numbers
/// names. A boundary thus always consists of closed loops. docs/contours/region.md explains the steps.
///
/// Method   The curves are normalised as in V. Milenkovic, "Verifiable implementations of geometric
///          algorithms using finite precision arithmetic", Artificial Intelligence 37 (1988), repeated until
///          nothing changes as in D. Halperin and E. Packer, "Iterated snap rounding", Computational Geometry
///          23 (2002): with r = 2^-43 of the extent (not below 2^-50 of the largest coordinate), points
///          nearer than r are one vertex, a curve that passes a vertex within r passes through it, and curves
///          meet in vertices only. Predicates are then unambiguous in doubles. The result is verified
///          (Euler's formula, one winding number for each face) before it is used; if that fails, r grows
///          eightfold, three times, and then the operation fails
///          Spans of offset curves that are proved to be farther than 16 r from all but the next one are not
///          arranged. If that holds for all spans, each loop is a boundary or is left out, by its winding
///          number; otherwise runs of them are edges as a whole
/// Accuracy vertices within a few r; arcs keep their centre and radius
/// Cost     n log n for contours whose spans are near few others; up to one and a half times that of
///          `KurveEx::Offset` for offsets whose curves do not meet
namespace geometry {

/// A line or an arc of a region's boundary. `ID` and words are those of the span that it is a part of.
///
/// Shape  as `Span`: an arc goes round `pc` in direction `dir`, by less than a full turn
struct RegionSpan {
  std::int32_t dir = LINEAR;
  Point p0, p1, pc;
  std::uint32_t ID = UNMARKED;
  IndexWord index0 = 0, index1 = 0;

  double Length() const;
  double Radius() const;  ///< 0 for a line
};

/// A closed loop. Each span begins exactly where the one before it ends.
struct RegionLoop {
  std::vector<RegionSpan> spans;

  /// Positive anticlockwise, which is opposite to `KurveEx`. The error is a few bits of the loop's own size,
  /// wherever the loop is and however large the radii are.
  double Area() const;
  double Perimeter() const;
  bool IsHole() const { return Area() < 0; }
};

/// A set of points, bounded by loops with the set on their left: outsides anticlockwise, holes clockwise.
///
/// Shape   a loop passes no point twice, and loops meet in common vertices only; large loops come first.
///         `loose` are curves of a drawing that are outside of the set on both sides; it does not hold them
/// Errors  `ok` is false when coordinates are not finite, or the curves could not be normalised; the region
///         has no loops then
struct Region {
  std::vector<RegionLoop> loops;
  std::vector<RegionSpan> loose;
  bool ok = true;

  double Area() const;
  double Perimeter() const;  ///< of the loops
};

/// The points that belong to a set of contours, by the number of turns that these make around a point.
enum class FillRule { EvenOdd, NonZero, Positive };

/// The contour as a region. It may cross or touch itself, or run over itself; an open one is closed by a
/// line.
Region Clean(const KurveEx& contour, FillRule rule = FillRule::EvenOdd);
Region Clean(const std::vector<KurveEx>& contours, FillRule rule = FillRule::EvenOdd);
/// The same for a region's loops, which may be any closed loops here.
Region Clean(const Region& loops, FillRule rule);

/// The set operations. Requires: both are results of this header, or as clean as these.
Region Unite(const Region& a, const Region& b);
Region Intersect(const Region& a, const Region& b);
Region Subtract(const Region& a, const Region& b);

/// The form of the corners that an offset opens: an arc about the corner; the sharp corner of the tangents,
/// unless it is farther from the corner than the limit times the distance; or a line that touches the arc in
/// its middle, which also takes the place of a sharp corner beyond the limit. Nothing comes nearer than the
/// distance by any of them.
enum class Corner { Round, Miter, Chamfer };

struct RegionOffset {
  Corner corner = Corner::Round;
  double miterLimit = 4;
};

/// The points that are farther than `distance` from what is outside of the region, or with a distance below 0
/// the region and all points within -distance of it or of its loose curves. Islands, splits, merges and
/// vanishing parts are right by construction.
///
/// IDs   a span has the ID and the words of the span that it is parallel to, a corner those of the span after
///       it, the ID marked with ROLL_AROUND
Region OffsetRegion(const Region& region, double distance, const RegionOffset& options = {});

/// The form of the ends of a thick path: half a disc; half a square; or nothing beyond the path's end.
enum class PathEnd { Round, Square, Butt };

/// The points within `distance` of the paths, which may be open, closed, and cross themselves and each other.
/// Not ok when the distance is below 0 or a path is not sound.
Region Thicken(const std::vector<KurveEx>& paths, double distance, PathEnd end = PathEnd::Round,
               const RegionOffset& options = {});
Region Thicken(const KurveEx& path, double distance, PathEnd end = PathEnd::Round,
               const RegionOffset& options = {});
/// The same for a region's loops, which may be open here.
Region Thicken(const Region& paths, double distance, PathEnd end, const RegionOffset& options);

/// A part of a path's offset, in the direction of the path.
struct RegionPath {
  std::vector<RegionSpan> spans;
  bool isClosed = false;
};

/// The offset of a path to its left, or with a distance below 0 to its right: what the boundary of the path,
/// thickened with round ends, has on that side, without the ends. The parts are in the order of the path;
/// where the path comes too near to itself something is missing between them.
std::vector<RegionPath> OffsetPath(const KurveEx& path, double distance, const RegionOffset& options = {});

/// The distance between two contours; 0 when they meet.
double NearestDistance(const KurveEx& a, const KurveEx& b);

/// The finding about an offset, and its place.
struct OffsetCheck {
  enum class Finding { Clean, Crosses, TooNear };
  Finding finding = Finding::Clean;
  Point place;         ///< of the first crossing, or nearest to the source
  double nearest = 0;  ///< the distance from the source, at its least
};

/// Checks a contour that was made as an offset of `source` by |distance|: whether it crosses itself, or comes
/// nearer to the source by more than 5 `TOLERANCE`, which is what the steps of `KurveEx::Offset` may leave at
/// corners. Throws what `NearestDistance` throws.
OffsetCheck CheckOffset(const KurveEx& source, const KurveEx& result, double distance);
bool OffsetIsClean(const KurveEx& source, const KurveEx& result, double distance);

/// The loop as a contour. Spans and arcs below `TOLERANCE` become what `Span::SetProperties` makes of them.
KurveEx ContourOf(const RegionLoop& loop);

}  // namespace geometry
