#include "modeller/exchange/facet_shell.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRep_Builder.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Shell.hxx>
#include <TopoDS_Solid.hxx>
#include <TopoDS_Vertex.hxx>
#include <TopoDS_Wire.hxx>
#include <algorithm>
#include <gp_Pln.hxx>
#include <map>
#include <utility>

#include "modeller/facet_measures.h"
#include "modeller/facets.h"

namespace vanzet::modeller {
namespace {

constexpr double kLeastHeight = 1e-6;  // millimetres; a flatter triangle has no plane

gp_Pnt PointOf(const geometry::Point3d& p) {
  return {p.x, p.y, p.z};
}

/// Makes faces that share their edges and vertices.
class ShellMaker {
 public:
  explicit ShellMaker(const Mesh& mesh) : mesh_(mesh) {
    builder_.MakeShell(shell_);
    for (const auto& point : mesh.points) vertices_.push_back(BRepBuilderAPI_MakeVertex(PointOf(point)));
  }

  void Add(const std::array<int, 3>& corners) {
    const auto [a, b, c] = corners;
    const gp_Vec side(At(a), At(b)), other(At(a), At(c));
    const gp_Vec normal = side.Crossed(other);
    const double longest = std::max({side.Magnitude(), other.Magnitude(), At(b).Distance(At(c))});
    if (normal.Magnitude() <= longest * kLeastHeight) return;
    TopoDS_Wire wire;
    builder_.MakeWire(wire);
    for (const auto& [from, to] : {std::pair(a, b), std::pair(b, c), std::pair(c, a)}) {
      builder_.Add(wire, EdgeBetween(from, to));
    }
    wire.Closed(Standard_True);
    builder_.Add(shell_, BRepBuilderAPI_MakeFace(gp_Pln(At(a), gp_Dir(normal)), wire, Standard_True).Face());
  }

  TopoDS_Shape Take() {
    if (!IsClosed(mesh_)) return shell_;
    shell_.Closed(Standard_True);
    TopoDS_Solid solid;
    builder_.MakeSolid(solid);
    builder_.Add(solid, shell_);
    return solid;
  }

 private:
  gp_Pnt At(int point) const { return PointOf(mesh_.points[static_cast<std::size_t>(point)]); }

  TopoDS_Shape EdgeBetween(int from, int to) {
    const auto key = std::minmax(from, to);
    auto [edge, isNew] = edges_.try_emplace({key.first, key.second});
    if (isNew) {
      edge->second = BRepBuilderAPI_MakeEdge(vertices_[static_cast<std::size_t>(key.first)],
                                             vertices_[static_cast<std::size_t>(key.second)]);
    }
    return edge->second.Oriented(from < to ? TopAbs_FORWARD : TopAbs_REVERSED);
  }

  const Mesh& mesh_;
  BRep_Builder builder_;
  TopoDS_Shell shell_;
  std::vector<TopoDS_Vertex> vertices_;
  std::map<std::pair<int, int>, TopoDS_Edge> edges_;
};

}  // namespace

TopoDS_Shape FacetShell(const TopoDS_Shape& facets) {
  const Mesh mesh = FacetsOf(facets);
  ShellMaker maker(mesh);
  for (const auto& triangle : mesh.triangles) maker.Add(triangle);
  return maker.Take();
}

}  // namespace vanzet::modeller
