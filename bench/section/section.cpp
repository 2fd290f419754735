#include "section/section.h"

#include <algorithm>
#include <cmath>

#include "scene/body_names.h"
#include "section/cut.h"
#include "section/dimensions.h"

namespace vanzet::section {
namespace {

using geometry::Box;
using geometry::Point;
using geometry::RegionSpan;
using scene::Kind;

/// Whether the way of an arc leads through the point of its circle in that direction.
bool Passes(const RegionSpan& arc, const Point& point) {
  const geometry::Vector2d way(arc.p0, arc.p1), there(arc.p0, point);
  const double side = way.dx * there.dy - way.dy * there.dx;
  return arc.dir == geometry::ACW ? side < 0 : side > 0;
}

void Insert(const RegionSpan& span, Box& box) {
  box.Insert(span.p0);
  box.Insert(span.p1);
  if (span.dir == geometry::LINEAR) return;
  const double radius = span.Radius();
  for (const auto& [x, y] : {std::pair(1, 0), std::pair(0, 1), std::pair(-1, 0), std::pair(0, -1)}) {
    const Point point(span.pc.x + x * radius, span.pc.y + y * radius);
    if (Passes(span, point)) box.Insert(point);
  }
}

/// Of several jaws the upright one is in the plane.
bool IsInPlane(const scene::SceneBody& body) {
  return body.isShown && (body.kind != Kind::kJaw || body.name.ends_with(" 1"));
}

int OrderOf(const SectionBody& body) {
  return body.kind == Kind::kFinishPart ? 2 : body.kind == Kind::kBillet ? 1 : 0;
}

}  // namespace

double Dimension::Value() const {
  return direction == Direction::kDiameter ? 2 * (to.y - from.y) : std::abs(to.x - from.x);
}

Box BoxOf(const geometry::Region& region) {
  Box box;
  for (const geometry::RegionLoop& loop : region.loops) {
    for (const RegionSpan& span : loop.spans) Insert(span, box);
  }
  for (const RegionSpan& span : region.loose) Insert(span, box);
  return box;
}

Box BoxOf(const Section& section) {
  Box all;
  for (const SectionBody& body : section.bodies) {
    const Box box = BoxOf(body.region);
    all.Insert(box.min);
    all.Insert(box.max);
  }
  for (const Datum& datum : section.datums) all.Insert(datum.place);
  return all;
}

Result<Section> MakeSection(const scene::Equipment& equipment, const scene::Scene& scene) {
  Section section;
  for (const scene::SceneBody& body : scene.bodies) {
    if (!IsInPlane(body)) continue;
    auto region = CutOf(body);
    if (!region && region.fault().kind == FaultKind::kSystem) return region.fault();
    if (!region || !region->ok || (region->loops.empty() && region->loose.empty())) continue;
    const bool isSub = body.name.starts_with("sub ");
    section.bodies.push_back(
        {body.name, scene::DeviceNameOf(body, equipment), body.kind, isSub, std::move(*region)});
  }
  std::ranges::stable_sort(section.bodies, {}, OrderOf);
  AddMeasures(equipment, scene.subDatum, section);
  return section;
}

}  // namespace vanzet::section
