#include "scene/part_body.h"

#include <algorithm>

#include "modeller/joined.h"
#include "modeller/placement.h"
#include "modeller/sweep.h"

namespace vanzet::scene {
namespace {

using geometry::Kurve;
using geometry::Point;
using modeller::Body;
using MaybeBody = std::optional<Body>;

const modeller::Axis kSpindle = {{0, 0, 0}, {1, 0, 0}};

Kurve Rectangle(double fromX, double toX, double fromY, double toY) {
  Kurve contour;
  contour.Start(Point(fromX, fromY));
  for (const Point& corner : {Point(toX, fromY), Point(toX, toY), Point(fromX, toY), Point(fromX, fromY)}) {
    contour.Add(corner);
  }
  return contour;
}

Result<MaybeBody> Cylinder(const Billet& billet) {
  const double front = billet.frontAllowance;
  const double rear =
      billet.barLength > 0 ? front - billet.barLength : -billet.partLength - billet.rearAllowance;
  const double bore = std::max(billet.innerDiameter, 0.0);
  if (!(front > rear) || !(billet.outerDiameter > bore)) return MaybeBody();
  const auto body = modeller::Spin(Rectangle(rear, front, bore / 2, billet.outerDiameter / 2), kSpindle, 360);
  if (!body) return body.fault();
  return MaybeBody(*body);
}

/// A profile with its points in the order of rising x.
Kurve Rising(const Kurve& profile) {
  Kurve rising(profile);
  Point begin, end, centre;
  rising.Get(0, begin, centre);
  rising.Get(rising.nVertices - 1, end, centre);
  if (end.x < begin.x) rising.Reverse();
  return rising;
}

Point PointOf(const Kurve& curve, int vertex) {
  Point point, centre;
  curve.Get(vertex, point, centre);
  return point;
}

/// The half section below an open profile, down to another one or to the axis.
Kurve HalfSection(const Kurve& outside, const Kurve* inside) {
  Kurve section = Rising(outside);
  const Point begin = PointOf(section, 0), end = PointOf(section, section.nVertices - 1);
  if (inside == nullptr) {
    section.Add(Point(end.x, 0), false);
    section.Add(Point(begin.x, 0), false);
  } else {
    Kurve back = Rising(*inside);
    back.Reverse();
    section.Add(PointOf(back, 0), false);
    section.Add(back, false);
  }
  section.Add(begin, false);
  return section;
}

Result<std::vector<Kurve>> CurvesOf(const std::string& name, const Sources& sources) {
  if (name.empty()) return std::vector<Kurve>();
  return sources.figure(name);
}

/// Closed contours are half sections by themselves; of open ones the first bounds the part.
std::vector<Kurve> HalfSections(const std::vector<Kurve>& outside, const std::vector<Kurve>& inside) {
  const auto isOpen = [](const Kurve& curve) { return !curve.Closed(); };
  std::vector<Kurve> sections;
  std::ranges::copy_if(outside, std::back_inserter(sections), &Kurve::Closed);
  const auto profile = std::ranges::find_if(outside, isOpen);
  const auto bore = std::ranges::find_if(inside, isOpen);
  if (profile != outside.end()) {
    sections.push_back(HalfSection(*profile, bore == inside.end() ? nullptr : &*bore));
  }
  return sections;
}

Result<MaybeBody> FromFigures(const std::string& outsideName, const std::string& insideName,
                              const Sources& sources) {
  const auto outside = CurvesOf(outsideName, sources);
  if (!outside) return outside.fault();
  const auto inside = CurvesOf(insideName, sources);
  if (!inside) return inside.fault();
  std::vector<Body> bodies;
  for (const Kurve& section : HalfSections(*outside, *inside)) {
    const auto body = modeller::Spin(section, kSpindle, 360);
    if (!body) return Fault{"figure '" + outsideName + "': " + body.fault().text};
    bodies.push_back(*body);
  }
  if (bodies.empty()) return MaybeBody();
  const auto joined = modeller::Joined(bodies);
  if (!joined) return joined.fault();
  return MaybeBody(*joined);
}

Result<MaybeBody> FromSolid(const std::string& name, double angle, const Sources& sources) {
  const auto solid = sources.body(name);
  if (!solid) return solid.fault();
  const auto turned = modeller::Turned(*solid, kSpindle, angle);
  if (!turned) return turned.fault();
  return MaybeBody(*turned);
}

}  // namespace

Result<MaybeBody> BodyOf(const Billet& billet, const Sources& sources) {
  switch (billet.type) {
    case 1: return Cylinder(billet);
    case 2: return FromFigures(billet.outside, billet.inside, sources);
    case 3: return FromSolid(billet.solid, billet.angle, sources);
    default: return MaybeBody();
  }
}

Result<MaybeBody> BodyOf(const FinishPart& part, const Sources& sources) {
  switch (part.type) {
    case 1: return FromFigures(part.outside, part.inside, sources);
    case 2: return FromSolid(part.solid, 0, sources);
    default: return MaybeBody();
  }
}

}  // namespace vanzet::scene
