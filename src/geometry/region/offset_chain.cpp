#include "geometry/region/offset_chain.h"

#include <algorithm>
#include <cmath>

namespace geometry::region {
namespace {

/// A chain that turns back by this much or less to either side of half a turn gets a round corner, which is
/// never wrong: its sector is within the distance of the corner.
constexpr double kTurnsBack = 1e-9;
/// Moved ends whose difference is rounding alone, as a share of the coordinates.
constexpr double kSameShare = 1e-14;

/// The span that a corner before `after` comes from.
RegionSpan CornerOf(const ChainLink& after) {
  RegionSpan corner = after.source;
  corner.dir = LINEAR;
  corner.ID = (after.source.ID & 0x00ffffffu) | ROLL_AROUND;
  return corner;
}

constexpr double kPi = 3.141592653589793;

}  // namespace

void OffsetChain::Add(const std::vector<ChainLink>& links, std::size_t there, EndForm end) {
  std::vector<Moved> moved;
  for (const ChainLink& link : links) {
    const Shape& s = link.shape;
    moved.push_back({s.a + Outwards(s.tangents.start), s.b + Outwards(s.tangents.end)});
  }
  for (std::size_t i = 0; i < links.size(); ++i) {
    const std::size_t next = (i + 1) % links.size();
    const bool isEnd = end != EndForm::kCorner && (i + 1 == there || i + 1 == links.size());
    if (isEnd) {
      AddEnd(links[i], moved[i], moved[next], end);
    } else {
      AddCorner(links[i], moved[i], links[next], moved[next]);
    }
  }
  for (std::size_t i = 0; i < links.size(); ++i) AddSpan(links[i], moved[i]);
}

// The strip on the inside of an arc ends at its centre: what is beyond is nearer to other spans.
void OffsetChain::AddSpan(const ChainLink& link, const Moved& moved) {
  const Shape& s = link.shape;
  if (s.k == 0) {
    sketch_.AddLine(moved.start, moved.end, link.source);
  } else if (s.k * left_ < 1) {
    Shape arc = s;
    arc.a = moved.start;
    arc.b = moved.end;
    arc.k = s.k / (1 - s.k * left_);
    arc.chord = (arc.b - arc.a).Magnitude();
    sketch_.Add(arc, link.source, {1, 0});
  } else {
    const Vector2d centre = s.a + s.tangents.start.LeftNormal() * (1 / s.k);
    sketch_.AddLine(moved.start, centre, link.source);
    sketch_.AddLine(centre, moved.end, link.source);
  }
}

void OffsetChain::AddCorner(const ChainLink& before, Moved& from, const ChainLink& after, Moved& to) {
  const Vector2d &in = before.shape.tangents.end, &out = after.shape.tangents.start;
  const double sine = Cross(in, out), cosine = Dot(in, out);
  const bool turnsBack = cosine < 0 && std::abs(sine) <= kTurnsBack;
  const double size = std::abs(to.start.dx) + std::abs(to.start.dy) + std::abs(left_);
  if ((to.start - from.end).Magnitude() <= kSameShare * size) {
    to.start = from.end;
    return;
  }
  if (sine * left_ >= 0 && !turnsBack) {
    if (Shorten(before, from, after, to)) return;
    sketch_.AddLine(from.end, before.shape.b, before.source);
    sketch_.AddLine(before.shape.b, to.start, after.source);
    return;
  }
  const double turn = std::atan2(std::abs(sine), cosine);
  if (options_.corner == Corner::Round) {
    AddRound(before, from, to, {in, out}, turn, CornerOf(after));
  } else {
    AddSharp(before, from, after, to, turn);
  }
}

// Between lines the spur to the corner and back encloses what both strips have in common there. Without the
// spur these points are counted one time less, and so at least once.
bool OffsetChain::Shorten(const ChainLink& before, Moved& from, const ChainLink& after, Moved& to) const {
  const Shape &first = before.shape, &second = after.shape;
  const double sine = std::abs(Cross(first.tangents.end, second.tangents.start));
  const double cosine = Dot(first.tangents.end, second.tangents.start);
  if (first.k != 0 || second.k != 0 || cosine < 0) return false;
  const double leg = std::abs(left_) * sine / (1 + cosine);
  if (2 * leg > std::min(first.chord, second.chord)) return false;
  from.end = to.start = from.end - first.tangents.end * leg;
  return true;
}

void OffsetChain::AddRound(const ChainLink& before, const Moved& from, const Moved& to,
                           const Tangents& tangents, double turn, const RegionSpan& corner) {
  Shape arc{from.end, to.start, tangents, -1 / left_, turn, (to.start - from.end).Magnitude()};
  RegionSpan origin = corner;
  origin.dir = left_ > 0 ? CW : ACW;
  origin.pc = sketch_.PointAt(before.shape.b);
  sketch_.Add(arc, origin, {1, 0});
}

/// Lengthens a moved line to the point, or adds a tangent line to a moved arc.
void OffsetChain::Extend(const ChainLink& link, Vector2d& end, const Vector2d& to, bool atEnd) {
  if (link.shape.k == 0) {
    end = to;
  } else if (atEnd) {
    sketch_.AddLine(end, to, link.source);
  } else {
    sketch_.AddLine(to, end, link.source);
  }
}

// The sharp corner is where both tangents meet; the chamfer touches the round corner in its middle.
void OffsetChain::AddSharp(const ChainLink& before, Moved& from, const ChainLink& after, Moved& to,
                           double turn) {
  const Vector2d &in = before.shape.tangents.end, &out = after.shape.tangents.start;
  const double reach = std::abs(left_);
  const bool isMiter = options_.corner == Corner::Miter && 1 / std::cos(turn / 2) <= options_.miterLimit &&
                       std::cos(turn / 2) > kTurnsBack;
  const double leg = reach * std::tan(isMiter ? turn / 2 : turn / 4);
  const Vector2d first = from.end + in * leg, second = isMiter ? first : to.start - out * leg;
  Extend(before, from.end, first, true);
  if (!isMiter) {
    sketch_.AddLine(first, second, CornerOf(after));
  }
  Extend(after, to.start, second, false);
}

// A butt end is a line through the path's end.
void OffsetChain::AddEnd(const ChainLink& before, const Moved& from, const Moved& to, EndForm end) {
  const Vector2d& in = before.shape.tangents.end;
  RegionSpan cap = CornerOf(before);
  cap.index0 = cap.index1 = 0;
  if (end == EndForm::kRound) return AddRound(before, from, to, {in, -in}, kPi, cap);
  const double ahead = end == EndForm::kSquare ? std::abs(left_) : 0;
  const Vector2d first = from.end + in * ahead, second = to.start + in * ahead;
  sketch_.AddLine(from.end, first, cap);
  sketch_.AddLine(first, second, cap);
  sketch_.AddLine(second, to.start, cap);
}

}  // namespace geometry::region
