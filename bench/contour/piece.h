#pragma once

#include <vector>

#include "base/result.h"
#include "contour/contour.h"

namespace vanzet::contour {

/// A line or an arc by its end and its bulge, the tangent of a quarter of its angle: 0 a line, above 0
/// anticlockwise, 1 half a turn. Ends can be moved without the angle being lost.
struct Segment {
  geometry::Point end;
  double bulge = 0;
};

/// Segments one after the other, as a drawing holds them: a single line or a whole polyline.
struct Piece {
  geometry::Point start;
  std::vector<Segment> segments;
  int line = 0;  ///< of the drawing's file, for faults

  const geometry::Point& End() const { return segments.empty() ? start : segments.back().end; }

  /// The same way back.
  void Reverse();

  /// Multiplies all lengths.
  void Scale(double factor);
};

/// A fault when a vertex is not within `kLargestCoordinate`.
Result<void> CheckPiece(const Piece& piece);

/// The piece as a contour. Refused without a place for what `Builder` refuses.
Result<geometry::KurveEx> CurveOf(const Piece& piece);

}  // namespace vanzet::contour
