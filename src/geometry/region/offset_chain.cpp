#include "geometry/region/offset_chain.h"

#include <algorithm>
#include <cmath>

#include "geometry/region/corner_trim.h"
#include "geometry/region/large_vector.h"

namespace geometry::region {
namespace {

/// A chain that turns back by this much or less to either side of half a turn gets a round corner, which is
/// never wrong: its sector is within the distance of the corner.
constexpr double kTurnsBack = 1e-9;
/// Moved ends whose difference is rounding alone, as a share of the coordinates.
constexpr double kSameShare = 1e-14;

/// The span that a corner before `after` comes from.
RegionSpan CornerBefore(const RegionSpan& after) {
  RegionSpan corner = after;
  corner.ID = (after.ID & 0x00ffffffu) | ROLL_AROUND;
  return corner;
}

/// The span that the end of a path comes from.
RegionSpan EndAfter(const RegionSpan& before) {
  RegionSpan end = CornerBefore(before);
  end.index0 = end.index1 = 0;
  return end;
}

}  // namespace

OffsetChain::OffsetChain(const Sketch& sketch, double left, const RegionOffset& options)
    : sketch_(sketch), left_(left), shortest_(sketch.Resolution(std::abs(left))), options_(options) {}

bool OffsetChain::SetLink(const Chain& chain, std::size_t i, Link& link) const {
  link.place = chain.start + i < chain.spans.size() ? chain.start + i : chain.start + i - chain.spans.size();
  link.source = &chain.spans[link.place];
  link.isBack = link.place >= chain.there;
  link.shape = sketch_.ShapeOf(*link.source);
  if (!(link.shape.chord > 0)) return false;
  link.start = link.shape.a + Outwards(link.shape.tangents.start);
  link.end = link.shape.b + Outwards(link.shape.tangents.end);
  return true;
}

// Most chains have no spurs; where there are some, the chain is followed again with loops cut off.
RegionLoop OffsetChain::Around(const std::vector<RegionSpan>& spans, std::size_t there, EndForm end) {
  Chain chain{spans, there, end, 0, {}};
  spurs_.clear();
  RegionLoop loop = Follow(chain);
  if (spurs_.empty() || end == EndForm::kButt) return loop;
  AddCuts(chain);
  return chain.cuts.empty() ? loop : Follow(chain);
}

// A cut over the end of the list makes its last span the start.
void OffsetChain::AddCuts(Chain& chain) {
  std::sort(spurs_.begin(), spurs_.end());
  LoopCutter cutter(sketch_, chain.spans, left_, options_.corner);
  for (const std::size_t span : spurs_) cutter.CutAround(span);
  chain.cuts = cutter.Take();
  if (chain.cuts.empty() || chain.cuts.back().first < chain.cuts.back().last) return;
  chain.start = chain.cuts.back().last;
  for (LoopCut& cut : chain.cuts) {
    cut.first -= chain.start;
    cut.last -= chain.start;
  }
  chain.cuts.back().last = chain.spans.size();
}

OffsetChain::Joint OffsetChain::CutAt(const Chain& chain, const LoopCut& cut, Link& after) const {
  SetLink(chain, cut.last, after);
  return {cut.common, cut.common, {}};
}

void OffsetChain::AddJoint(const Link& before, const Joint& joint, const Link& after) {
  if (joint.isSpur || before.shape.k * left_ >= 1) spurs_.push_back(before.place);
  AddSpan(before, joint.end);
  AddCorner(before, joint, after);
}

RegionLoop OffsetChain::Follow(const Chain& chain) {
  loop_.spans.clear();
  const bool isClosedByCut = !chain.cuts.empty() && chain.cuts.back().last == chain.spans.size();
  auto cut = chain.cuts.begin();
  const auto lastCut = chain.cuts.end() - (isClosedByCut ? 1 : 0);
  Link first, before, after;
  std::size_t i = 0, last = isClosedByCut ? chain.cuts.back().first + 1 : chain.spans.size();
  while (i < last && !SetLink(chain, i, first)) ++i;
  while (last > i && !SetLink(chain, last - 1, before)) --last;
  if (i == last) return {};
  ReserveLarge(loop_.spans, chain.spans.size() + chain.spans.size() / 2 + 8);
  const Joint closing = isClosedByCut ? CutAt(chain, *lastCut, after) : CornerOf(before, first, chain.end);
  at_ = closing.start;
  before = first;
  while (i + 1 < last) {
    Joint joint;
    if (cut != lastCut && cut->first == i) {
      i = cut->last;
      joint = CutAt(chain, *cut++, after);
    } else {
      if (!SetLink(chain, ++i, after)) continue;
      joint = CornerOf(before, after, chain.end);
    }
    AddJoint(before, joint, after);
    before = after;
  }
  AddJoint(before, closing, first);
  Close(closing.start);
  return std::move(loop_);
}

// Parts below the resolution are one point with the place before them, but for an arc of nearly a full turn.
void OffsetChain::AddMoved(const Link& link, const Vector2d& end) {
  const Shape& s = link.shape;
  const bool isLong = s.k != 0 && Dot(s.tangents.start, s.b - s.a) < 0;
  if (isLong || IsApart(end)) Append(*link.source, link.source->dir, end);
}

bool OffsetChain::IsApart(const Vector2d& to) const {
  return std::abs(to.dx - at_.dx) > shortest_ || std::abs(to.dy - at_.dy) > shortest_;
}

void OffsetChain::Add(const RegionSpan& origin, std::int32_t dir, const Vector2d& to) {
  if (IsApart(to)) Append(origin, dir, to);
}

void OffsetChain::Append(const RegionSpan& origin, std::int32_t dir, const Vector2d& to) {
  RegionSpan& span = loop_.spans.emplace_back(origin);
  span.dir = dir;
  span.p0 = sketch_.PointAt(at_);
  span.p1 = sketch_.PointAt(to);
  at_ = to;
}

void OffsetChain::Close(const Vector2d& start) {
  if (!loop_.spans.empty()) loop_.spans.back().p1 = sketch_.PointAt(start);
}

// The strip on the inside of an arc ends at its centre: what is beyond is nearer to other spans.
void OffsetChain::AddSpan(const Link& link, const Vector2d& end) {
  const Shape& s = link.shape;
  if (s.k * left_ < 1) return AddMoved(link, end);
  const Vector2d centre = s.a + s.tangents.start.LeftNormal() * (1 / s.k);
  Add(*link.source, LINEAR, centre);
  Add(*link.source, LINEAR, end);
}

OffsetChain::Joint OffsetChain::CornerOf(const Link& before, const Link& after, EndForm end) const {
  if (end != EndForm::kCorner && before.isBack != after.isBack) return EndOf(before, after, end);
  const Vector2d &in = before.shape.tangents.end, &out = after.shape.tangents.start;
  const double sine = Cross(in, out), cosine = Dot(in, out);
  const double size = std::abs(after.start.dx) + std::abs(after.start.dy) + std::abs(left_);
  const Vector2d gap = after.start - before.end;
  if (std::abs(gap.dx) + std::abs(gap.dy) <= kSameShare * size) return {before.end, before.end, {}};
  const bool turnsBack = cosine < 0 && std::abs(sine) <= kTurnsBack;
  if (sine * left_ >= 0 && !turnsBack) {
    Vector2d common;
    if (TrimCorner(before.shape, after.shape, left_, common)) return {common, common, {}};
    return {before.end, after.start, {before.shape.b}, 1, false, false, true};
  }
  if (options_.corner == Corner::Round) return {before.end, after.start, {}, 0, true};
  return SharpCornerOf(before, after, std::atan2(std::abs(sine), cosine));
}

// The sharp corner is where both tangents meet; the chamfer touches the round corner in its middle. Lines are
// lengthened, arcs get tangent lines.
OffsetChain::Joint OffsetChain::SharpCornerOf(const Link& before, const Link& after, double turn) const {
  const Vector2d &in = before.shape.tangents.end, &out = after.shape.tangents.start;
  const bool isMiter = options_.corner == Corner::Miter && 1 / std::cos(turn / 2) <= options_.miterLimit &&
                       std::cos(turn / 2) > kTurnsBack;
  const double leg = std::abs(left_) * std::tan(isMiter ? turn / 2 : turn / 4);
  const Vector2d first = before.end + in * leg, second = isMiter ? first : after.start - out * leg;
  return {before.shape.k == 0 ? first : before.end,
          after.shape.k == 0 ? second : after.start,
          {first, second},
          2};
}

// A butt end is a line through the path's end.
OffsetChain::Joint OffsetChain::EndOf(const Link& before, const Link& after, EndForm end) const {
  if (end == EndForm::kRound) return {before.end, after.start, {}, 0, true, true};
  const Vector2d ahead = before.shape.tangents.end * (end == EndForm::kSquare ? std::abs(left_) : 0);
  return {before.end, after.start, {before.end + ahead, after.start + ahead}, 2, false, true};
}

void OffsetChain::AddArc(const Link& before, const Joint& corner, RegionSpan origin) {
  origin.pc = sketch_.PointAt(before.shape.b);
  Add(origin, left_ > 0 ? CW : ACW, corner.start);
}

void OffsetChain::AddCorner(const Link& before, const Joint& corner, const Link& after) {
  if (corner.isArc || corner.isEnd) {
    const RegionSpan origin = corner.isEnd ? EndAfter(*before.source) : CornerBefore(*after.source);
    if (corner.isArc) return AddArc(before, corner, origin);
    for (const Vector2d& via : corner.via) Add(origin, LINEAR, via);
    return Add(origin, LINEAR, corner.start);
  }
  if (corner.viaCount == 0) return;
  for (int i = 0; i < corner.viaCount; ++i) vias_.Insert(Point(corner.via[i].dx, corner.via[i].dy));
  Add(*before.source, LINEAR, corner.via[0]);
  if (corner.viaCount > 1) Add(CornerBefore(*after.source), LINEAR, corner.via[1]);
  Add(*after.source, LINEAR, corner.start);
}

}  // namespace geometry::region
