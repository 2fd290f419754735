#pragma once

#include <optional>
#include <vector>

#include "contour/curve/space.h"

namespace vanzet::contour {

/// A control point of a curve.
struct Pole {
  Space point;
  double weight = 1;
};

/// A rational curve of Bezier: one pole more than its degree, from the first pole to the last.
using Bezier = std::vector<Pole>;

inline constexpr int kHighestDegree = 25;

/// A B-spline as drawings have it. One over a closed or periodic range repeats its poles.
///
/// Requires   a degree from 1 to `kHighestDegree`; as many knots as poles + degree + 1, which do not descend;
///            weights above 0; all numbers finite
struct Spline {
  int degree = 3;
  std::vector<double> knots;
  std::vector<Pole> poles;
};

/// The curve between its first and its last full knot as consecutive curves of Bezier. Where a knot repeats
/// more often than the degree, the next one does not begin where the former ends.
std::vector<Bezier> BeziersOf(const Spline& spline);

/// The directions of a curve at its ends, where they are given.
struct EndDirections {
  std::optional<Space> start, end;
};

/// The cubic curve through the given points whose curvature is continuous, by the lengths of its chords. Its
/// ends are not bent where no direction is given; a closed one returns to its first point. Points that
/// repeat are dropped.
std::vector<Bezier> CurveThrough(const std::vector<Space>& given, const EndDirections& ends, bool closed);

}  // namespace vanzet::contour
