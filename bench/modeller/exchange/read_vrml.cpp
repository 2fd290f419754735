#include "modeller/exchange/read_vrml.h"

#include <VrmlData_Coordinate.hxx>
#include <VrmlData_Group.hxx>
#include <VrmlData_IndexedFaceSet.hxx>
#include <VrmlData_Scene.hxx>
#include <VrmlData_ShapeNode.hxx>

#include "base/number_text.h"
#include "modeller/body_size.h"
#include "modeller/outline.h"

namespace vanzet::modeller {
namespace {

Result<void> AddPoints(const VrmlData_Coordinate& points, const gp_Trsf& place, Mesh& mesh) {
  for (std::size_t i = 0; i < points.Length(); ++i) {
    const gp_Pnt p = gp_Pnt(points.Coordinate(static_cast<int>(i))).Transformed(place);
    for (const double value : {p.X(), p.Y(), p.Z()}) {
      if (std::abs(value) <= kLargestCoordinate) continue;
      return Fault{"has a point that is not within " + NumberText(kLargestCoordinate) + " mm"};
    }
    mesh.points.emplace_back(p.X(), p.Y(), p.Z());
  }
  return {};
}

/// A face with more corners becomes a fan of triangles.
Result<void> AddFaces(VrmlData_IndexedFaceSet& facets, Mesh& mesh) {
  const Standard_Integer** polygons = nullptr;
  const std::size_t count = facets.Polygons(polygons);
  for (std::size_t i = 0; i < count; ++i) {
    const Standard_Integer* corners = nullptr;
    const int length = facets.Polygon(static_cast<int>(i), corners);
    for (int k = 0; k < length; ++k) {
      const bool isThere = corners[k] >= 0 && static_cast<std::size_t>(corners[k]) < mesh.points.size();
      if (!isThere) return Fault{"has a face with a point that does not exist"};
    }
    for (int k = 2; k < length; ++k) {
      const int second = facets.IsCCW() ? corners[k - 1] : corners[k];
      const int third = facets.IsCCW() ? corners[k] : corners[k - 1];
      mesh.triangles.push_back({corners[0], second, third});
    }
  }
  return {};
}

class Collector {
 public:
  Result<void> Add(VrmlData_ListOfNode::Iterator nodes, const gp_Trsf& place, const std::string& name) {
    for (; nodes.More(); nodes.Next()) {
      // A text can use one group a million times.
      if (++nodes_ > kMostParts) return Fault{"has more than " + std::to_string(kMostParts) + " nodes"};
      const Handle(VrmlData_Node)& node = nodes.Value();
      if (node.IsNull()) continue;
      const std::string own = node->Name();
      VANZET_DO(AddNode(node, place, own.empty() ? name : own));
    }
    return {};
  }

  std::vector<NamedMesh> TakeMeshes() { return std::move(meshes_); }

 private:
  Result<void> AddNode(const Handle(VrmlData_Node) & node, const gp_Trsf& place, const std::string& name) {
    if (const auto group = Handle(VrmlData_Group)::DownCast(node)) {
      return Add(group->NodeIterator(), place * group->GetTransform(), name);
    }
    const auto shape = Handle(VrmlData_ShapeNode)::DownCast(node);
    if (shape.IsNull()) return {};
    const auto facets = Handle(VrmlData_IndexedFaceSet)::DownCast(shape->Geometry());
    if (facets.IsNull() || facets->Coordinates().IsNull()) return {};
    Mesh mesh;
    VANZET_DO(AddPoints(*facets->Coordinates(), place, mesh));
    VANZET_DO(AddFaces(*facets, mesh));
    if (mesh.triangles.empty()) return {};
    facets_ += mesh.triangles.size();
    if (facets_ > kMostFacets) return Fault{"has more than " + std::to_string(kMostFacets) + " facets"};
    meshes_.push_back({name, std::move(mesh)});
    return {};
  }

  std::vector<NamedMesh> meshes_;
  std::uint64_t facets_ = 0;
  std::uint64_t nodes_ = 0;
};

}  // namespace

Result<std::vector<NamedMesh>> ReadVrml(std::istream& text) {
  VrmlData_Scene scene;
  scene << text;
  if (scene.Status() != VrmlData_StatusOK) {
    return Fault{"not a readable VRML text: line " + std::to_string(scene.GetLineError())};
  }
  Collector collector;
  VANZET_DO(collector.Add(scene.GetIterator(), gp_Trsf(), ""));
  return collector.TakeMeshes();
}

}  // namespace vanzet::modeller
