#include "geometry/region/loop_parts.h"

#include <algorithm>
#include <cmath>

#include "geometry/region/large_vector.h"

namespace geometry::region {
namespace {

constexpr double kMargin = 16, kShortest = 4096;
/// The difference of an arc's radii that is allowed, as a share of its chord.
constexpr double kInexact = 1e-6;
/// How far from the separating line the ends have to be, as a share of the part.
constexpr double kAway = 1e-4;
/// Tangents of a smaller sine go the same way.
constexpr double kSmooth = 1e-6;

/// The quarter of the plane that the vector from the centre points to.
int QuarterOf(const Vector2d& v) {
  if (v.dy >= 0) return v.dx > 0 ? 0 : 1;
  return v.dx < 0 ? 2 : 3;
}

constexpr Vector2d kAxes[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};

double Size(const Vector2d& v) {
  return std::abs(v.dx) + std::abs(v.dy);
}

}  // namespace

LoopParts::LoopParts(const Sketch& sketch, double resolution)
    : base_(sketch.Base()), shortest_(kShortest * resolution), margin_(kMargin * resolution) {}

Curve LoopParts::operator[](std::uint32_t i) const {
  return {parts_[i].a, parts_[i].b, parts_[i].k};
}

bool LoopParts::IsShort(std::uint32_t i) const {
  return !(Size(parts_[i].b - parts_[i].a) > shortest_);
}

std::vector<BoxTree::Item> LoopParts::TakeBoxes() {
  for (BoxTree::Item& box : boxes_) {
    box.left -= margin_;
    box.bottom -= margin_;
    box.right += margin_;
    box.top += margin_;
  }
  return std::move(boxes_);
}

void LoopParts::Reserve(std::size_t spans) {
  ReserveLarge(parts_, spans + spans / 2);
  ReserveLarge(boxes_, spans + spans / 2);
}

bool LoopParts::Add(const RegionLoop& loop) {
  loops_.push_back({static_cast<std::uint32_t>(parts_.size()), 0, false});
  if (loop.spans.empty()) return true;
  leftmost_ = Vector2d(1e300, 0);
  Vector2d a = Local(loop.spans.back().p1);
  for (const RegionSpan& span : loop.spans) {
    const Vector2d b = Local(span.p1);
    if (span.dir == LINEAR) {
      AddLine(a, b);
    } else if (!AddArc(span, a, b)) {
      return false;
    }
    ++spanCount_;
    a = b;
  }
  Loop& added = loops_.back();
  added.last = static_cast<std::uint32_t>(parts_.size() - 1);
  parts_[added.last].next = added.first;
  const Part& first = parts_[added.first];
  CheckJoint(added.last, first.a, first.b - first.a, firstTangent_);
  return true;
}

void LoopParts::AddLine(const Vector2d& a, const Vector2d& b) {
  const Vector2d chord = b - a;
  const Vector2d tangent = chord * (1 / std::sqrt(Dot(chord, chord)));
  AddPart(a, b, 0, {tangent, tangent});
}

void LoopParts::Widen(double inexact) {
  margin_ = std::max(margin_, kMargin / kShortest * shortest_ + inexact);
}

// An arc is cut where it is parallel to an axis, unless that is next to its ends.
bool LoopParts::AddArc(const RegionSpan& span, const Vector2d& a, const Vector2d& b) {
  const Vector2d centre = Local(span.pc), first = a - centre, second = b - centre, chord = b - a;
  const double atStart = std::sqrt(Dot(first, first)), atEnd = std::sqrt(Dot(second, second));
  const double inexact = std::abs(atStart - atEnd), radius = (atStart + atEnd) / 2;
  if (!(inexact <= kInexact * Size(chord))) return false;
  Widen(inexact);
  const int turn = span.dir > 0 ? 1 : -1;
  const bool isLong = Cross(chord, centre - a) * turn < 0;
  int quarter = QuarterOf(first);
  int cuts = (turn * (QuarterOf(second) - quarter) + 4) % 4;
  if (cuts == 0 && isLong) cuts = 4;
  Vector2d from = a, out = first * (1 / atStart);
  for (; cuts > 0; --cuts) {
    const Vector2d& axis = kAxes[turn > 0 ? (quarter + 1) % 4 : quarter];
    quarter = (quarter + turn + 4) % 4;
    const Vector2d at = centre + axis * radius;
    const double aside = std::min(Size(at - from), Size(b - at));
    if (aside <= 2 * shortest_) {
      Widen(aside * aside / radius);
      continue;
    }
    AddPart(from, at, turn / radius, {out.LeftNormal() * turn, axis.LeftNormal() * turn});
    from = at;
    out = axis;
  }
  out = out.LeftNormal() * turn;
  AddPart(from, b, turn / radius, {out, second.LeftNormal() * (turn / atEnd)});
  return true;
}

void LoopParts::AddPart(const Vector2d& a, const Vector2d& b, double k, const Tangents& tangents) {
  const Vector2d chord = b - a;
  const auto number = static_cast<std::uint32_t>(parts_.size());
  const bool isFirst = number == loops_.back().first;
  parts_.push_back({a, b, k, number + 1, spanCount_});
  const bool isShort = !(Size(chord) > shortest_);
  const double left = std::min(a.dx, b.dx), bottom = std::min(a.dy, b.dy);
  const double right = std::max(a.dx, b.dx), top = std::max(a.dy, b.dy);
  const Advance advance = isShort  ? 0
                          : k == 0 ? AdvanceAlong(tangents.start)
                                   : AdvanceAlong(tangents.start) & AdvanceAlong(tangents.end);
  boxes_.push_back({left, bottom, right, top, true, isFirst, advance});
  top_ = std::max(top_, top);
  if (isFirst) {
    firstTangent_ = tangents.start;
  } else {
    CheckJoint(number - 1, a, chord, tangents.start);
  }
  arrival_ = {chord, tangents.end};
}

/// Whether the line through the joint, at a right angle to the mean of the tangents, separates the parts; and
/// the direction of the loop at its leftmost joint.
void LoopParts::CheckJoint(std::uint32_t before, const Vector2d& at, const Vector2d& chord,
                           const Vector2d& tangent) {
  const Vector2d mean = arrival_.tangent + tangent;
  const bool isSeparated = std::min(Size(chord), Size(arrival_.chord)) > shortest_ &&
                           Dot(mean, tangent) > kAway && Dot(mean, chord) > kAway * Size(chord) &&
                           Dot(mean, arrival_.chord) > kAway * Size(arrival_.chord);
  if (!isSeparated) doubtful_.push_back(before);
  if (at.dx >= leftmost_.dx) return;
  leftmost_ = at;
  const double turn = Cross(arrival_.tangent, tangent);
  loops_.back().isAnticlockwise = std::abs(turn) > kSmooth ? turn > 0 : mean.dy < 0;
}

}  // namespace geometry::region
