#include "geometry/region/corner_trim.h"

#include <algorithm>
#include <cmath>

namespace geometry::region {
namespace {

/// Tangents whose sine is this far on the wrong side are parallel: it is rounding.
constexpr double kRounding = 1e-15;

/// One of the two spans at a corner, seen from there: the tangents at the corner and at the farthest feet.
struct Side {
  Vector2d tangents[3];
  double reach = 0;  ///< the distance of the farthest foot of a line
};

/// Whether `after` is 0 to 90 degrees from `before`, to the given side.
bool Opens(const Vector2d& before, const Vector2d& after, double side) {
  return side * Cross(before, after) >= -kRounding && Dot(before, after) >= 0;
}

/// Whether a tangent is of the half of the span next to the corner; the tangent in the middle of a span is
/// parallel to its chord.
bool IsInHalf(const Vector2d& tangent, const Vector2d& atCorner, const Vector2d& middle, double turns) {
  return Dot(tangent, atCorner) > 0 && turns * Cross(tangent, atCorner) >= -kRounding &&
         (Dot(middle, atCorner) <= 0 || turns * Cross(middle, tangent) >= 0);
}

bool FeetAreInHalf(const Shape& span, const Side& side, double turns) {
  if (span.k == 0) return 2 * side.reach <= span.chord;
  const Vector2d middle = (span.b - span.a) * (1 / span.chord);
  return std::all_of(side.tangents + 1, side.tangents + 3, [&](const Vector2d& tangent) {
    return IsInHalf(tangent, side.tangents[0], middle, turns);
  });
}

bool TrimLines(const Shape& before, const Shape& after, double leg, const Vector2d& end, Vector2d& common) {
  if (2 * std::abs(leg) > std::min(before.chord, after.chord)) return false;
  common = end - before.tangents.end * std::abs(leg);
  return true;
}

}  // namespace

// With s along the first offset, as sigma in curve.h, the second one's equation, divided by 2 (1 + k2 left),
// is a s s + sine s + left (1 - cosine) = 0. Its root next to 0 is written so that no digits are lost.
bool TrimCorner(const Shape& before, const Shape& after, double left, Vector2d& common) {
  const Vector2d &in = before.tangents.end, &out = after.tangents.start;
  const double sine = Cross(in, out), cosine = Dot(in, out);
  if (cosine < 0 || before.k * left >= 1 || after.k * left >= 1) return false;
  const Vector2d normal = in.LeftNormal(), end = before.b + normal * left;
  const double half = sine / (1 + cosine), opposite = sine * half;
  if (before.k == 0 && after.k == 0) return TrimLines(before, after, left * half, end, common);
  const double k1 = before.k / (1 - before.k * left), k2 = after.k / (1 - after.k * left);
  const double a =
      left * opposite * k1 * k1 / 4 + (k2 * k1 * left * opposite + k2 - k1 * cosine) / (2 * (1 + k2 * left));
  const double rest = 1 - 4 * a * left / (1 + cosine);
  if (!(rest >= 0)) return false;
  const double s = -2 * left * half / (1 + std::sqrt(rest)), bow = k1 * s / 2;
  const Vector2d step = (in * s + normal * (s * bow)) * (1 / (1 + bow * bow));
  const Vector2d met = normal * left + step;  // from the corner
  const Side first{
      {in, TangentNearest(in, before.k, out.LeftNormal() * left), TangentNearest(in, before.k, met)},
      std::max(std::abs(left * sine), std::abs(s))};
  const Side second{{out, TangentNearest(out, after.k, normal * left), TangentNearest(out, after.k, met)},
                    std::max(std::abs(left * sine), std::abs(Dot(met, out)))};
  for (const Vector2d& tangent : first.tangents) {
    for (const Vector2d& other : second.tangents) {
      if (!Opens(tangent, other, left)) return false;
    }
  }
  if (!FeetAreInHalf(before, first, before.k) || !FeetAreInHalf(after, second, -after.k)) return false;
  common = before.b + met;
  return true;
}

}  // namespace geometry::region
