#pragma once

#include <cstddef>
#include <vector>

#include "geometry/kurveex.h"
#include "geometry/region.h"

/// Contours of lines and arcs: from files and back, questions about them and contours made of them. All
/// lengths are millimetres. Directions follow the geometry library: anticlockwise is 1, clockwise -1.
namespace vanzet::contour {

/// A contour of a file. `curve` has at least one span and is never read in reverse.
///
/// The library has lines for arcs that are very small, short or flat. `drawn` has all spans as they are in
/// the file when it has such an arc, and is empty otherwise. What is made of `curve` alone has no `drawn`.
struct Contour {
  int number = 1;  ///< the number in its file; contours of a drawing are numbered from 1
  geometry::KurveEx curve;
  int arcsAsLines = 0;  ///< how many arcs of its file are too small for the library, which has lines for them
  std::vector<geometry::RegionSpan> drawn = {};
};
using Contours = std::vector<Contour>;

/// The spans of the contour as they were drawn.
std::vector<geometry::RegionSpan> SpansOf(const Contour& contour);

/// The largest coordinate of a contour: 10 km.
inline constexpr double kLargestCoordinate = 1e7;

/// The most vertices of a file or a result.
inline constexpr std::size_t kMostVertices = 1'000'000;

}  // namespace vanzet::contour
