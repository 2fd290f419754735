#include "contour/curve/spline.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vanzet::contour {
namespace {

/// A pole whose point is multiplied by its weight, so that poles can be averaged.
struct Weighted {
  Space sum;
  double weight;
};

Weighted WeightedOf(const Pole& pole) {
  return {pole.point * pole.weight, pole.weight};
}

Weighted Between(const Weighted& a, const Weighted& b, double share) {
  return {a.sum * (1 - share) + b.sum * share, a.weight * (1 - share) + b.weight * share};
}

/// The polar form of the piece of a spline from knot `span` to the next: the average of its poles that has
/// the pole j of the piece for degree - j times the one end and j times the other.
Pole PolarPole(const Spline& spline, std::size_t span, int endings) {
  const auto degree = static_cast<std::size_t>(spline.degree);
  const std::size_t first = span - degree;
  std::vector<Weighted> row;
  row.reserve(degree + 1);
  for (std::size_t i = 0; i <= degree; ++i) row.push_back(WeightedOf(spline.poles[first + i]));
  for (std::size_t round = 1; round <= degree; ++round) {
    const bool isEnd = round > degree - static_cast<std::size_t>(endings);
    const double at = spline.knots[isEnd ? span + 1 : span];
    for (std::size_t i = degree; i >= round; --i) {
      const double low = spline.knots[first + i], high = spline.knots[span + 1 + i - round];
      row[i] = Between(row[i - 1], row[i], (at - low) / (high - low));
    }
  }
  const Weighted& pole = row[degree];
  return {pole.sum * (1 / pole.weight), pole.weight};
}

/// A row of linear equations with three diagonals.
struct Row {
  double low, diagonal, high;
  Space right;
};

/// The unknowns, by elimination.
std::vector<Space> Solve(std::vector<Row> rows) {
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const double factor = rows[i].low / rows[i - 1].diagonal;
    rows[i].diagonal -= factor * rows[i - 1].high;
    rows[i].right = rows[i].right - rows[i - 1].right * factor;
  }
  std::vector<Space> solution(rows.size());
  for (std::size_t i = rows.size(); i-- > 0;) {
    const Space after = i + 1 < rows.size() ? solution[i + 1] * rows[i].high : Space{};
    solution[i] = (rows[i].right - after) * (1 / rows[i].diagonal);
  }
  return solution;
}

/// The condition that the curvature is continuous in a point, for the derivatives before, in and after it.
Row Smooth(const Space& before, const Space& at, const Space& after) {
  const double low = 1 / LengthOf(at - before), high = 1 / LengthOf(after - at);
  return {low, 2 * (low + high), high, ((at - before) * (low * low) + (after - at) * (high * high)) * 3};
}

/// The condition at an end: the derivative, or no curvature.
Row Ending(const std::optional<Space>& direction, const Space& chord) {
  if (direction) return {0, 1, 0, *direction * (1 / LengthOf(*direction))};
  return {0.5, 1, 0.5, chord * (1.5 / LengthOf(chord))};
}

std::vector<Space> OpenDerivatives(const std::vector<Space>& points, const EndDirections& ends) {
  std::vector<Row> rows = {Ending(ends.start, points[1] - points[0])};
  for (std::size_t i = 1; i + 1 < points.size(); ++i) {
    rows.push_back(Smooth(points[i - 1], points[i], points[i + 1]));
  }
  rows.push_back(Ending(ends.end, points.back() - points[points.size() - 2]));
  return Solve(std::move(rows));
}

/// The matrix of a closed curve has two more entries, in its corners. They are taken out as the product of
/// two vectors, whose share is put back into the solution.
std::vector<Space> ClosedDerivatives(const std::vector<Space>& points) {
  const std::size_t count = points.size() - 1;  // the last point is the first
  std::vector<Row> rows;
  for (std::size_t i = 0; i < count; ++i) {
    rows.push_back(Smooth(points[i == 0 ? count - 1 : i - 1], points[i], points[i + 1]));
  }
  const double corner = rows[0].low, shift = -rows[0].diagonal;
  const double ratio = corner / shift;
  rows[0].diagonal -= shift;
  rows[count - 1].diagonal -= corner * ratio;
  std::vector<Row> others = rows;
  for (Row& row : others) row.right = {};
  others[0].right.x = shift;
  others[count - 1].right.x = corner;
  std::vector<Space> solution = Solve(rows);
  const std::vector<Space> other = Solve(others);
  const Space sum = solution[0] + solution[count - 1] * ratio;
  const Space share = sum * (1 / (1 + other[0].x + other[count - 1].x * ratio));
  for (std::size_t i = 0; i < count; ++i) solution[i] = solution[i] - share * other[i].x;
  solution.push_back(solution[0]);
  return solution;
}

std::vector<Space> WithoutRepeats(std::vector<Space> points) {
  const auto isSame = [](const Space& a, const Space& b) { return LengthOf(a - b) <= 1e-9; };
  points.erase(std::unique(points.begin(), points.end(), isSame), points.end());
  return points;
}

}  // namespace

std::vector<Bezier> BeziersOf(const Spline& spline) {
  std::vector<Bezier> beziers;
  for (auto span = static_cast<std::size_t>(spline.degree); span < spline.poles.size(); ++span) {
    if (!(spline.knots[span] < spline.knots[span + 1])) continue;
    Bezier& bezier = beziers.emplace_back();
    for (int j = 0; j <= spline.degree; ++j) bezier.push_back(PolarPole(spline, span, j));
  }
  return beziers;
}

std::vector<Bezier> CurveThrough(const std::vector<Space>& given, const EndDirections& ends, bool closed) {
  std::vector<Space> points = given;
  if (closed && !points.empty()) points.push_back(points.front());
  points = WithoutRepeats(std::move(points));
  if (points.size() < 2) return {};
  const bool isLoop = closed && points.size() > 3;
  const std::vector<Space> slopes = isLoop ? ClosedDerivatives(points) : OpenDerivatives(points, ends);
  std::vector<Bezier> beziers;
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const double third = LengthOf(points[i + 1] - points[i]) / 3;
    beziers.push_back({{points[i]},
                       {points[i] + slopes[i] * third},
                       {points[i + 1] - slopes[i + 1] * third},
                       {points[i + 1]}});
  }
  return beziers;
}

}  // namespace vanzet::contour
