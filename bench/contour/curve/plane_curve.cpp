#include "contour/curve/plane_curve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include "contour/curve/spline.h"

namespace vanzet::contour {
namespace {

using geometry::Point;
using geometry::Vector2d;

/// A turn of the direction by more than this is a corner, in radians.
constexpr double kCorner = 1e-3;

/// Neighbouring points of a curve whose directions differ by more than this may have a tip between them.
constexpr double kSharpTurn = 1;

double ExtentOf(const PlaneBezier& bezier) {
  double extent = 0;
  for (const PlanePole& pole : bezier) extent = std::max(extent, Dist(bezier.front().point, pole.point));
  return extent;
}

/// Whether a curve is as short as the rounding of its points: its directions are noise.
bool IsPointLike(const PlaneBezier& bezier) {
  constexpr double kPointLike = 1e-9, kRounding = 1e-14;
  const Point& start = bezier.front().point;
  return ExtentOf(bezier) <=
         std::max(kPointLike, kRounding * std::max(std::fabs(start.x), std::fabs(start.y)));
}

Vector2d UnitOf(const Vector2d& v) {
  return v * (1 / v.Magnitude());
}

PlanePole Between(const PlanePole& a, const PlanePole& b, double share) {
  const double ofA = a.weight * (1 - share), ofB = b.weight * share, weight = ofA + ofB;
  return {Point((a.point.x * ofA + b.point.x * ofB) / weight, (a.point.y * ofA + b.point.y * ofB) / weight),
          weight};
}

/// The direction from the first point of the row to the first of the others that is not the same.
template <class Iterator>
Vector2d FirstDirection(Iterator pole, Iterator end, double extent) {
  const Point start = pole->point;
  Vector2d direction(1, 0);
  double length = 0;
  for (++pole; pole != end && length <= 1e-7 * extent; ++pole) {
    const Vector2d reached(start, pole->point);
    length = reached.Magnitude();
    if (length > 0) direction = UnitOf(reached);
  }
  return direction;
}

Vector2d StartDirection(const PlaneBezier& bezier) {
  return FirstDirection(bezier.begin(), bezier.end(), ExtentOf(bezier));
}

Vector2d EndDirection(const PlaneBezier& bezier) {
  return -FirstDirection(bezier.rbegin(), bezier.rend(), ExtentOf(bezier));
}

/// The point and the direction inside of a curve, by averaging its poles until two are left.
CurveSpot InsideOf(const PlaneBezier& bezier, double t) {
  std::array<PlanePole, kHighestDegree + 1> row;
  std::ranges::copy(bezier, row.begin());
  for (std::size_t count = bezier.size() - 1; count > 1; --count) {
    for (std::size_t i = 0; i < count; ++i) row[i] = Between(row[i], row[i + 1], t);
  }
  const Vector2d along(row[0].point, row[1].point);
  const bool isStill = along.dx == 0 && along.dy == 0;
  return {Between(row[0], row[1], t).point, isStill ? StartDirection(bezier) : UnitOf(along)};
}

CurveSpot SpotOf(const PlaneBezier& bezier, double t) {
  if (t <= 0) return {bezier.front().point, StartDirection(bezier)};
  if (t >= 1) return {bezier.back().point, EndDirection(bezier)};
  return InsideOf(bezier, t);
}

struct Halves {
  PlaneBezier before, after;
};
Halves SplitAt(PlaneBezier row, double t) {
  Halves halves;
  while (true) {
    halves.before.push_back(row.front());
    halves.after.push_back(row.back());
    if (row.size() == 1) break;
    for (std::size_t i = 0; i + 1 < row.size(); ++i) row[i] = Between(row[i], row[i + 1], t);
    row.pop_back();
  }
  std::ranges::reverse(halves.after);
  return halves;
}

double TurnBetween(const PlaneBezier& bezier, double from, double to) {
  return std::fabs(TurnOf(SpotOf(bezier, from).direction, SpotOf(bezier, to).direction));
}

/// The place within a short stretch where the curve turns back: there the direction jumps, however short the
/// stretch is made.
std::optional<double> TipWithin(const PlaneBezier& bezier, double from, double to) {
  constexpr int kHalvings = 40;
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = (from + to) / 2;
    if (TurnBetween(bezier, from, middle) >= TurnBetween(bezier, middle, to)) {
      to = middle;
    } else {
      from = middle;
    }
    if (TurnBetween(bezier, from, to) < kSharpTurn) return {};
  }
  return (from + to) / 2;
}

std::optional<double> FirstTip(const PlaneBezier& bezier) {
  if (bezier.size() < 3 || IsPointLike(bezier)) return {};
  const double steps = 6.0 * static_cast<double>(bezier.size());
  Vector2d before = StartDirection(bezier);
  for (double i = 0; i < steps; ++i) {
    const double from = i / steps, to = (i + 1) / steps;
    const Vector2d after = SpotOf(bezier, to).direction;
    const double turn = std::fabs(TurnOf(std::exchange(before, after), after));
    if (turn < kSharpTurn) continue;
    const auto tip = TipWithin(bezier, from, to);
    if (tip && *tip > 1e-9 && *tip < 1 - 1e-9) return tip;
  }
  return {};
}

}  // namespace

double TurnOf(const Vector2d& from, const Vector2d& to) {
  return std::atan2(Cross(from, to), Dot(from, to));
}

CurveSpot SmoothCurve::At(double u) const {
  const std::size_t last = beziers_.size() - 1;
  const std::size_t i = std::min(static_cast<std::size_t>(u), last);
  return SpotOf(beziers_[i], u - static_cast<double>(i));
}

std::vector<CurveSpot> SmoothCurve::Between(double from, double to) const {
  constexpr double kLeast = 16;
  const double first = std::floor(from), count = std::ceil(to) - first;
  std::vector<CurveSpot> spots;
  for (double i = first; i < first + count; ++i) {
    const PlaneBezier& bezier = beziers_[static_cast<std::size_t>(i)];
    const double low = std::max(from - i, 0.0), high = std::min(to - i, 1.0);
    const double steps =
        std::ceil(std::max(2.0 * static_cast<double>(bezier.size()) * (high - low), kLeast / count));
    for (double k = 1; k <= steps; ++k) spots.push_back(SpotOf(bezier, low + (high - low) * (k / steps)));
  }
  return spots;
}

std::vector<SmoothCurve> SmoothParts(const std::vector<PlaneBezier>& beziers) {
  std::vector<SmoothCurve> parts;
  const auto add = [&](const PlaneBezier& bezier) {
    if (IsPointLike(bezier)) return;
    const bool isCorner = parts.empty() || std::fabs(TurnOf(parts.back().At(parts.back().End()).direction,
                                                            StartDirection(bezier))) > kCorner;
    if (isCorner) parts.emplace_back();
    parts.back().Add(bezier);
  };
  for (PlaneBezier rest : beziers) {
    // The derivative of a rational curve of degree n is 0 at fewer than 2n places: more tips are rounding.
    const std::size_t mostTips = 2 * rest.size();
    for (std::size_t i = 0; i < mostTips; ++i) {
      const auto tip = FirstTip(rest);
      if (!tip) break;
      Halves halves = SplitAt(std::move(rest), *tip);
      add(halves.before);
      rest = std::move(halves.after);
    }
    add(rest);
  }
  return parts;
}

}  // namespace vanzet::contour
