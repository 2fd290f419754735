#include "modeller/spun_part.h"

#include <algorithm>
#include <iterator>

#include "modeller/booleans.h"
#include "modeller/sweep.h"

namespace vanzet::modeller {
namespace {

using geometry::Kurve;
using geometry::Point;

Point PointOf(const Kurve& curve, int vertex) {
  Point point, centre;
  curve.Get(vertex, point, centre);
  return point;
}

/// The half section below an open profile, down to the axis.
Kurve HalfSection(const Kurve& profile) {
  Kurve section(profile);
  const Point begin = PointOf(section, 0), end = PointOf(section, section.nVertices - 1);
  section.Add(Point(end.x, 0), false);
  section.Add(Point(begin.x, 0), false);
  section.Add(begin, false);
  return section;
}

Result<std::vector<Body>> SpinSections(const std::vector<Kurve>& curves) {
  constexpr double kFullTurn = 360;
  const Axis spindle = {{0, 0, 0}, {1, 0, 0}};
  std::vector<Body> bodies;
  for (const Kurve& section : HalfSections(curves)) {
    VANZET_TRY(const auto body, Spin(section, spindle, kFullTurn));
    bodies.push_back(body);
  }
  return bodies;
}

}  // namespace

std::vector<Kurve> HalfSections(const std::vector<Kurve>& curves) {
  std::vector<Kurve> sections;
  std::ranges::copy_if(curves, std::back_inserter(sections), &Kurve::Closed);
  const auto profile = std::ranges::find_if(curves, [](const Kurve& curve) { return !curve.Closed(); });
  if (profile != curves.end()) sections.push_back(HalfSection(*profile));
  return sections;
}

Result<std::optional<Body>> SpinPart(const std::vector<Kurve>& outside, const std::vector<Kurve>& inside) {
  VANZET_TRY(const auto part, SpinSections(outside));
  if (part.empty()) return std::optional<Body>();
  VANZET_TRY(const auto bore, SpinSections(inside));
  VANZET_TRY(const auto left, CutBodies(part, bore));
  return std::optional(left);
}

}  // namespace vanzet::modeller
