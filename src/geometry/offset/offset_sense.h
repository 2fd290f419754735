#pragma once

#include "geometry/span.h"

namespace geometry {

/// The side to which an offset goes, and its consequences for corners.
///
/// A contour under `reversed` is offset as it is stored, to the other side. Its corners are still judged by
/// `offset` and `direction`, so those that are inward for its reader count as outward and get roll arcs; the
/// removal of loops trims these, except where the contour closes.
struct OffsetSense {
  double offset;
  int direction;
  double off;   ///< to the left of the stored direction
  int rollDir;  ///< of the roll arcs

  OffsetSense(double signedOffset, int offsetDirection, bool isReversed);

  /// Whether neighbours cross rather than gape at the corner between them.
  bool Inward(const Span& previous, const Span& current) const;
};

/// An arc about `centre` without its start; its properties are not set.
Span RollArc(int dir, const Point& end, const Point& centre, std::uint32_t ID);

/// The crossing of the lines or circles of two neighbours, on the side of the corner between them.
/// INVALID_POINT when they do not cross.
Point CarrierCrossing(const Span& before, const Span& after);

/// The code of a closed offset by the areas before and after: 0, 2 or 3.
int CodeOfAreas(double sourceArea, double offsetArea, double off);

}  // namespace geometry
