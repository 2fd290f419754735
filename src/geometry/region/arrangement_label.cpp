#include <algorithm>

#include "geometry/region/arrangement.h"
#include "geometry/region/box_tree.h"

/// The winding numbers of the faces.
namespace geometry::region {
Turns Arrangement::TurnsOf(Half h) const {
  const Turns& turns = edges_[h / 2].turns;
  return h % 2 == 0 ? turns : Turns{-turns[0], -turns[1]};
}

// Euler's formula for a connected map: a wrong order around a vertex breaks it.
bool Arrangement::IsPlanar() const {
  return std::all_of(parts_.begin(), parts_.end(), [](const Part& part) {
    return std::int64_t{part.vertices} + part.faces == std::int64_t{part.edges} + 2;
  });
}

/// The curves of all edges, each with the half that passes it forwards.
std::vector<Arrangement::EdgeCurve> Arrangement::EdgeCurves() const {
  std::vector<EdgeCurve> curves;
  curves.reserve(edges_.size() + runs_.curves.size());
  for (Half h = 0; h < HalfCount(); h += 2) {
    if (!IsRun(h)) {
      curves.push_back({CurveOf(h), h});
      continue;
    }
    const Run& run = runs_.list[RunOf(h)];
    for (std::size_t i = run.firstCurve; i < run.firstCurve + run.curveCount; ++i) {
      curves.push_back({runs_.curves[i], IsForward(h) ? h : TwinOf(h)});
    }
  }
  return curves;
}

/// The turns that the other parts make around each part: the edges above one of its vertices.
std::vector<Turns> Arrangement::TurnsAround() const {
  std::vector<Turns> around(parts_.size(), Turns{0, 0});
  if (parts_.size() < 2) return around;
  std::vector<EdgeCurve> curves = EdgeCurves();
  std::vector<BoxTree::Item> boxes;
  boxes.reserve(curves.size());
  double top = net_[0].dy;
  for (const auto& [c, half] : curves) {
    boxes.push_back({std::min(c.a.dx, c.b.dx), std::min(c.a.dy, c.b.dy), std::max(c.a.dx, c.b.dx),
                     std::max(c.a.dy, c.b.dy)});
    top = std::max(top, boxes.back().top);
  }
  const BoxTree tree(std::move(boxes));
  for (std::size_t part = 0; part < parts_.size(); ++part) {
    const Vector2d p = net_[From(faces_[parts_[part].outer].first)];
    tree.VisitBox({p.dx, p.dy, p.dx, top}, [&](std::uint32_t i) {
      const auto& [c, h] = curves[i];
      if (faces_[faceOf_[h]].part == part || (c.a.dx <= p.dx) == (c.b.dx <= p.dx)) return;
      if (!PreparedCurve(c, distance_).IsAbove(p)) return;
      const int sign = c.b.dx < c.a.dx ? 1 : -1;
      for (std::size_t n = 0; n < around[part].size(); ++n) around[part][n] += sign * TurnsOf(h)[n];
    });
  }
  return around;
}

bool Arrangement::LabelPart(std::uint32_t part, const Turns& around) {
  std::vector<std::uint32_t> open(1, parts_[part].outer);
  faces_[open.front()].turns = around;
  faces_[open.front()].isLabelled = true;
  while (!open.empty()) {
    const Face face = faces_[open.back()];
    open.pop_back();
    Half h = face.first;
    do {
      const Turns turns = TurnsOf(h);
      const Turns expected = {face.turns[0] - turns[0], face.turns[1] - turns[1]};
      Face& other = faces_[faceOf_[TwinOf(h)]];
      if (!other.isLabelled) {
        other.turns = expected;
        other.isLabelled = true;
        open.push_back(faceOf_[TwinOf(h)]);
      } else if (other.turns != expected) {
        return false;
      }
      h = next_[h];
    } while (h != face.first);
  }
  return true;
}

bool Arrangement::Label() {
  if (!runsAreApart_ || !IsPlanar()) return false;
  const std::vector<Turns> around = TurnsAround();
  for (std::uint32_t part = 0; part < parts_.size(); ++part) {
    if (!LabelPart(part, around[part])) return false;
  }
  return true;
}

}  // namespace geometry::region
