#include "geometry/region/loop_cut.h"

#include <algorithm>
#include <cmath>

#include "geometry/region/corner_trim.h"

namespace geometry::region {
namespace {

/// Rounding of the distance, as a share of r.
constexpr double kRoundingShare = 1.0 / 16;
/// The least advance of a tangent, of length 1, along the sum of those at the feet: a million times the
/// rounding of the sum. The common point of offsets that are so nearly opposite is inexact along both of
/// them, not across.
constexpr double kLeastAdvance = 1e-10;
/// Tangents whose sine is this far on the wrong side are parallel: it is rounding.
constexpr double kParallel = 1e-15;
/// Steps of a search: some, and some for each span of the loop; and for all searches of a chain.
constexpr std::size_t kSteps = 16, kStepsPerSpan = 4, kStepsOfChain = 8;

Vector2d ChordOf(const Shape& s) {
  return s.b - s.a;
}

/// The signed distance from the whole line or circle, positive on the left.
double LeftOf(const Shape& s, const Vector2d& way) {
  const double residual = s.k * Dot(way, way) - 2 * Cross(s.tangents.start, way);
  return -residual / (1 + std::sqrt(std::max(0.0, 1 + s.k * residual)));
}

/// The distance of a point from a span of less than half a turn.
double DistanceTo(const Shape& s, const Vector2d& p) {
  const Vector2d way = p - s.a, chord = ChordOf(s);
  const Vector2d tangent = TangentNearest(s.tangents.start, s.k, way);
  const double left = LeftOf(s, way), along = Dot(way - tangent.LeftNormal() * left, chord);
  if (Dot(tangent, chord) > 0 && along > 0 && along < s.chord * s.chord) return std::abs(left);
  return std::min(way.Magnitude(), (p - s.b).Magnitude());
}

/// The line or circle of an offset, by a point of it.
struct Moved {
  Vector2d at, tangent;
  double k;
};

/// The points in common, up to two, as in curve.h.
int Meet(const Moved& one, const Moved& other, Vector2d found[2]) {
  const Vector2d e = one.at - other.at, n = one.tangent.LeftNormal(), n2 = other.tangent.LeftNormal();
  const double k = one.k, k2 = other.k;
  const double c = k2 * Dot(e, e) - 2 * Dot(n2, e), b = 2 * (k2 * Dot(e, one.tangent) - Dot(n2, one.tangent));
  const double a = c * k * k / 4 + k2 * k * Dot(e, n) + k2 - k * Dot(n2, n);
  const double discriminant = b * b - 4 * a * c;
  const double q = -(b + std::copysign(std::sqrt(std::max(discriminant, 0.0)), b)) / 2;
  if (!(discriminant >= 0) || q == 0) return 0;
  const auto at = [&](double sigma) {
    const double bend = k * sigma / 2;
    return one.at + (one.tangent * sigma + n * (sigma * bend)) * (1 / (1 + bend * bend));
  };
  int count = 0;
  found[count++] = at(c / q);
  if (a != 0) found[count++] = at(q / a);
  return count;
}

}  // namespace

LoopCutter::LoopCutter(const Sketch& sketch, const std::vector<RegionSpan>& spans, double left, Corner corner)
    : sketch_(sketch),
      spans_(spans),
      left_(left),
      least_(std::abs(left) - kRoundingShare * sketch.Resolution(std::abs(left))),
      mayOpen_(corner == Corner::Round),
      steps_(kStepsOfChain * spans.size()) {}

// Places are counted from one turn of the chain on, so that those before its start are numbers too.
void LoopCutter::CutAround(std::size_t span) {
  Search search;
  search.corner = span + spans_.size();
  if (IsCutOff(search.corner)) return;
  search.below = cuts_.size();
  search.low = {search.corner, ShapeAt(search.corner)};
  search.high = {search.corner + 1, ShapeAt(search.corner + 1)};
  for (std::size_t step = 0; steps_ > 0; ++step, --steps_) {
    if (step > kSteps + kStepsPerSpan * (search.high.place - search.low.place)) return;
    const Move move = Compare(search);
    if (move.low == 0 && move.high == 0) break;
    if (!Go(search, move)) return;
  }
  if (steps_ == 0 || !IsLoop(search)) return;
  cuts_.resize(search.below);
  cuts_.push_back({search.low.place, search.high.place, search.common, search.low.along, search.high.along});
}

bool LoopCutter::IsCutOff(std::size_t place) const {
  if (cuts_.empty()) return false;
  return place < cuts_.back().last || place >= cuts_.front().first + spans_.size();
}

std::vector<LoopCut> LoopCutter::Take() {
  const std::size_t count = spans_.size();
  for (LoopCut& cut : cuts_) {
    cut.first %= count;
    cut.last %= count;
  }
  std::sort(cuts_.begin(), cuts_.end(), [](const LoopCut& a, const LoopCut& b) { return a.first < b.first; });
  return std::move(cuts_);
}

/// Whether the span has an offset, and is short enough to say where on it a foot is.
bool LoopCutter::CanEnd(const Shape& shape) const {
  return shape.k * left_ < 1 && Dot(shape.tangents.start, ChordOf(shape)) > 0;
}

/// Returns false when the foot is on the far side of the circle.
bool LoopCutter::SetFoot(Side& side, const Vector2d& common) const {
  const Shape& s = side.shape;
  const Vector2d way = common - s.a;
  side.tangent = TangentNearest(s.tangents.start, s.k, way);
  side.along = Dot(way - side.tangent.LeftNormal() * left_, ChordOf(s));
  return Dot(side.tangent, ChordOf(s)) > 0;
}

/// The common point of the offsets whose feet are on both spans, or else the one nearer to the first one's
/// end.
bool LoopCutter::FindCommon(Search& search) const {
  const Shape &a = search.low.shape, &b = search.high.shape;
  const Moved one{a.b + a.tangents.end.LeftNormal() * left_, a.tangents.end, a.k / (1 - a.k * left_)};
  const Moved other{b.a + b.tangents.start.LeftNormal() * left_, b.tangents.start, b.k / (1 - b.k * left_)};
  Vector2d found[2];
  const int count = Meet(one, other, found);
  if (count == 0) return false;
  const auto isOn = [&](Side& side, const Vector2d& p) {
    return SetFoot(side, p) && side.along >= 0 && side.along <= side.shape.chord * side.shape.chord;
  };
  for (int i = 0; i < count; ++i) {
    search.common = found[i];
    if (isOn(search.low, found[i]) && isOn(search.high, found[i])) return true;
  }
  const Vector2d first = found[0] - one.at, second = found[count - 1] - one.at;
  search.common = Dot(first, first) <= Dot(second, second) ? found[0] : found[count - 1];
  return SetFoot(search.low, search.common) && SetFoot(search.high, search.common);
}

LoopCutter::Move LoopCutter::Compare(Search& search) const {
  const bool low = CanEnd(search.low.shape), high = CanEnd(search.high.shape);
  if (!low || !high) return {low ? 0 : 1, high ? 0 : 1};
  if (!FindCommon(search)) return {1, 1};
  return {MoveOfLow(search), MoveOfHigh(search)};
}

/// The place on one of two spans at which their corner is shortened.
double LoopCutter::TrimmedAt(const Shape& before, const Shape& after, Side side, double untrimmed) const {
  if (!(before.chord > 0 && after.chord > 0)) return untrimmed;
  if (Cross(before.tangents.end, after.tangents.start) * left_ < 0) return untrimmed;
  Vector2d common;
  if (!TrimCorner(before, after, left_, common) || !SetFoot(side, common)) return untrimmed;
  return side.along;
}

int LoopCutter::MoveOfLow(const Search& search) const {
  const Side& low = search.low;
  if (low.along > low.shape.chord * low.shape.chord) return -1;
  if (low.along < 0) return 1;
  const LoopCut* before = search.below > 0 ? &cuts_[search.below - 1] : nullptr;
  const double from = before && before->last == low.place
                          ? before->alongLast
                          : TrimmedAt(ShapeAt(low.place - 1), low.shape, low, 0);
  return low.along < from ? 1 : 0;
}

int LoopCutter::MoveOfHigh(const Search& search) const {
  const Side& high = search.high;
  const double whole = high.shape.chord * high.shape.chord;
  if (high.along < 0) return -1;
  if (high.along > whole) return 1;
  const bool meetsFirst = search.below > 0 && high.place == cuts_.front().first + spans_.size();
  const double to =
      meetsFirst ? cuts_.front().alongFirst : TrimmedAt(high.shape, ShapeAt(high.place + 1), high, whole);
  return high.along > to ? 1 : 0;
}

bool LoopCutter::Go(Search& search, const Move& move) const {
  return GoLow(search, move.low) && GoHigh(search, move.high) &&
         search.high.place - search.low.place < spans_.size();
}

/// Beyond an earlier cut that ends on the span, since its loop would be a part of this one.
bool LoopCutter::GoLow(Search& search, int move) const {
  if (move == 0) return true;
  std::size_t& place = search.low.place;
  if (move < 0 && place == search.corner) return false;
  if (move < 0) {
    ++place;
  } else if (search.below > 0 && cuts_[search.below - 1].last == place) {
    place = cuts_[--search.below].first;
  } else {
    --place;
  }
  search.low.shape = ShapeAt(place);
  return true;
}

bool LoopCutter::GoHigh(Search& search, int move) const {
  if (move == 0) return true;
  std::size_t& place = search.high.place;
  if (move < 0 && place == search.corner + 1) return false;
  if (move > 0 && search.below > 0 && place == cuts_.front().first + spans_.size()) return false;
  place = move > 0 ? place + 1 : place - 1;
  search.high.shape = ShapeAt(place);
  return true;
}

bool LoopCutter::Opens(const Vector2d& before, const Vector2d& after) const {
  return !mayOpen_ && Cross(before, after) * left_ < -kParallel * std::abs(left_);
}

/// The conditions for a cut, of all spans between its ends and of the parts of these that are cut off.
bool LoopCutter::IsLoop(const Search& search) const {
  const Side &low = search.low, &high = search.high;
  const Vector2d along = low.tangent + high.tangent;
  const auto advances = [&](const Vector2d& first, const Vector2d& second) {
    return Dot(first, along) > kLeastAdvance && Dot(second, along) > kLeastAdvance;
  };
  if (!advances(low.tangent, low.shape.tangents.end)) return false;
  if (!advances(high.shape.tangents.start, high.tangent)) return false;
  Vector2d before = low.shape.tangents.end;
  for (std::size_t place = low.place + 1; place < high.place; ++place) {
    const Shape shape = ShapeAt(place);
    const bool isShort = Dot(shape.tangents.start, ChordOf(shape)) > 0;
    if (!isShort || !advances(shape.tangents.start, shape.tangents.end)) return false;
    if (Opens(before, shape.tangents.start) || !(DistanceTo(shape, search.common) >= least_)) return false;
    before = shape.tangents.end;
  }
  return !Opens(before, high.shape.tangents.start);
}

}  // namespace geometry::region
