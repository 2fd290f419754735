#include "contour/dxf/flatten.h"

#include <algorithm>
#include <cmath>

#include "contour/builder.h"
#include "contour/curve/arc_fit.h"
#include "geometry/numerics.h"

namespace vanzet::contour {
namespace {

using geometry::PI;
using geometry::Point;
using geometry::Vector2d;

/// A larger turn becomes two arcs, since the library has no full circle.
constexpr double kLargestSweep = 2 * PI - 0.02;

constexpr double kSameLength = 1e-9;  // as a share
constexpr double kSameHeight = 0.01;  // in millimetres

Point FromAbove(const Space& p) {
  return {p.x, p.y};
}
Vector2d VectorFromAbove(const Space& v) {
  return {v.x, v.y};
}

/// Whether two vectors are the axes of a circle.
bool AreRound(const Vector2d& u, const Vector2d& v) {
  const double square = Dot(u, u);
  return std::fabs(Dot(v, v) - square) <= kSameLength * square &&
         std::fabs(Dot(u, v)) <= kSameLength * square;
}

class Flattener {
 public:
  Flattener(const Placement& placement, ArcBudget& budget) : placement_(placement), budget_(budget) {
    const Vector2d x = VectorFromAbove(placement.x), y = VectorFromAbove(placement.y);
    keepsCircles_ = AreRound(x, y);
    side_ = Cross(x, y) < 0 ? -1 : 1;
  }

  Result<FlatPath> Take(const Path& path) {
    at_ = path.start;
    flat_.piece.start = See(placement_.Point(path.start));
    for (const Edge& edge : path.edges) {
      if (!std::holds_alternative<Bezier>(edge)) VANZET_DO(FitCurves());
      VANZET_DO(std::visit([&](const auto& shape) { return Add(shape); }, edge));
    }
    VANZET_DO(FitCurves());
    flat_.isLevel = !(highest_ - lowest_ > kSameHeight);
    if (flat_.piece.segments.empty() && !flat_.isLevel) flat_.isEdgeOn = true;
    return std::move(flat_);
  }

 private:
  Point See(const Space& placed) {
    lowest_ = std::min(lowest_, placed.z);
    highest_ = std::max(highest_, placed.z);
    return FromAbove(placed);
  }

  void AddSegment(const Segment& segment) {
    const Point& last = flat_.piece.End();
    if (segment.end.x != last.x || segment.end.y != last.y) flat_.piece.segments.push_back(segment);
  }

  Result<void> Add(const Stroke& stroke) {
    const Space start = std::exchange(at_, stroke.end);
    const Point end = See(placement_.Point(stroke.end));
    if (stroke.bulge == 0 || keepsCircles_) {
      AddSegment({end, side_ * stroke.bulge});
      return {};
    }
    const Vector2d chord(FromAbove(start), FromAbove(stroke.end));
    if (chord.dx == 0 && chord.dy == 0) return {};
    VANZET_DO(AddTurn(TurnOfBulge(start, chord, stroke.bulge), end));
    return {};
  }

  /// With the angle 4 atan(b) over the chord c, the centre is c (1 - b^2) / 4b to the left of its middle.
  static Turn TurnOfBulge(const Space& start, const Vector2d& chord, double b) {
    const Vector2d toCentre = chord * 0.5 + chord.LeftNormal() * ((1 - b * b) / (4 * b));
    const Vector2d v = (-toCentre).LeftNormal() * (b > 0 ? 1 : -1);
    const Space offset{toCentre.dx, toCentre.dy, 0};
    return {start + offset, offset * -1, {v.dx, v.dy, 0}, 0, 4 * std::atan(std::fabs(b))};
  }

  Result<void> Add(const Turn& turn) {
    at_ = turn.At(turn.from + turn.sweep);
    const bool isFull = turn.sweep >= 2 * PI;
    return AddTurn(turn, isFull ? flat_.piece.End() : FromAbove(placement_.Point(at_)));
  }

  Result<void> AddTurn(const Turn& turn, const Point& end) {
    const Turn placed{placement_.Point(turn.centre), placement_.Direction(turn.u),
                      placement_.Direction(turn.v), turn.from, turn.sweep};
    for (const Space& axis : {placed.u, placed.v}) {
      for (const double side : {1.0, -1.0}) VANZET_DO(CheckPoint(See(placed.centre + axis * side)));
    }
    const Vector2d u = VectorFromAbove(placed.u), v = VectorFromAbove(placed.v);
    const double cross = Cross(u, v);
    if (AreRound(u, v) && cross != 0) {
      AddArc(placed, cross > 0 ? 1 : -1, end);
    } else if (std::fabs(cross) > kSameLength * std::max(Dot(u, u), Dot(v, v))) {
      VANZET_DO(AddEllipse(placed, end));
    } else {
      flat_.isEdgeOn = true;
    }
    return {};
  }

  void AddArc(const Turn& turn, int direction, const Point& end) {
    const int parts = turn.sweep > kLargestSweep ? 2 : 1;
    const double bulge = direction * std::tan(turn.sweep / parts / 4);
    if (parts == 2) AddSegment({FromAbove(turn.At(turn.from + turn.sweep / 2)), bulge});
    AddSegment({end, bulge});
  }

  /// An arc of an ellipse of at most a quarter is a rational curve of degree 2.
  Result<void> AddEllipse(const Turn& turn, const Point& end) {
    const int parts = static_cast<int>(std::ceil(turn.sweep / (PI / 2) - kSameLength));
    const double half = turn.sweep / parts / 2, weight = std::cos(half);
    Point start = flat_.piece.End();
    for (int i = 0; i < parts; ++i) {
      const double middle = turn.from + (2 * i + 1) * half;
      const Space corner = turn.centre + (turn.At(middle) - turn.centre) * (1 / weight);
      const Point next = i + 1 == parts ? end : FromAbove(turn.At(middle + half));
      curves_.push_back({{start}, {FromAbove(corner), weight}, {next}});
      start = next;
    }
    return FitCurves();
  }

  Result<void> Add(const Bezier& bezier) {
    PlaneBezier plane;
    for (const Pole& pole : bezier) {
      plane.push_back({See(placement_.Point(pole.point)), pole.weight});
      VANZET_DO(CheckPoint(plane.back().point));
    }
    at_ = bezier.back().point;
    curves_.push_back(std::move(plane));
    return {};
  }

  /// Curves that follow each other are replaced together, since arcs may reach from one to the next.
  Result<void> FitCurves() {
    if (curves_.empty()) return {};
    VANZET_TRY(const std::vector<Segment> segments, FitArcs(std::exchange(curves_, {}), budget_));
    for (const Segment& segment : segments) AddSegment(segment);
    return {};
  }

  const Placement& placement_;
  ArcBudget& budget_;
  bool keepsCircles_ = true;
  int side_ = 1;
  double lowest_ = 1e300, highest_ = -1e300;
  Space at_;  ///< the end of the path so far, before it is placed
  std::vector<PlaneBezier> curves_;
  FlatPath flat_;
};

}  // namespace

Result<FlatPath> Flatten(const Path& path, const Placement& placement, ArcBudget& budget) {
  return Flattener(placement, budget).Take(path);
}

}  // namespace vanzet::contour
