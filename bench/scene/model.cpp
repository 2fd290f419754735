#include "scene/model.h"

#include <algorithm>
#include <array>

#include "modeller/measures.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;

ModelBody BeginBody(const SceneBody& body) {
  modeller::Colour colour = ColourOf(body.kind);
  if (body.isPale) colour = {(colour.red + 2) / 3, (colour.green + 2) / 3, (colour.blue + 2) / 3};
  return {body.name, body.solid, {}, {}, {}, colour, body.isSeenThrough || body.isPale};
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

/// The point of a facet that is seen at a place of the picture, with its nearness, when the facet covers it.
struct Covered {
  double nearness;
  Point3d point;
};
std::optional<Covered> CoveredAt(const Facet& facet, const Camera& camera, double x, double y) {
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
  const auto& [q, r, s] = facet.corners;
  return Covered{a * p[0].nearness + b * p[1].nearness + c * p[2].nearness,
                 {a * q.x + b * r.x + c * s.x, a * q.y + b * r.y + c * s.y, a * q.z + b * r.z + c * s.z}};
}

/// Whether a place of the picture can show something of what is in a box.
bool CanShow(const geometry::Box3d& box, const Camera& camera, double x, double y) {
  PicturePoint low{1e30, 1e30, 0}, high{-1e30, -1e30, 0};
  for (int corner = 0; corner < 8; ++corner) {
    const PicturePoint p =
        camera.Project({(corner & 1) != 0 ? box.max.x : box.min.x, (corner & 2) != 0 ? box.max.y : box.min.y,
                        (corner & 4) != 0 ? box.max.z : box.min.z});
    low = {std::min(low.x, p.x), std::min(low.y, p.y), 0};
    high = {std::max(high.x, p.x), std::max(high.y, p.y), 0};
  }
  return x >= low.x && x <= high.x && y >= low.y && y <= high.y;
}

geometry::Box3d BoxOf(const std::vector<Facet>& facets) {
  geometry::Box3d box;
  for (const Facet& facet : facets) {
    for (const Point3d& corner : facet.corners) box.Insert(corner);
  }
  return box;
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
  for (ModelBody& body : model.bodies) body.box = BoxOf(body.facets);
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

BodyLook LookAt(const BodyLooks& looks, const std::string& name) {
  const auto found = looks.find(name);
  return found == looks.end() ? BodyLook() : found->second;
}

Seen SeenAt(const Model& model, const Camera& camera, double x, double y, const BodyLooks& looks) {
  Seen solid, through;
  double solidNearness = 0, throughNearness = 0;
  for (const ModelBody& body : model.bodies) {
    const BodyLook look = LookAt(looks, body.name);
    if (look.isHidden || !CanShow(body.box, camera, x, y)) continue;
    const bool isThrough = body.isSeenThrough || look.isSeenThrough;
    Seen& seen = isThrough ? through : solid;
    double& nearest = isThrough ? throughNearness : solidNearness;
    for (const Facet& facet : body.facets) {
      const auto covered = CoveredAt(facet, camera, x, y);
      if (!covered || (seen.body != nullptr && covered->nearness <= nearest)) continue;
      seen = {&body, covered->point};
      nearest = covered->nearness;
    }
  }
  return solid.body != nullptr ? solid : through;
}

}  // namespace vanzet::scene
