#pragma once

#include <cstddef>
#include <vector>

#include "geometry/kurveex.h"

/// Contours from files and back, and what can be asked of them. All lengths are millimetres, angles of arcs
/// follow the library: anticlockwise is 1, clockwise -1.
namespace vanzet::contour {

/// A contour of a file. `curve` has at least one span and is never read in reverse.
struct Contour {
  int number = 1;  ///< as its file calls it; contours of a drawing are numbered from 1
  geometry::KurveEx curve;
};
using Contours = std::vector<Contour>;

/// No coordinate of a contour is larger: 10 km.
inline constexpr double kLargestCoordinate = 1e7;

/// No file, and no result, has more vertices.
inline constexpr std::size_t kMostVertices = 1'000'000;

}  // namespace vanzet::contour
