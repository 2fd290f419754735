#include "scene/clip.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;
using geometry::Vector3d;

struct Corner {
  Point3d point;
  Vector3d normal;
};

bool IsBelow(const Point3d& point) {
  return point.z <= 0;
}

/// The point of a line on the plane. Requires: its ends are on either side.
double FractionOnPlane(const Point3d& a, const Point3d& b) {
  return a.z / (a.z - b.z);
}

Point3d Between(const Point3d& a, const Point3d& b, double fraction) {
  return a + Vector3d(a, b) * fraction;
}

Corner Crossing(const Corner& a, const Corner& b) {
  const double fraction = FractionOnPlane(a.point, b.point);
  return {Between(a.point, b.point, fraction), a.normal + (b.normal - a.normal) * fraction};
}

Facet FacetOf(const Corner& a, const Corner& b, const Corner& c) {
  return {{a.point, b.point, c.point}, {a.normal, b.normal, c.normal}};
}

}  // namespace

std::vector<Facet> Below(const Facet& facet) {
  std::vector<Corner> left;
  for (std::size_t i = 0; i < 3; ++i) {
    const std::size_t next = (i + 1) % 3;
    const Corner a{facet.corners[i], facet.normals[i]}, b{facet.corners[next], facet.normals[next]};
    if (IsBelow(a.point)) left.push_back(a);
    if (IsBelow(a.point) != IsBelow(b.point)) left.push_back(Crossing(a, b));
  }
  std::vector<Facet> facets;
  for (std::size_t i = 2; i < left.size(); ++i) facets.push_back(FacetOf(left[0], left[i - 1], left[i]));
  return facets;
}

std::optional<Stroke> Below(const Stroke& stroke) {
  const bool fromIs = IsBelow(stroke.from), toIs = IsBelow(stroke.to);
  if (fromIs && toIs) return stroke;
  if (!fromIs && !toIs) return std::nullopt;
  const Point3d cut = Between(stroke.from, stroke.to, FractionOnPlane(stroke.from, stroke.to));
  return fromIs ? Stroke{stroke.from, cut} : Stroke{cut, stroke.to};
}

std::optional<Stroke> CutOf(const Facet& facet) {
  std::vector<Point3d> ends;
  for (std::size_t i = 0; i < 3; ++i) {
    const Point3d &a = facet.corners[i], &b = facet.corners[(i + 1) % 3];
    if (IsBelow(a) != IsBelow(b)) ends.push_back(Between(a, b, FractionOnPlane(a, b)));
  }
  if (ends.size() != 2) return std::nullopt;
  return Stroke{ends[0], ends[1]};
}

}  // namespace vanzet::scene
