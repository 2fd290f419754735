#include "geometry/region/nearest.h"

#include <algorithm>
#include <cmath>

namespace geometry::region {
namespace {

/// Crossings are searched within this share of the coordinates.
constexpr double kMeetShare = 1e-14;

double MarginOf(const Curve& a, const Curve& b) {
  double largest = 0;
  for (const Vector2d& p : {a.a, a.b, b.a, b.b})
    largest = std::max({largest, std::abs(p.dx), std::abs(p.dy)});
  return largest * kMeetShare;
}

/// Whether the nearest point of the whole line or circle is on the curve.
bool Faces(const Curve& c, const Tangents& tangents, const Vector2d& p) {
  return Dot(tangents.start, p - c.a) >= 0 && Dot(tangents.end, p - c.b) <= 0;
}

Vector2d CentreOf(const Curve& c, const Tangents& tangents) {
  return c.a + tangents.start.LeftNormal() * (1 / c.k);
}

/// Whether the point is nearer to the centre than to the curve, where distances from the centre are exact.
bool IsCentral(const PreparedCurve& curve, const Vector2d& p) {
  return curve.LeftOf(p) * curve.Shape().k > 0.5;
}

/// Two curves, and the nearest points so far.
class Pair {
 public:
  Pair(const Curve& a, const Curve& b)
      : a_(a),
        b_(b),
        onA_(a, MarginOf(a, b)),
        onB_(b, MarginOf(a, b)),
        tangentsA_(TangentsOf(a)),
        tangentsB_(TangentsOf(b)) {}

  Nearness Search() {
    Vector2d found[2];
    if (onA_.Meet(onB_, {}, found) > 0) return {0, found[0]};
    for (const Vector2d& p : {a_.a, a_.b}) TryPointOfA(p);
    for (const Vector2d& p : {b_.a, b_.b}) TryPointOfB(p);
    TryBetween();
    return nearest_;
  }

 private:
  void Take(double distance, const Vector2d& place) {
    if (distance < nearest_.distance) nearest_ = {distance, place};
  }
  void TryPointOfA(const Vector2d& p) {
    for (const Vector2d& end : {b_.a, b_.b}) Take((p - end).Magnitude(), p);
    if (!Faces(b_, tangentsB_, p)) return;
    if (!IsCentral(onB_, p)) return Take(std::abs(onB_.LeftOf(p)), p);
    Take(1 / std::abs(b_.k) - (p - CentreOf(b_, tangentsB_)).Magnitude(), p);
  }
  void TryPointOfB(const Vector2d& p) {
    if (!Faces(a_, tangentsA_, p)) return;
    if (IsCentral(onA_, p)) return TryCentralPointOfB(p);
    const double left = onA_.LeftOf(p);
    Take(std::abs(left), p - NormalAt(p) * left);
  }
  /// All points of the arc are equally far from its centre.
  void TryCentralPointOfB(const Vector2d& p) {
    const Vector2d centre = CentreOf(a_, tangentsA_), out = p - centre;
    const double radius = 1 / std::abs(a_.k), length = out.Magnitude();
    Take(radius - length, length > 0 ? centre + out * (radius / length) : a_.a);
  }
  /// The left normal of the first curve at its point nearest to `p`.
  Vector2d NormalAt(const Vector2d& p) const {
    if (a_.k == 0) return tangentsA_.start.LeftNormal();
    Vector2d towards = CentreOf(a_, tangentsA_) - p;
    towards.Normalise();
    return towards * (a_.k > 0 ? 1 : -1);
  }
  /// Where both have a common normal: on the line through the centre of one and the nearest and farthest
  /// points of the other.
  void TryBetween() {
    if (a_.k == 0 && b_.k == 0) return;
    if (b_.k == 0) {
      const Vector2d along = tangentsB_.start, centre = CentreOf(a_, tangentsA_);
      TryCommon(b_.a + along * Dot(along, centre - b_.a));
      return;
    }
    const Vector2d centre = CentreOf(b_, tangentsB_);
    Vector2d towards = a_.k == 0 ? tangentsA_.start.LeftNormal() : CentreOf(a_, tangentsA_) - centre;
    if (towards.Normalise() == 0) return;
    for (const double side : {1.0, -1.0}) TryCommon(centre + towards * (side / b_.k));
  }
  void TryCommon(const Vector2d& onB) {
    if (Faces(b_, tangentsB_, onB)) TryPointOfB(onB);
  }

  const Curve &a_, &b_;
  PreparedCurve onA_, onB_;
  Tangents tangentsA_, tangentsB_;
  Nearness nearest_;
};

BoxTree::Item BoxOf(const Curve& c) {
  return {std::min(c.a.dx, c.b.dx), std::min(c.a.dy, c.b.dy), std::max(c.a.dx, c.b.dx),
          std::max(c.a.dy, c.b.dy)};
}

std::vector<Curve> CurvesOf(const Pieces& pieces) {
  std::vector<Curve> curves;
  for (const Piece& piece : pieces.List()) curves.push_back(pieces.CurveOf(piece));
  return curves;
}

std::vector<BoxTree::Item> BoxesOf(const std::vector<Curve>& curves) {
  std::vector<BoxTree::Item> boxes;
  boxes.reserve(curves.size());
  for (const Curve& curve : curves) boxes.push_back(BoxOf(curve));
  return boxes;
}

}  // namespace

Nearness NearestOf(const Curve& a, const Curve& b) {
  return Pair(a, b).Search();
}

NearestSearch::NearestSearch(const Pieces& pieces) : curves_(CurvesOf(pieces)), tree_(BoxesOf(curves_)) {}

Nearness NearestSearch::Search(const Curve& curve, const Nearness& than) const {
  Nearness nearest = than;
  double limit = than.distance;
  tree_.VisitNearest(BoxOf(curve), limit, [&](std::uint32_t i) {
    const Nearness found = NearestOf(curve, curves_[i]);
    if (found.distance >= nearest.distance) return;
    nearest = found;
    limit = found.distance;
  });
  return nearest;
}

}  // namespace geometry::region
