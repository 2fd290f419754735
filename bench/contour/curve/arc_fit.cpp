#include "contour/curve/arc_fit.h"

#include <algorithm>
#include <optional>

#include "contour/curve/biarc.h"

namespace vanzet::contour {
namespace {

/// The curve is looked at in spots, between which it may be farther from the arcs than in any of them.
constexpr double kShareForSpots = 0.85;

/// The shortest stretch of a curve, by its parameter, that is tried.
constexpr double kShortestStep = 1e-10;

/// Replaces one smooth curve from its start to its end.
class Fitter {
 public:
  Fitter(const SmoothCurve& curve, ArcBudget& budget)
      : curve_(curve), budget_(budget), tolerance_(budget.tolerance() * kShareForSpots) {}

  /// The pairs of arcs one after the other. Fails when there are too many.
  Result<std::vector<Biarc>> Fit() {
    std::vector<Biarc> biarcs;
    for (double u = 0, step = 1; u < curve_.End();) {
      VANZET_DO(budget_.Use(2));
      const Reach reach = FarthestFrom(u, step);
      biarcs.push_back(reach.biarc);
      step = 1.3 * (reach.end - u);
      u = reach.end;
    }
    return biarcs;
  }

 private:
  struct Reach {
    double end;
    Biarc biarc;
  };

  /// Doubles the step while it succeeds, or halves it until it does, and narrows down the end then.
  Reach FarthestFrom(double u, double step) const {
    constexpr int kNarrowings = 5;
    std::optional<Reach> best;
    double tooFar = 0;
    while (true) {
      const double end = std::min(u + step, curve_.End());
      const auto biarc = Try(u, end);
      if (biarc) best = Reach{end, *biarc};
      if (biarc && end == curve_.End()) return *best;
      if (!biarc) tooFar = end;
      if (best && tooFar > 0) break;
      step = (end - u) * (biarc ? 2 : 0.5);
      if (step < kShortestStep) return {end, Straight(u, end)};
    }
    for (int i = 0; i < kNarrowings; ++i) {
      const double end = (best->end + tooFar) / 2;
      const auto biarc = Try(u, end);
      if (biarc) {
        best = Reach{end, *biarc};
      } else {
        tooFar = end;
      }
    }
    return *best;
  }

  Biarc Straight(double from, double to) const {
    const geometry::Point start = curve_.At(from).point, end = curve_.At(to).point;
    return {start, {geometry::Point((start.x + end.x) / 2, (start.y + end.y) / 2), 0}, {end, 0}};
  }

  /// The pair of arcs for a stretch that turns by half a turn at most, if it is near enough.
  std::optional<Biarc> Try(double from, double to) const {
    const CurveSpot start = curve_.At(from);
    if (IsFarInside(start, from, to)) return {};
    const std::vector<CurveSpot> spots = curve_.Between(from, to);
    if (IsTiny(start, spots)) return Straight(from, to);
    if (!TurnsLittle(start, spots)) return {};
    auto biarc = BiarcBetween(start, spots.back());
    if (!biarc || !Follows(spots, *biarc, tolerance_)) return {};
    return biarc;
  }

  /// A quick look at two spots, which saves most of the thorough ones that would fail.
  bool IsFarInside(const CurveSpot& start, double from, double to) const {
    const auto biarc = BiarcBetween(start, curve_.At(to));
    const std::vector<CurveSpot> spots = {curve_.At(from + (to - from) / 4), curve_.At(to - (to - from) / 4)};
    const auto isFar = [&](const CurveSpot& spot) { return DistanceOf(spot.point, *biarc) > tolerance_; };
    return biarc && !IsTiny(start, spots) && std::ranges::any_of(spots, isFar);
  }

  /// A stretch that is hardly longer than the tolerance needs no arcs.
  bool IsTiny(const CurveSpot& start, const std::vector<CurveSpot>& spots) const {
    return std::ranges::all_of(
        spots, [&](const CurveSpot& spot) { return Dist(start.point, spot.point) <= tolerance_ / 2; });
  }

  static bool TurnsLittle(const CurveSpot& start, const std::vector<CurveSpot>& spots) {
    constexpr double kLargestTurn = geometry::PI * (1 + 1e-6), kLargestStep = 1;
    double turn = 0;
    const CurveSpot* before = &start;
    for (const CurveSpot& spot : spots) {
      const double step = std::fabs(TurnOf(before->direction, spot.direction));
      turn += step;
      if (step > kLargestStep || turn > kLargestTurn) return false;
      before = &spot;
    }
    return true;
  }

  const SmoothCurve& curve_;
  ArcBudget& budget_;
  double tolerance_;
};

/// Adds a segment, or lets the last one run on to its end where both are of one circle or line.
class Chain {
 public:
  Chain(const geometry::Point& start, double tolerance) : start_(start), tolerance_(tolerance) {}

  void Add(const Segment& segment) {
    const geometry::Point last = segments.empty() ? start_ : segments.back().end;
    if (last.x == segment.end.x && last.y == segment.end.y) return;
    const auto one = segments.empty() ? std::nullopt : AsOne(start_, segments.back(), segment, tolerance_);
    if (one) {
      segments.back() = *one;
      return;
    }
    if (!segments.empty()) start_ = last;
    segments.push_back(segment);
  }

  std::vector<Segment> segments;

 private:
  geometry::Point start_;  ///< of the last segment, or of the first one that is still to come
  double tolerance_;
};

}  // namespace

Result<std::vector<Segment>> FitArcs(const std::vector<PlaneBezier>& beziers, ArcBudget& budget) {
  std::vector<Segment> segments;
  for (const SmoothCurve& part : SmoothParts(beziers)) {
    VANZET_TRY(const std::vector<Biarc> biarcs, Fitter(part, budget).Fit());
    Chain chain(part.At(0).point, budget.tolerance());
    for (const Biarc& biarc : biarcs) {
      chain.Add(biarc.first);
      chain.Add(biarc.second);
    }
    segments.insert(segments.end(), chain.segments.begin(), chain.segments.end());
  }
  return segments;
}

}  // namespace vanzet::contour
