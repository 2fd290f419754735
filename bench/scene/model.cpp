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
  return {body.name, body.solid, {}, {}, colour, body.isSeenThrough || body.isPale};
}

/// A body's facets drawn one upon another take as long as facets side by side. Those of a real body, the fins
/// of a cooler included, have together some hundred times the area of the square around it.
constexpr double kMostLayers = 1000;

bool IsTooOftenCovered(const modeller::Mesh& mesh) {
  geometry::Box3d box;
  for (const Point3d& point : mesh.points) box.Insert(point);
  const double reach = Dist(box.min, box.max);
  return modeller::AreaOf(mesh) > kMostLayers * reach * reach;
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
std::optional<Covered> CoveredAt(const std::array<Point3d, 3>& corners, const Camera& camera, double x,
                                 double y) {
  std::array<PicturePoint, 3> p;
  std::ranges::transform(corners, p.begin(), [&](const Point3d& corner) { return camera.Project(corner); });
  const auto side = [](const PicturePoint& a, const PicturePoint& b, double px, double py) {
    return (b.x - a.x) * (py - a.y) - (b.y - a.y) * (px - a.x);
  };
  const double area = side(p[0], p[1], p[2].x, p[2].y);
  if (area == 0) return {};
  const double a = side(p[1], p[2], x, y) / area, b = side(p[2], p[0], x, y) / area, c = 1 - a - b;
  if (a < 0 || b < 0 || c < 0) return {};
  const auto& [q, r, s] = corners;
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

void VisitPoints(const ModelBody& body, const PointSource::Visitor& visit) {
  for (const SurfacePoint& point : body.surface.points) visit(point.Place());
}

std::array<Point3d, 3> CornersOf(const Surface& surface, const Facet& facet) {
  return {surface.points[facet[0]].Place(), surface.points[facet[1]].Place(),
          surface.points[facet[2]].Place()};
}

}  // namespace

Result<Model> ModelOf(const Scene& scene) {
  Model model{{}, scene.marks};
  for (const SceneBody& body : scene.bodies) {
    if (!body.isShown) continue;
    auto mesh = MeshToDraw(body);
    if (mesh) {
      model.bodies.push_back(BeginBody(body));
      model.bodies.back().surface = SurfaceOf(*std::move(mesh), body.placement);
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

Model CutModel(const Model& whole, const Plane& plane) {
  Model cut{{}, whole.marks, plane, whole.missing};
  for (const ModelBody& body : whole.bodies) {
    PlaneCut left = CutByPlane(body.surface, plane);
    cut.bodies.push_back({body.name, body.solid, std::move(left.left), std::move(left.strokes), body.colour,
                          body.isSeenThrough});
  }
  return cut;
}

geometry::Box3d BoxOf(const Model& model) {
  geometry::Box3d box;
  for (const ModelBody& body : model.bodies) {
    for (const FacetGroup& group : body.surface.groups) box.Insert(group.box);
  }
  for (const Mark& mark : model.marks) {
    for (const Point3d& point : mark.points) box.Insert(point);
  }
  return box;
}

PointSource PointsOf(const Model& model) {
  return PointSource([&model](const PointSource::Visitor& visit) {
    for (const ModelBody& body : model.bodies) VisitPoints(body, visit);
    for (const Mark& mark : model.marks) std::ranges::for_each(mark.points, visit);
  });
}

PointSource PointsOf(const Model& model, const std::set<std::string>& names) {
  return PointSource([&model, &names](const PointSource::Visitor& visit) {
    for (const ModelBody& body : model.bodies) {
      if (names.contains(body.name)) VisitPoints(body, visit);
    }
  });
}

BodyLook LookAt(const BodyLooks& looks, const std::string& name) {
  const auto found = looks.find(name);
  return found == looks.end() ? BodyLook() : found->second;
}

namespace {

/// The nearest body so far at a place of the picture.
class Search {
 public:
  Search(const Camera& camera, double x, double y) : camera_(camera), x_(x), y_(y) {}

  void Add(const ModelBody& body, Seen& seen, double& nearest) const {
    for (const FacetGroup& group : body.surface.groups) {
      if (!CanShow(group.box, camera_, x_, y_)) continue;
      for (std::uint32_t i = group.first; i < group.first + group.count; ++i) {
        const auto covered = CoveredAt(CornersOf(body.surface, body.surface.facets[i]), camera_, x_, y_);
        if (!covered || (seen.body != nullptr && covered->nearness <= nearest)) continue;
        seen = {&body, covered->point};
        nearest = covered->nearness;
      }
    }
  }

 private:
  const Camera& camera_;
  double x_, y_;
};

}  // namespace

Seen SeenAt(const Model& model, const Camera& camera, double x, double y, const BodyLooks& looks) {
  Seen solid, through;
  double solidNearness = 0, throughNearness = 0;
  const Search search(camera, x, y);
  for (const ModelBody& body : model.bodies) {
    const BodyLook look = LookAt(looks, body.name);
    if (look.isHidden) continue;
    const bool isThrough = body.isSeenThrough || look.isSeenThrough;
    search.Add(body, isThrough ? through : solid, isThrough ? throughNearness : solidNearness);
  }
  return solid.body != nullptr ? solid : through;
}

}  // namespace vanzet::scene
