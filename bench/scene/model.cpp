#include "scene/model.h"

#include <algorithm>
#include <array>

#include "modeller/measures.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;

ModelBody BeginBody(const SceneBody& body) {
  return {body.name, body.solid, {}, {}, {}, ColourOf(body.kind), body.isSeenThrough};
}

ModelBody MakeWhole(Surface surface, const SceneBody& body) {
  ModelBody whole = BeginBody(body);
  whole.facets = std::move(surface.facets);
  whole.edges = std::move(surface.edges);
  return whole;
}

ModelBody MakeSection(const Surface& surface, const SceneBody& body) {
  ModelBody cut = BeginBody(body);
  for (const Facet& facet : surface.facets) {
    for (const Facet& left : Below(facet)) cut.facets.push_back(left);
    if (const auto stroke = CutOf(facet)) cut.cuts.push_back(*stroke);
  }
  for (const SurfaceEdge& edge : surface.edges) {
    const auto left = Below(Stroke{edge.from, edge.to});
    if (left) cut.edges.push_back({left->from, left->to, edge.left, edge.right, edge.isSharp});
  }
  return cut;
}

/// A body's facets drawn one upon another take as long as facets side by side. Those of a real body, the fins
/// of a cooler included, have together some hundred times the area of the square around it.
constexpr double kMostLayers = 1000;

bool IsTooOftenCovered(const modeller::Mesh& mesh) {
  geometry::Box3d box;
  for (const Point3d& point : mesh.points) box.Insert(point);
  const double reach = Dist(box.min, box.max);
  return modeller::MeasuresOf(mesh).area > kMostLayers * reach * reach;
}

Result<modeller::Mesh> MeshToDraw(const SceneBody& body) {
  auto mesh = modeller::MeshOf(body.body, {});
  if (mesh && !IsTooOftenCovered(*mesh)) return mesh;
  Fault fault = mesh ? Fault{"its facets cover each other too often to be drawn"} : mesh.fault();
  fault.text = body.name + ": " + fault.text;
  return fault;
}

/// The nearness of a facet at a place of the picture, when it covers the place.
std::optional<double> NearnessAt(const Facet& facet, const Camera& camera, double x, double y) {
  std::array<PicturePoint, 3> p;
  std::ranges::transform(facet.corners, p.begin(),
                         [&](const Point3d& corner) { return camera.Project(corner); });
  const auto side = [](const PicturePoint& a, const PicturePoint& b, double px, double py) {
    return (b.x - a.x) * (py - a.y) - (b.y - a.y) * (px - a.x);
  };
  const double area = side(p[0], p[1], p[2].x, p[2].y);
  if (area == 0) return {};
  const double a = side(p[1], p[2], x, y) / area, b = side(p[2], p[0], x, y) / area, c = 1 - a - b;
  if (a < 0 || b < 0 || c < 0) return {};
  return a * p[0].nearness + b * p[1].nearness + c * p[2].nearness;
}

}  // namespace

Result<Model> ModelOf(const Scene& scene, bool isSection) {
  Model model{{}, scene.marks, isSection};
  for (const SceneBody& body : scene.bodies) {
    if (!body.isShown) continue;
    const auto mesh = MeshToDraw(body);
    if (mesh) {
      Surface surface = SurfaceOf(*mesh, body.placement);
      model.bodies.push_back(isSection ? MakeSection(surface, body) : MakeWhole(std::move(surface), body));
    } else if (mesh.fault().kind == FaultKind::kSystem) {
      return mesh.fault();
    } else {
      model.missing.push_back(mesh.fault());
    }
  }
  std::stable_partition(model.bodies.begin(), model.bodies.end(),
                        [](const ModelBody& body) { return !body.isSeenThrough; });
  return model;
}

std::vector<Point3d> PointsOf(const Model& model) {
  std::set<std::string> all;
  for (const ModelBody& body : model.bodies) all.insert(body.name);
  std::vector<Point3d> points = PointsOf(model, all);
  for (const Mark& mark : model.marks) points.insert(points.end(), mark.points.begin(), mark.points.end());
  return points;
}

std::vector<Point3d> PointsOf(const Model& model, const std::set<std::string>& names) {
  std::vector<Point3d> points;
  for (const ModelBody& body : model.bodies) {
    if (!names.contains(body.name)) continue;
    for (const Facet& facet : body.facets) {
      points.insert(points.end(), facet.corners.begin(), facet.corners.end());
    }
  }
  return points;
}

const ModelBody* BodyAt(const Model& model, const Camera& camera, double x, double y) {
  const ModelBody* found = nullptr;
  double nearest = 0;
  for (const ModelBody& body : model.bodies) {
    for (const Facet& facet : body.facets) {
      const auto nearness = NearnessAt(facet, camera, x, y);
      if (!nearness || (found != nullptr && *nearness <= nearest)) continue;
      found = &body;
      nearest = *nearness;
    }
  }
  return found;
}

}  // namespace vanzet::scene
