#include "check/facet_tree.h"

#include <algorithm>
#include <cmath>

namespace vanzet::check {
namespace {

using geometry::Box3d;
using geometry::Point3d;
using geometry::Vector3d;

constexpr std::size_t kFewFacets = 4;  // that a box is not halved for

double Squared(const Vector3d& vector) {
  return Dot(vector, vector);
}

/// The square of the distance from a box; 0 within it.
double SquaredDistance(const Box3d& box, const Point3d& place) {
  const auto beyond = [](double low, double value, double high) {
    return std::max({low - value, value - high, 0.0});
  };
  return Squared({beyond(box.min.x, place.x, box.max.x), beyond(box.min.y, place.y, box.max.y),
                  beyond(box.min.z, place.z, box.max.z)});
}

Point3d Middle(const Box3d& box) {
  return {(box.min.x + box.max.x) / 2, (box.min.y + box.max.y) / 2, (box.min.z + box.max.z) / 2};
}

bool AreApart(const Box3d& a, const Box3d& b) {
  return a.min.x > b.max.x || b.min.x > a.max.x || a.min.y > b.max.y || b.min.y > a.max.y ||
         a.min.z > b.max.z || b.min.z > a.max.z;
}

/// Whether two facets have a gap between them along a direction.
bool HasGapAlong(const Vector3d& direction, const Facet& a, const Facet& b) {
  constexpr double kRounding = 1e-9;  // of the direction's length, times millimetres
  const Point3d& from = a.corners.front();
  double low = 0, high = 0, otherLow = std::numeric_limits<double>::infinity(), otherHigh = -otherLow;
  for (std::size_t i = 0; i < 3; ++i) {
    const double own = Dot(direction, Vector3d(from, a.corners[i]));
    const double other = Dot(direction, Vector3d(from, b.corners[i]));
    low = std::min(low, own), high = std::max(high, own);
    otherLow = std::min(otherLow, other), otherHigh = std::max(otherHigh, other);
  }
  const double gap = std::max(otherLow - high, low - otherHigh);
  return gap > 0 && gap * gap > kRounding * kRounding * Squared(direction);
}

std::array<Vector3d, 3> EdgesOf(const Facet& facet) {
  const auto& [a, b, c] = facet.corners;
  return {Vector3d(a, b), Vector3d(b, c), Vector3d(c, a)};
}

/// A line that begins at a place.
struct Ray {
  Point3d from;
  Vector3d direction;

  bool Meets(const Box3d& box) const {
    double enter = 0, leave = std::numeric_limits<double>::infinity();
    const auto cut = [&](double low, double high, double start, double step) {
      const double a = (low - start) / step, b = (high - start) / step;
      enter = std::max(enter, std::min(a, b));
      leave = std::min(leave, std::max(a, b));
    };
    cut(box.min.x, box.max.x, from.x, direction.dx);
    cut(box.min.y, box.max.y, from.y, direction.dy);
    cut(box.min.z, box.max.z, from.z, direction.dz);
    return enter <= leave;
  }

  /// 1 where the ray leaves through the facet, -1 where it enters, 0 where it misses it. Method: T. Möller
  /// and B. Trumbore, "Fast, minimum storage ray-triangle intersection", Journal of Graphics Tools 2 (1997).
  int Cross(const Facet& facet) const {
    const auto& [a, b, c] = facet.corners;
    const Vector3d ab(a, b), ac(a, c), start(a, from);
    const Vector3d across = geometry::Cross(direction, ac), turn = geometry::Cross(start, ab);
    const double volume = Dot(ab, across);
    if (volume == 0) return 0;
    const double u = Dot(start, across) / volume, v = Dot(direction, turn) / volume;
    const bool isHit = u >= 0 && v >= 0 && u + v <= 1 && Dot(ac, turn) / volume > 0;
    return !isHit ? 0 : volume < 0 ? 1 : -1;
  }
};

}  // namespace

Point3d Facet::Centre() const {
  const auto& [a, b, c] = corners;
  return {(a.x + b.x + c.x) / 3, (a.y + b.y + c.y) / 3, (a.z + b.z + c.z) / 3};
}

Vector3d Facet::Across() const {
  const auto& [a, b, c] = corners;
  return Cross(Vector3d(a, b), Vector3d(a, c));
}

double Facet::Reach() const {
  const Point3d centre = Centre();
  double reach = 0;
  for (const Point3d& corner : corners) reach = std::max(reach, Squared(Vector3d(centre, corner)));
  return std::sqrt(reach);
}

// By the parts of the plane that are nearest to a corner, to an edge, and to the inside. Source: C. Ericson,
// "Real-Time Collision Detection" (2005), 5.1.5.
Point3d Facet::NearestTo(const Point3d& place) const {
  const auto& [a, b, c] = corners;
  const Vector3d ab(a, b), ac(a, c), ap(a, place), bp(b, place), cp(c, place);
  const double abA = Dot(ab, ap), acA = Dot(ac, ap), abB = Dot(ab, bp), acB = Dot(ac, bp);
  const double abC = Dot(ab, cp), acC = Dot(ac, cp);
  if (abA <= 0 && acA <= 0) return a;
  if (abB >= 0 && acB <= abB) return b;
  if (acC >= 0 && abC <= acC) return c;
  const double toC = abA * acB - abB * acA;
  if (toC <= 0 && abA >= 0 && abB <= 0) return a + ab * (abA / (abA - abB));
  const double toB = abC * acA - abA * acC;
  if (toB <= 0 && acA >= 0 && acC <= 0) return a + ac * (acA / (acA - acC));
  const double toA = abB * acC - abC * acB, alongB = acB - abB, alongC = abC - acC;
  if (toA <= 0 && alongB >= 0 && alongC >= 0) return b + Vector3d(b, c) * (alongB / (alongB + alongC));
  const double whole = toA + toB + toC;
  return a + ab * (toB / whole) + ac * (toC / whole);
}

// By separating axes. Source: C. Ericson, "Real-Time Collision Detection" (2005), 5.2.10.
bool Facet::IsApartFrom(const Facet& other) const {
  const Vector3d across = Across(), otherAcross = other.Across();
  if (HasGapAlong(across, *this, other) || HasGapAlong(otherAcross, *this, other)) return true;
  const auto edges = EdgesOf(*this), otherEdges = EdgesOf(other);
  for (std::size_t i = 0; i < 3; ++i) {
    if (HasGapAlong(Cross(edges[i], across), *this, other) ||
        HasGapAlong(Cross(otherEdges[i], otherAcross), *this, other))
      return true;
    for (const Vector3d& edge : otherEdges) {
      if (HasGapAlong(Cross(edges[i], edge), *this, other)) return true;
    }
  }
  return false;
}

std::vector<Facet> PlacedFacets(const modeller::Mesh& mesh, const geometry::Matrix& placement) {
  std::vector<Point3d> points;
  points.reserve(mesh.points.size());
  for (const Point3d& point : mesh.points) points.push_back(placement.Transform(point));
  const auto at = [&](int number) { return points[static_cast<std::size_t>(number)]; };
  std::vector<Facet> facets;
  facets.reserve(mesh.triangles.size());
  for (const auto& [a, b, c] : mesh.triangles) {
    const Facet facet{{at(a), at(b), at(c)}};
    if (Squared(facet.Across()) > 0) facets.push_back(facet);
  }
  return facets;
}

FacetTree::FacetTree(std::vector<Facet> facets, bool isClosed)
    : facets_(std::move(facets)), isClosed_(isClosed) {
  Arrange(0, facets_.size());
}

void FacetTree::Arrange(std::size_t first, std::size_t count) {
  Box3d box;
  for (std::size_t i = first; i < first + count; ++i) {
    for (const Point3d& corner : facets_[i].corners) box.Insert(corner);
  }
  const std::size_t number = nodes_.size();
  nodes_.push_back({box, static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(count)});
  if (count <= kFewFacets) return;
  const Vector3d size(box.min, box.max);
  const double longest = std::max({size.dx, size.dy, size.dz});
  const auto along = [&](const Facet& facet) {
    const Point3d centre = facet.Centre();
    return longest == size.dx ? centre.x : longest == size.dy ? centre.y : centre.z;
  };
  const auto begin = facets_.begin() + static_cast<std::ptrdiff_t>(first);
  const std::size_t half = count / 2;
  std::nth_element(begin, begin + static_cast<std::ptrdiff_t>(half),
                   begin + static_cast<std::ptrdiff_t>(count),
                   [&](const Facet& one, const Facet& other) { return along(one) < along(other); });
  Arrange(first, half);
  nodes_[number].further = static_cast<std::uint32_t>(nodes_.size());
  Arrange(first + half, count - half);
}

FacetTree::Near FacetTree::NearestTo(const Point3d& place) const {
  Near nearest;
  double least = std::numeric_limits<double>::infinity();
  const auto look = [&](const auto& self, std::size_t number) -> void {
    const Node& node = nodes_[number];
    if (node.further == 0) {
      for (std::size_t i = node.first; i < node.first + node.count; ++i) {
        const double squared = Squared(Vector3d(place, facets_[i].NearestTo(place)));
        if (squared >= least) continue;
        least = squared;
        nearest.facet = &facets_[i];
      }
      return;
    }
    const std::size_t halves[] = {number + 1, node.further};
    const double distances[] = {SquaredDistance(nodes_[halves[0]].box, place),
                                SquaredDistance(nodes_[halves[1]].box, place)};
    const std::size_t nearer = distances[1] < distances[0] ? 1 : 0;
    for (const std::size_t half : {nearer, 1 - nearer}) {
      if (distances[half] < least) self(self, halves[half]);
    }
  };
  look(look, 0);
  nearest.distance = std::sqrt(least);
  return nearest;
}

const Facet* FacetTree::FindMet(const Facet& other) const {
  Box3d box;
  for (const Point3d& corner : other.corners) box.Insert(corner);
  const auto look = [&](const auto& self, std::size_t number) -> const Facet* {
    const Node& node = nodes_[number];
    if (AreApart(node.box, box)) return nullptr;
    if (node.further != 0) {
      const Facet* const met = self(self, number + 1);
      return met != nullptr ? met : self(self, node.further);
    }
    for (std::size_t i = node.first; i < node.first + node.count; ++i) {
      if (!facets_[i].IsApartFrom(other)) return &facets_[i];
    }
    return nullptr;
  };
  return look(look, 0);
}

bool FacetTree::IsEnclosedAlong(const Point3d& place, const Vector3d& direction) const {
  const Ray ray{place, direction};
  int turns = 0;
  const auto look = [&](const auto& self, std::size_t number) -> void {
    const Node& node = nodes_[number];
    if (!ray.Meets(node.box)) return;
    if (node.further != 0) {
      self(self, number + 1);
      self(self, node.further);
      return;
    }
    for (std::size_t i = node.first; i < node.first + node.count; ++i) turns += ray.Cross(facets_[i]);
  };
  look(look, 0);
  return turns != 0;
}

bool FacetTree::Contains(const Point3d& place) const {
  // In no simple relation to each other and to axes, so that hardly any ray meets an edge.
  constexpr Vector3d kDirections[] = {
      {0.5231, 0.6912, 0.4987}, {-0.7173, 0.2931, 0.6321}, {0.1931, -0.8517, 0.4871}};
  if (SquaredDistance(box(), place) > 0) return false;
  // The way out is short in the direction away from the middle.
  const Vector3d outwards(Middle(box()), place);
  if (isClosed_) return IsEnclosedAlong(place, outwards + kDirections[0] * (0.1 + outwards.Magnitude() / 50));
  return std::ranges::count_if(
             kDirections, [&](const Vector3d& direction) { return IsEnclosedAlong(place, direction); }) > 1;
}

}  // namespace vanzet::check
