#pragma once

#include <vector>

#include "base/result.h"
#include "contour/contour.h"

/// The lines and arcs of drawings by bulges, and how they are joined to contours.
namespace vanzet::contour {

/// A line or an arc by its end and its bulge, the tangent of a quarter of its angle: 0 for a line, above 0
/// anticlockwise, 1 for half a turn. Its ends can be moved without losing the angle.
struct Segment {
  geometry::Point end;
  double bulge = 0;
};

/// Consecutive segments of a drawing: a single line or a whole polyline.
struct Piece {
  geometry::Point start;
  std::vector<Segment> segments;
  int line = 0;  ///< of the drawing's file, for faults

  const geometry::Point& End() const { return segments.empty() ? start : segments.back().end; }

  /// Turns the direction round.
  void Reverse();

  /// Multiplies all lengths.
  void Scale(double factor);
};

/// Fails when a vertex is not within `kLargestCoordinate`.
Result<void> CheckPiece(const Piece& piece);

/// The piece as a contour with this number. Fails without a place for what `Builder` refuses.
Result<Contour> ContourOf(int number, const Piece& piece);

/// Joins pieces whose ends are not farther apart than `tolerance`, in millimetres, into longer ones.
///
/// The first remaining piece begins a longer one and determines its direction. It grows at its end until it
/// closes or no end is near, then at its start. The nearest end is taken, of equally near ones the first in
/// the drawing; a piece that fits the other way is turned round, and its near end is moved to the end that it
/// joins. A piece that closes ends exactly where it starts. Requires: all coordinates within
/// `kLargestCoordinate`; `tolerance` not below 0.
std::vector<Piece> Join(std::vector<Piece> pieces, double tolerance);

}  // namespace vanzet::contour
