#pragma once

#include <cstddef>
#include <vector>

#include "geometry/kurveex.h"

/// Contours of lines and arcs: from files and back, questions about them and contours made of them. All
/// lengths are millimetres. Directions follow the geometry library: anticlockwise is 1, clockwise -1.
namespace vanzet::contour {

/// A contour of a file. `curve` has at least one span and is never read in reverse.
struct Contour {
  int number = 1;  ///< the number in its file; contours of a drawing are numbered from 1
  geometry::KurveEx curve;
  int arcsAsLines = 0;  ///< how many arcs of its file are too small for the library, which has lines for them
};
using Contours = std::vector<Contour>;

/// The largest coordinate of a contour: 10 km.
inline constexpr double kLargestCoordinate = 1e7;

/// The most vertices of a file or a result.
inline constexpr std::size_t kMostVertices = 1'000'000;

}  // namespace vanzet::contour
