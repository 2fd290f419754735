#include <algorithm>

#include "contour/dxf/item.h"

namespace vanzet::contour {
namespace {

constexpr int kFlags = 70, kDegree = 71, kKnot = 40, kWeight = 41, kPole = 10, kFitPoint = 11;
constexpr int kStartDirection = 12, kEndDirection = 13, kClosed = 1;

std::optional<Space> DirectionOf(const DxfEntity& entity, int code) {
  const Space direction = entity.Point(code);
  return LengthOf(direction) > 0 ? std::optional(direction) : std::nullopt;
}

Spline SplineOf(const DxfEntity& entity) {
  Spline spline{entity.Integer(kDegree), entity.Reals(kKnot), {}};
  const std::vector<double> weights = entity.Reals(kWeight);
  for (const Space& point : entity.Points(kPole)) {
    const std::size_t i = spline.poles.size();
    spline.poles.push_back({point, i < weights.size() ? weights[i] : 1});
  }
  return spline;
}

bool IsJoint(const Bezier& before, const Bezier& after) {
  return LengthOf(after.front().point - before.back().point) <=
         1e-9 * (1 + LengthOf(after.front().point) + LengthOf(before.back().point));
}

}  // namespace

std::string FaultOf(const Spline& spline) {
  if (spline.degree < 1 || spline.degree > kHighestDegree) return "of a degree that is not within 1 and 25";
  const auto degree = static_cast<std::size_t>(spline.degree);
  const bool fits = spline.poles.size() > degree && spline.knots.size() == spline.poles.size() + degree + 1;
  if (!fits || !std::ranges::is_sorted(spline.knots)) return "whose knots do not fit";
  const bool hasWeights = std::ranges::all_of(spline.poles, [](const Pole& pole) { return pole.weight > 0; });
  return hasWeights ? "" : "with a weight that is not above 0";
}

std::vector<Path> PathsAlong(const std::vector<Bezier>& beziers) {
  std::vector<Path> paths;
  for (std::size_t i = 0; i < beziers.size(); ++i) {
    if (i == 0 || !IsJoint(beziers[i - 1], beziers[i])) paths.push_back({beziers[i].front().point, {}});
    paths.back().edges.emplace_back(beziers[i]);
  }
  return paths;
}

std::vector<Path> PathsOfSpline(const DxfEntity& entity, std::string& leftOut) {
  const Spline spline = SplineOf(entity);
  std::vector<Path> paths;
  if (spline.poles.empty()) {
    const EndDirections ends{DirectionOf(entity, kStartDirection), DirectionOf(entity, kEndDirection)};
    const bool isClosed = (entity.Integer(kFlags) & kClosed) != 0;
    paths = PathsAlong(CurveThrough(entity.Points(kFitPoint), ends, isClosed));
    if (paths.empty()) leftOut = "SPLINE of less than two points";
  } else {
    const std::string fault = FaultOf(spline);
    if (fault.empty()) paths = PathsAlong(BeziersOf(spline));
    if (paths.empty()) leftOut = "SPLINE " + (fault.empty() ? "whose knots do not fit" : fault);
  }
  return paths;
}

}  // namespace vanzet::contour
