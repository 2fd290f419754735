#include "check/facet_depth.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace vanzet::check {
namespace {

using geometry::Box3d;
using geometry::Point3d;
using geometry::Vector3d;

constexpr double kSmallest = 0.002;  // millimetres
constexpr double kNearly = 0.9;      // of the least distance so far
constexpr double kWithdrawn = 0.95;  // tolerances
constexpr double kLarge = 4;         // tolerances: facets that are longer are worth cutting along

double DistanceFrom(const Facet& facet, const Point3d& place) {
  return Vector3d(place, facet.NearestTo(place)).Magnitude();
}

bool AreApart(const Box3d& a, const Box3d& b) {
  return a.min.x > b.max.x || b.min.x > a.max.x || a.min.y > b.max.y || b.min.y > a.max.y ||
         a.min.z > b.max.z || b.min.z > a.max.z;
}

Box3d BoxOf(const Facet& facet) {
  Box3d box;
  for (const Point3d& corner : facet.corners) box.Insert(corner);
  return box;
}

double LongestEdge(const Facet& facet) {
  double longest = 0;
  for (std::size_t i = 0; i < 3; ++i)
    longest = std::max(longest, Dist(facet.corners[i], facet.corners[(i + 1) % 3]));
  return longest;
}

Vector3d UnitOf(Vector3d vector) {
  vector.Normalise();
  return vector;
}

/// The facet with another corner in the first place, in the same order.
Facet Turned(const Facet& facet, std::size_t first) {
  const auto& corners = facet.corners;
  return {{corners[first], corners[(first + 1) % 3], corners[(first + 2) % 3]}};
}

Point3d Between(const Point3d& a, const Point3d& b, double share) {
  return a + Vector3d(a, b) * share;
}

using Pieces = std::vector<Facet>;

/// Halves a facet at its longest edge.
void Halve(const Facet& facet, Pieces& pieces) {
  std::size_t longest = 0;
  const auto length = [&](std::size_t i) { return Dist(facet.corners[i], facet.corners[(i + 1) % 3]); };
  for (const std::size_t i : {std::size_t{1}, std::size_t{2}}) {
    if (length(i) > length(longest)) longest = i;
  }
  const auto [a, b, c] = Turned(facet, longest).corners;
  const Point3d middle = Between(a, b, 0.5);
  pieces.push_back({{a, middle, c}});
  pieces.push_back({{middle, b, c}});
}

struct CutPlane {
  Point3d place;
  Vector3d across;  ///< of length 1

  double HeightOf(const Point3d& point) const { return Dot(across, Vector3d(place, point)); }
};

/// The plane through the edge of a facet, at right angles to it, that a point is farthest beyond; nothing
/// when it is beyond none.
std::optional<CutPlane> EdgeBeforeOf(const Facet& facet, const Point3d& point) {
  std::optional<CutPlane> farthest;
  double height = 0;
  const Vector3d across = facet.Across();
  for (std::size_t i = 0; i < 3; ++i) {
    CutPlane plane{facet.corners[i], Cross(Vector3d(facet.corners[i], facet.corners[(i + 1) % 3]), across)};
    plane.across.Normalise();
    if (plane.HeightOf(point) <= height) continue;
    height = plane.HeightOf(point);
    farthest = plane;
  }
  return farthest;
}

/// Cuts a facet by a plane. Returns false when all of it is on one side.
bool CutBy(const CutPlane& plane, const Facet& facet, Pieces& pieces) {
  std::array<double, 3> heights{};
  std::ranges::transform(facet.corners, heights.begin(),
                         [&](const Point3d& corner) { return plane.HeightOf(corner); });
  if (std::ranges::max(heights) < kSmallest || std::ranges::min(heights) > -kSmallest) return false;
  std::size_t alone = 0;
  const auto isAbove = [&](std::size_t i) { return heights[i % 3] > 0; };
  while (isAbove(alone) == isAbove(alone + 1) || isAbove(alone) == isAbove(alone + 2)) ++alone;
  const auto [a, b, c] = Turned(facet, alone).corners;
  const auto share = [&](std::size_t other) {
    return heights[alone] / (heights[alone] - heights[other % 3]);
  };
  const Point3d ab = Between(a, b, share(alone + 1)), ac = Between(a, c, share(alone + 2));
  pieces.push_back({{a, ab, ac}});
  pieces.push_back({{ab, b, c}});
  pieces.push_back({{ab, c, ac}});
  return true;
}

class Depths {
 public:
  Depths(const FacetTree& solid, Side side, double tolerance)
      : solid_(solid), side_(side), tolerance_(tolerance) {}

  bool IsDeeper(const Point3d& place) {
    const double distance = solid_.NearestTo(place).distance;
    return distance > tolerance_ && IsOnSide(place, distance);
  }

  /// The first place found on a facet that is deeper than the tolerance.
  std::optional<DeepPlace> FindOn(const Facet& facet) {
    Pieces pieces = {facet};
    while (!pieces.empty()) {
      const Facet piece = pieces.back();
      pieces.pop_back();
      if (auto deep = Look(piece, pieces)) return deep;
    }
    return {};
  }

 private:
  /// Around a place no other one is on another side, up to the distance of the nearest facet.
  bool IsOnSide(const Point3d& place, double distance) {
    if (Dist(place, knownPlace_) >= knownDistance_) {
      isKnownOnSide_ = solid_.Contains(place) == (side_ == Side::kInside);
      knownPlace_ = place;
      knownDistance_ = distance;
    }
    return isKnownOnSide_;
  }

  /// The centre of a piece when it is too deep. A piece about which nothing is certain yet is cut.
  std::optional<DeepPlace> Look(const Facet& piece, Pieces& pieces) {
    if (side_ == Side::kInside && AreApart(BoxOf(piece), solid_.box())) return {};
    const Point3d centre = piece.Centre();
    const double reach = piece.Reach();
    const auto [distance, facet] = solid_.NearestTo(centre);
    if (distance > tolerance_) {
      if (IsOnSide(centre, distance)) return DeepPlace{centre, distance};
      if (reach <= distance + tolerance_) return {};
    } else if (distance + reach <= tolerance_ || IsNear(piece, *facet)) {
      return {};
    }
    if (solid_.IsClosed() && IsBesideWhenMoved(piece)) return {};
    if (reach > kSmallest) Cut(piece, *facet, pieces);
    return {};
  }

  bool IsBeyond(const Point3d& place) { return !IsOnSide(place, solid_.NearestTo(place).distance); }

  /// Whether a piece is on the other side as a whole: its centre is, and the surface does not cross it.
  bool IsBeside(const Facet& piece) { return solid_.FindMet(piece) == nullptr && IsBeyond(piece.Centre()); }

  /// The same of a piece that is moved by less than the tolerance, by which no point of it is deeper: into
  /// its body, and away from a facet that it still meets then.
  bool IsBesideWhenMoved(const Facet& piece) {
    const Vector3d inwards = UnitOf(piece.Across()) * -1;
    const Facet withdrawn = Moved(piece, inwards);
    const Facet* const met = solid_.FindMet(withdrawn);
    if (met == nullptr) return IsBeyond(withdrawn.Centre());
    const Vector3d away = UnitOf(met->Across()) * (side_ == Side::kInside ? 1 : -1);
    return IsBeside(Moved(piece, UnitOf(inwards + away))) || IsBeside(piece);
  }

  Facet Moved(Facet piece, const Vector3d& direction) const {
    for (Point3d& corner : piece.corners) corner = corner + direction * (kWithdrawn * tolerance_);
    return piece;
  }

  bool IsNear(const Facet& piece, const Facet& facet) const {
    return std::ranges::all_of(
        piece.corners, [&](const Point3d& corner) { return DistanceFrom(facet, corner) <= tolerance_; });
  }

  void Cut(const Facet& piece, const Facet& facet, Pieces& pieces) const {
    if (LongestEdge(facet) > kLarge * tolerance_) {
      const auto* const farthest = std::ranges::max_element(
          piece.corners, {}, [&](const Point3d& corner) { return DistanceFrom(facet, corner); });
      const auto plane = EdgeBeforeOf(facet, *farthest);
      if (plane && CutBy(*plane, piece, pieces)) return;
    }
    Halve(piece, pieces);
  }

  const FacetTree& solid_;
  Side side_;
  double tolerance_;
  Point3d knownPlace_;
  double knownDistance_ = 0;
  bool isKnownOnSide_ = false;
};

/// A solid whose surface the body does not cross is in the body, or beside it.
std::vector<DeepPlace> FindBelow(const FacetTree& body, const FacetTree& solid, Side side, double tolerance) {
  Depths depths(solid, side, tolerance);
  const double below = (side == Side::kInside ? -2 : 2) * tolerance;
  std::vector<DeepPlace> found;
  for (const Facet& facet : solid.facets()) {
    Vector3d across = facet.Across();
    across.Normalise();
    const Point3d place = facet.Centre() + across * below;
    if (depths.IsDeeper(place) && body.Contains(place)) found.push_back({place, 2 * tolerance});
  }
  return found;
}

double DistanceOfCorners(const FacetTree& a, const FacetTree& b) {
  double least = std::numeric_limits<double>::infinity();
  for (const Facet& facet : a.facets()) {
    for (const Point3d& corner : facet.corners) least = std::min(least, b.NearestTo(corner).distance);
  }
  return least;
}

}  // namespace

std::vector<DeepPlace> FindDeeper(const FacetTree& body, const FacetTree& solid, Side side,
                                  double tolerance) {
  if (side == Side::kInside && AreApart(body.box(), solid.box())) return {};
  Depths depths(solid, side, tolerance);
  std::vector<DeepPlace> found;
  for (const Facet& facet : body.facets()) {
    if (const auto deep = depths.FindOn(facet)) found.push_back(*deep);
  }
  if (found.empty()) found = FindBelow(body, solid, side, tolerance);
  std::ranges::stable_sort(found, std::ranges::greater(), &DeepPlace::depth);
  return found;
}

double DistanceBetween(const FacetTree& a, const FacetTree& b, double tolerance) {
  double least = std::min(DistanceOfCorners(a, b), DistanceOfCorners(b, a));
  for (const Facet& facet : a.facets()) {
    Pieces pieces = {facet};
    while (!pieces.empty() && least > tolerance) {
      const Facet piece = pieces.back();
      pieces.pop_back();
      const double distance = b.NearestTo(piece.Centre()).distance, reach = piece.Reach();
      least = std::min(least, distance);
      if (reach > kSmallest && distance - reach < std::max(tolerance, kNearly * least)) Halve(piece, pieces);
    }
  }
  return least;
}

}  // namespace vanzet::check
