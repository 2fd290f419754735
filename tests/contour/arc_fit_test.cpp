#include "contour/curve/arc_fit.h"

#include <algorithm>
#include <random>

#include "contour/curve/spline.h"
#include "contour_fixture.h"

namespace vanzet::contour {
namespace {

using geometry::Point;
using geometry::Vector2d;

/// A spline by the recursion of its base functions, apart from the code that is tested.
class Curve {
 public:
  explicit Curve(Spline spline) : spline_(std::move(spline)) {}

  double From() const { return spline_.knots[static_cast<std::size_t>(spline_.degree)]; }
  double To() const { return spline_.knots[spline_.poles.size()]; }

  Point At(double parameter) const {
    const double t = std::clamp(parameter, From(), To());
    double x = 0, y = 0, weights = 0;
    for (std::size_t i = 0; i < spline_.poles.size(); ++i) {
      const double share = Base(i, spline_.degree, t) * spline_.poles[i].weight;
      x += share * spline_.poles[i].point.x;
      y += share * spline_.poles[i].point.y;
      weights += share;
    }
    return {x / weights, y / weights};
  }

  std::vector<PlaneBezier> Beziers() const {
    std::vector<PlaneBezier> beziers;
    for (const Bezier& bezier : BeziersOf(spline_)) {
      PlaneBezier& plane = beziers.emplace_back();
      for (const Pole& pole : bezier) plane.push_back({{pole.point.x, pole.point.y}, pole.weight});
    }
    return beziers;
  }

  const Spline& spline() const { return spline_; }

 private:
  double Base(std::size_t i, int degree, double t) const {
    const std::vector<double>& u = spline_.knots;
    const auto p = static_cast<std::size_t>(degree);
    if (t < u[i] || t > u[i + p + 1]) return 0;
    if (degree == 0) {
      const bool isLast = t == To() && u[i + 1] == To() && u[i] < u[i + 1];
      return (t >= u[i] && t < u[i + 1]) || isLast ? 1 : 0;
    }
    const double left = u[i + p] - u[i], right = u[i + p + 1] - u[i + 1];
    return (left > 0 ? (t - u[i]) / left * Base(i, degree - 1, t) : 0) +
           (right > 0 ? (u[i + p + 1] - t) / right * Base(i + 1, degree - 1, t) : 0);
  }

  Spline spline_;
};

/// An arc or a line, with distances by its centre.
struct Shape {
  Point from, to, centre;
  double radius = 0, start = 0, sweep = 0;  ///< no radius: a line

  Shape(const Point& a, const Segment& segment) : from(a), to(segment.end) {
    if (segment.bulge == 0) return;
    sweep = 4 * std::atan(segment.bulge);
    const double chord = Dist(from, to), height = chord / 2 / std::tan(sweep / 2);
    const double x = (to.x - from.x) / chord, y = (to.y - from.y) / chord;
    centre = Point((from.x + to.x) / 2 - y * height, (from.y + to.y) / 2 + x * height);
    radius = Dist(centre, from);
    start = std::atan2(from.y - centre.y, from.x - centre.x);
  }

  Point At(double share) const {
    if (radius == 0) return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
    const double angle = start + sweep * share;
    return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
  }

  double Distance(const Point& p) const {
    const double ends = std::min(Dist(p, from), Dist(p, to));
    if (radius == 0) {
      const double square = (to.x - from.x) * (to.x - from.x) + (to.y - from.y) * (to.y - from.y);
      const double share = ((p.x - from.x) * (to.x - from.x) + (p.y - from.y) * (to.y - from.y)) / square;
      return share > 0 && share < 1 ? Dist(p, At(share)) : ends;
    }
    const double side = sweep > 0 ? 1 : -1;
    double angle = side * (std::atan2(p.y - centre.y, p.x - centre.x) - start);
    while (angle < 0) angle += 2 * kPi;
    return angle <= std::fabs(sweep) ? std::fabs(Dist(p, centre) - radius) : ends;
  }

  double DirectionAt(bool atEnd) const {
    if (radius == 0) return std::atan2(to.y - from.y, to.x - from.x);
    return start + (atEnd ? sweep : 0) + (sweep > 0 ? kPi / 2 : -kPi / 2);
  }
};

class ArcFitTest : public ContourTest {
 protected:
  static std::vector<Shape> Fit(const Curve& curve, double tolerance) {
    ArcBudget budget(tolerance);
    const auto segments = FitArcs(curve.Beziers(), budget);
    std::vector<Shape> shapes;
    if (!segments) ADD_FAILURE() << segments.fault().text;
    if (!segments) return shapes;
    Point at = curve.At(curve.From());
    for (const Segment& segment : *segments) {
      shapes.emplace_back(at, segment);
      at = segment.end;
    }
    return shapes;
  }

  static std::vector<Point> Sampled(const Curve& curve, int count) {
    std::vector<Point> points;
    for (int i = 0; i <= count; ++i) {
      points.push_back(curve.At(curve.From() + (curve.To() - curve.From()) * i / count));
    }
    return points;
  }

  static double FarthestFromShapes(const std::vector<Point>& points, const std::vector<Shape>& shapes) {
    double farthest = 0;
    for (const Point& point : points) {
      double nearest = 1e9;
      for (const Shape& shape : shapes) nearest = std::min(nearest, shape.Distance(point));
      farthest = std::max(farthest, nearest);
    }
    return farthest;
  }

  /// The distance from the curve near one of its samples: between its neighbours.
  static double DistanceNear(const Curve& curve, double step, std::size_t sample, const Point& p) {
    double low = std::max(curve.From(), curve.From() + step * (static_cast<double>(sample) - 1));
    double high = std::min(curve.To(), low + 2 * step);
    for (int i = 0; i < 30; ++i) {
      const double a = low + (high - low) * 0.382, b = low + (high - low) * 0.618;
      const bool isBefore = Dist(curve.At(a), p) < Dist(curve.At(b), p);
      (isBefore ? high : low) = isBefore ? b : a;
    }
    return Dist(curve.At((low + high) / 2), p);
  }

  /// Each sample that is nearer than its neighbours can be the one that the nearest point is next to.
  static double DistanceFrom(const Curve& curve, const std::vector<Point>& points, const Point& p) {
    const double step = (curve.To() - curve.From()) / static_cast<double>(points.size() - 1);
    double nearest = 1e9;
    const auto distance = [&](std::size_t i) { return i < points.size() ? Dist(points[i], p) : 1e9; };
    for (std::size_t i = 0; i < points.size(); ++i) {
      const double here = distance(i);
      if (here > distance(i - 1) || here > distance(i + 1)) continue;
      const double reach = std::max(i > 0 ? Dist(points[i], points[i - 1]) : 0,
                                    i + 1 < points.size() ? Dist(points[i], points[i + 1]) : 0);
      if (here <= nearest + reach) nearest = std::min(nearest, DistanceNear(curve, step, i, p));
    }
    return nearest;
  }

  static double FarthestFromCurve(const Curve& curve, const std::vector<Point>& points,
                                  const std::vector<Shape>& shapes) {
    double farthest = 0;
    for (const Shape& shape : shapes) {
      for (const double share : {0.2, 0.5, 0.8}) {
        farthest = std::max(farthest, DistanceFrom(curve, points, shape.At(share)));
      }
    }
    return farthest;
  }

  /// The places where the shapes have a corner of more than 0.19 degrees. Tips of a radius or a width below
  /// 0.005 mm do not count: no contour has arcs that are so small.
  static std::vector<Point> Corners(const std::vector<Shape>& shapes) {
    std::vector<Point> corners;
    const auto isTiny = [](const Shape& shape) {
      return shape.radius == 0 && Dist(shape.from, shape.to) < 0.011;
    };
    for (std::size_t i = 1; i < shapes.size(); ++i) {
      if (isTiny(shapes[i - 1]) || isTiny(shapes[i])) continue;
      const double turn =
          std::remainder(shapes[i].DirectionAt(false) - shapes[i - 1].DirectionAt(true), 2 * kPi);
      if (std::fabs(turn) > 0.19 * kPi / 180) corners.push_back(shapes[i].from);
    }
    return corners;
  }

  std::mt19937 random{2024};
  double Random(double low, double high) {
    return low + (high - low) * static_cast<double>(random()) / 4294967295.0;
  }

  /// A clamped spline with random poles; knots may repeat.
  Spline RandomSpline(int degree, int count, bool isRational, bool repeatsPoles, bool repeatsKnots) {
    Spline spline{degree, {}, {}};
    Point at(0, 0);
    for (int i = 0; i < count; ++i) {
      if (!repeatsPoles || i % 3 != 1) at = Point(at.x + Random(-5, 25), at.y + Random(-20, 20));
      spline.poles.push_back({{at.x, at.y, 0}, isRational ? Random(0.3, 3) : 1});
    }
    for (int i = 0; i <= degree; ++i) spline.knots.push_back(0);
    double knot = 0;
    for (int left = count - degree - 1; left > 0;) {
      knot += Random(0.2, 2);
      for (int k = repeatsKnots ? std::min(left, degree) : 1; k > 0; --k, --left)
        spline.knots.push_back(knot);
    }
    for (int i = 0; i <= degree; ++i) spline.knots.push_back(knot + 1);
    return spline;
  }

  /// A cubic whose derivative vanishes in its middle, turned and stretched.
  Spline Cusp() {
    const double a = Random(5, 30), b = Random(5, 30), angle = Random(0, 6);
    Spline spline{3, {0, 0, 0, 0, 1, 1, 1, 1}, {}};
    for (const auto& [x, y] : {std::pair(0, 0), std::pair(1, 1), std::pair(0, 1), std::pair(1, 0)}) {
      spline.poles.push_back({{a * x * std::cos(angle) - b * y * std::sin(angle),
                               a * x * std::sin(angle) + b * y * std::cos(angle), 0}});
    }
    return spline;
  }
};

TEST_F(ArcFitTest, RandomSplinesAreWithinTheToleranceBothWays) {
  constexpr double kTolerance = 0.001;
  for (int i = 0; i < 500; ++i) {
    const int kind = i % 5, degree = 2 + i / 5 % 5;
    const Curve curve(kind == 4 ? Cusp()
                                : RandomSpline(kind == 0 ? 3 : degree, degree + 3 + i % 4, kind == 1,
                                               kind == 2, kind == 3));
    const std::vector<Shape> shapes = Fit(curve, kTolerance);
    const std::vector<Point> points = Sampled(curve, 700);
    EXPECT_LE(FarthestFromShapes(points, shapes), kTolerance) << "curve " << i;
    EXPECT_LE(FarthestFromCurve(curve, points, shapes), kTolerance) << "curve " << i;
  }
}

TEST_F(ArcFitTest, ArcsMeetWithoutACornerWhereTheCurveHasNone) {
  for (int i = 0; i < 200; ++i) {
    const Curve curve(RandomSpline(3, 5 + i % 6, i % 2 == 1, false, false));
    EXPECT_THAT(Corners(Fit(curve, 0.001)), testing::IsEmpty()) << "curve " << i;
  }
}

TEST_F(ArcFitTest, CornersOfTheCurveAreKept) {
  const Curve cusp(Cusp());
  const std::vector<Point> corners = Corners(Fit(cusp, 0.001));
  ASSERT_EQ(corners.size(), 1U);
  EXPECT_LE(Dist(corners[0], cusp.At(0.5)), 1e-6);
  // A knot of the full multiplicity.
  const Curve bent(Spline{
      2, {0, 0, 0, 1, 1, 2, 2, 2}, {{{0, 0, 0}}, {{5, 0, 0}}, {{10, 5, 0}}, {{10, 10, 0}}, {{20, 10, 0}}}});
  const std::vector<Point> bends = Corners(Fit(bent, 0.001));
  ASSERT_EQ(bends.size(), 1U);
  EXPECT_LE(Dist(bends[0], Point(10, 5)), 1e-9);
}

TEST_F(ArcFitTest, ACurveThatRunsBackOnItselfIsTwoLines) {
  const Curve back(Spline{2, {0, 0, 0, 1, 1, 1}, {{{0, 0, 0}}, {{20, 0, 0}}, {{0, 0, 0}}}});
  const std::vector<Shape> shapes = Fit(back, 0.001);
  ASSERT_EQ(shapes.size(), 2U);
  EXPECT_NEAR(shapes[0].to.x, 10, 1e-6);
}

/// The fewest arcs that pairs of tangent arcs give when each reaches as far as any pair can: all ends and
/// many joints are tried, each against all samples.
class SlowFit {
 public:
  SlowFit(const Curve& curve, double tolerance) : tolerance_(tolerance) {
    for (int i = 0; i <= kSamples; ++i) {
      const double range = curve.To() - curve.From(), t = curve.From() + range * i / kSamples;
      const double before = std::max(curve.From(), t - 1e-6 * range),
                   after = std::min(curve.To(), t + 1e-6 * range);
      Vector2d direction(curve.At(before), curve.At(after));
      const double length = std::hypot(direction.dx, direction.dy);
      spots_.push_back({curve.At(t), direction * (1 / length)});
    }
  }

  std::size_t Count() const {
    std::size_t count = 0;
    for (int from = 0; from < kSamples;) {
      int reached = from + 1;
      for (int to = from + 2, failures = 0; to <= kSamples && failures < 25; ++to, ++failures) {
        if (!Fits(from, to)) continue;
        reached = to;
        failures = 0;
      }
      count += 2;
      from = reached;
    }
    return count;
  }

 private:
  static constexpr int kSamples = 600;

  bool Fits(int from, int to) const {
    for (const double ratio : {0.25, 0.5, 0.7, 0.85, 1.0, 1.2, 1.4, 2.0, 4.0}) {
      if (FitsWith(ratio, spots_[static_cast<std::size_t>(from)], spots_[static_cast<std::size_t>(to)], from,
                   to))
        return true;
    }
    return false;
  }

  /// The tangents at the ends have the lengths a and ratio * a.
  bool FitsWith(double ratio, const CurveSpot& start, const CurveSpot& end, int from, int to) const {
    double low = 0, high = Dist(start.point, end.point) * 4;
    const auto tips = [&](double a) {
      return std::pair(start.point + start.direction * a, end.point - end.direction * (ratio * a));
    };
    for (int i = 0; i < 60; ++i) {
      const double a = (low + high) / 2;
      const auto [first, second] = tips(a);
      (Dist(first, second) > a * (1 + ratio) ? low : high) = a;
    }
    const auto [first, second] = tips(low);
    const Point joint(first.x + (second.x - first.x) / (1 + ratio),
                      first.y + (second.y - first.y) / (1 + ratio));
    const auto half = [](const Vector2d& u, const Vector2d& v) { return std::atan2(Cross(u, v), Dot(u, v)); };
    const double b1 = std::tan(half(start.direction, Vector2d(start.point, joint)) / 2);
    const double b2 = std::tan(half(Vector2d(joint, end.point), end.direction) / 2);
    const Shape one(start.point, {joint, b1}), two(joint, {end.point, b2});
    for (int i = from; i <= to; ++i) {
      const Point& p = spots_[static_cast<std::size_t>(i)].point;
      if (std::min(one.Distance(p), two.Distance(p)) > tolerance_) return false;
    }
    return true;
  }

  double tolerance_;
  std::vector<CurveSpot> spots_;
};

TEST_F(ArcFitTest, ThereAreFewerThanTwiceTheArcsOfASlowSearch) {
  const Curve arch(
      Spline{3, {0, 0, 0, 0, 1, 1, 1, 1}, {{{0, 0, 0}}, {{0, 40, 0}}, {{60, 40, 0}}, {{60, 0, 0}}}});
  const Curve wave(Spline{3,
                          {0, 0, 0, 0, 1, 2, 3, 4, 4, 4, 4},
                          {{{0, 0, 0}},
                           {{10, 20, 0}},
                           {{30, -20, 0}},
                           {{50, 20, 0}},
                           {{70, -20, 0}},
                           {{90, 20, 0}},
                           {{100, 0, 0}}}});
  const Curve quarter(
      Spline{2, {0, 0, 0, 1, 1, 1}, {{{30, 0, 0}}, {{30, 10, 0}, std::sqrt(0.5)}, {{0, 10, 0}}}});
  const struct {
    const char* name;
    const Curve& curve;
    std::size_t arcs;  ///< as counted when this was written
    std::size_t slow;
  } rows[] = {{"arch", arch, 26, 22}, {"wave", wave, 96, 86}, {"quarter of an ellipse", quarter, 18, 16}};
  for (const auto& row : rows) {
    const std::size_t arcs = Fit(row.curve, 0.001).size(), slow = SlowFit(row.curve, 0.001).Count();
    EXPECT_LE(arcs, 2 * slow) << row.name;
    EXPECT_EQ(arcs, row.arcs) << row.name;
    EXPECT_EQ(slow, row.slow) << row.name;
  }
}

}  // namespace
}  // namespace vanzet::contour
