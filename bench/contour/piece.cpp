#include "contour/piece.h"

#include <cmath>

#include "contour/builder.h"

namespace vanzet::contour {
namespace {

using geometry::Point;

/// An arc that rises less than this over its chord, in millimetres, is a line.
constexpr double kFlat = 1e-6;

/// With the angle 4 atan(b) over the chord c, the centre is c (1 - b^2) / 4b to the left of the chord's
/// middle.
Point CentreOf(const Point& start, const Segment& segment) {
  const geometry::Vector2d chord(start, segment.end);
  const double b = segment.bulge;
  const Point middle((start.x + segment.end.x) / 2, (start.y + segment.end.y) / 2);
  return middle + chord.LeftNormal() * ((1 - b * b) / (4 * b));
}

Result<void> AddTo(Builder& builder, const Point& start, const Segment& segment) {
  const double rise = std::fabs(segment.bulge) * Dist(start, segment.end) / 2;
  if (rise < kFlat) return builder.LineTo(segment.end);
  return builder.ArcTo(segment.bulge > 0 ? geometry::ACW : geometry::CW, segment.end,
                       CentreOf(start, segment));
}

}  // namespace

void Piece::Reverse() {
  Piece back{End(), {}, line};
  back.segments.reserve(segments.size());
  for (std::size_t i = segments.size(); i-- > 0;) {
    back.segments.push_back({i == 0 ? start : segments[i - 1].end, -segments[i].bulge});
  }
  *this = std::move(back);
}

void Piece::Scale(double factor) {
  start *= factor;
  for (Segment& segment : segments) segment.end *= factor;
}

Result<void> CheckPiece(const Piece& piece) {
  if (const auto checked = CheckPoint(piece.start); !checked) return checked;
  for (const Segment& segment : piece.segments) {
    if (const auto checked = CheckPoint(segment.end); !checked) return checked;
  }
  return {};
}

Result<geometry::KurveEx> CurveOf(const Piece& piece) {
  Builder builder;
  if (const auto started = builder.Start(piece.start); !started) return started.fault();
  Point at = piece.start;
  for (const Segment& segment : piece.segments) {
    if (const auto added = AddTo(builder, at, segment); !added) return added.fault();
    at = segment.end;
  }
  return builder.Take();
}

}  // namespace vanzet::contour
