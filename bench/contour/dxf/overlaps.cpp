#include "contour/dxf/overlaps.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace vanzet::contour {
namespace {

using geometry::Point;
using geometry::Vector2d;

/// Lines are one where they are not farther apart than this, and overlap from this length on, in millimetres.
constexpr double kApart = 1e-5, kShortest = 1e-3;
/// Two lines through the same points, each rounded, differ by less than this in their direction, unless they
/// are very short.
constexpr double kSameDirection = 2e-6;
/// A line is compared with so many earlier ones of its direction that reach as far.
constexpr std::size_t kMostOpen = 16;

/// A line with its place on the infinite line that it is a part of.
struct Line {
  Point start, end;
  std::size_t number;    ///< in the drawing
  double angle, offset;  ///< of the infinite line; its direction is within half a turn
  double low, high;      ///< along it
};

Line LineOf(const Point& start, const Point& end, const Point& middle, std::size_t number) {
  double angle = std::atan2(end.y - start.y, end.x - start.x);
  if (angle < -kSameDirection) angle += std::numbers::pi;
  if (angle > std::numbers::pi - kSameDirection) angle -= std::numbers::pi;
  const Vector2d along(std::cos(angle), std::sin(angle)), from(middle, start), to(middle, end);
  const auto [low, high] = std::minmax({Dot(along, from), Dot(along, to)});
  return {start, end, number, angle, Cross(along, from), low, high};
}

geometry::Box BoxOf(const std::vector<Piece>& pieces) {
  geometry::Box box;
  for (const Piece& piece : pieces) {
    box.Insert(piece.start);
    for (const Segment& segment : piece.segments) box.Insert(segment.end);
  }
  return box;
}

std::vector<Line> LinesOf(const std::vector<Piece>& pieces, const Point& middle) {
  std::vector<Line> lines;
  for (const Piece& piece : pieces) {
    Point at = piece.start;
    for (const Segment& segment : piece.segments) {
      if (segment.bulge == 0 && Dist(at, segment.end) > kShortest) {
        lines.push_back(LineOf(at, segment.end, middle, lines.size()));
      }
      at = segment.end;
    }
  }
  return lines;
}

/// Whether the shorter line is on the longer one for more than the shortest length.
bool Overlap(const Line& a, const Line& b) {
  const Line& base = a.high - a.low >= b.high - b.low ? a : b;
  const Line& other = &base == &a ? b : a;
  const double length = Dist(base.start, base.end);
  const Vector2d along = Vector2d(base.start, base.end) * (1 / length);
  const Vector2d from(base.start, other.start), to(base.start, other.end);
  if (std::max(std::fabs(Cross(along, from)), std::fabs(Cross(along, to))) > kApart) return false;
  const auto [low, high] = std::minmax({Dot(along, from), Dot(along, to)});
  return std::min(high, length) - std::max(low, 0.0) > kShortest;
}

/// Lines of one infinite line, or of several that are close together, by their low ends.
void MarkOverlaps(const std::vector<Line>& lines, std::vector<bool>& isOver) {
  std::vector<const Line*> open;
  for (const Line& line : lines) {
    std::erase_if(open, [&](const Line* other) { return other->high - line.low < kShortest / 2; });
    for (const Line* other : open) {
      if (Overlap(*other, line)) isOver[std::max(other->number, line.number)] = true;
    }
    open.push_back(&line);
    if (open.size() > kMostOpen) {
      open.erase(std::ranges::min_element(open, {}, [](const Line* other) { return other->high; }));
    }
  }
}

/// Calls `visit` for each range of items in ascending order of a value in which it rises by `step` at the
/// most.
template <class Items, class Value, class Visit>
void ForEachCluster(Items items, Value value, double step, Visit visit) {
  std::ranges::sort(items, {}, value);
  for (std::size_t first = 0; first < items.size();) {
    std::size_t last = first + 1;
    while (last < items.size() && value(items[last]) - value(items[last - 1]) <= step) ++last;
    visit(Items(items.begin() + static_cast<std::ptrdiff_t>(first),
                items.begin() + static_cast<std::ptrdiff_t>(last)));
    first = last;
  }
}

}  // namespace

Overlaps OverlapsOf(const std::vector<Piece>& pieces) {
  const geometry::Box box = BoxOf(pieces);
  const Point middle((box.min.x + box.max.x) / 2, (box.min.y + box.max.y) / 2);
  const double step = kApart + kSameDirection * Dist(box.min, box.max);
  const std::vector<Line> lines = LinesOf(pieces, middle);
  std::vector<bool> isOver(lines.size(), false);
  const auto angle = [](const Line& line) { return line.angle; };
  const auto offset = [](const Line& line) { return line.offset; };
  ForEachCluster(lines, angle, kSameDirection, [&](const std::vector<Line>& parallel) {
    ForEachCluster(parallel, offset, step, [&](std::vector<Line> close) {
      std::ranges::sort(close, {}, &Line::low);
      MarkOverlaps(close, isOver);
    });
  });
  const auto first = std::ranges::find(isOver, true);
  if (first == isOver.end()) return {};
  return {static_cast<int>(std::ranges::count(isOver, true)),
          lines[static_cast<std::size_t>(first - isOver.begin())].start};
}

}  // namespace vanzet::contour
