#include <APIHeaderSection_MakeHeader.hxx>
#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRep_Builder.hxx>
#include <Interface_Static.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <STEPControl_Controller.hxx>
#include <StepData_StepModel.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Shell.hxx>
#include <TopoDS_Solid.hxx>
#include <TopoDS_Vertex.hxx>
#include <TopoDS_Wire.hxx>
#include <algorithm>
#include <gp_Pln.hxx>
#include <map>
#include <utility>

#include "modeller/exchange/document.h"
#include "modeller/exchange/process.h"
#include "modeller/exchange/write_file.h"
#include "modeller/facets.h"
#include "modeller/measures.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

constexpr double kLeastHeight = 1e-6;  // millimetres; a flatter triangle has no plane

gp_Pnt PointOf(const geometry::Point3d& p) {
  return {p.x, p.y, p.z};
}

/// Makes a shell of faces that share their edges and vertices.
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

  TopoDS_Shape Finish() {
    if (!IsManifold(mesh_)) return shell_;
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

/// Makes a shape with a plane face for each triangle of a body of facets, for formats without triangles: a
/// solid when the mesh is closed, else a shell. Triangles without area are left out.
TopoDS_Shape FacetShell(const TopoDS_Shape& facets) {
  const Mesh mesh = FacetsOf(facets);
  ShellMaker maker(mesh);
  for (const auto& triangle : mesh.triangles) maker.Add(triangle);
  return maker.Finish();
}

Handle(TCollection_HAsciiString) Text(const char* text) {
  return new TCollection_HAsciiString(text);
}

/// Says in the head of a file what made it. Nobody is named as its author.
void WriteHead(STEPCAFControl_Writer& writer, const std::string& name) {
  APIHeaderSection_MakeHeader head(writer.ChangeWriter().Model());
  head.SetName(Text(name.c_str()));
  head.SetAuthorValue(1, Text(""));
  head.SetOrganizationValue(1, Text(""));
  head.SetOriginatingSystem(Text("vanzet"));
  head.SetAuthorisation(Text(""));
}

Fault CannotWrite() {
  return Fault{"Open CASCADE could not write it" + FirstKernelMessage()};
}

}  // namespace

void PrepareSurfaces(std::vector<ParcelBody>& bodies) {
  for (ParcelBody& body : bodies) {
    if (HasFacetsOnly(body.shape)) body.shape = FacetShell(body.shape);
  }
}

Result<void> WriteStep(const std::vector<ParcelBody>& bodies, const fs::path& file) {
  // A writer reads the settings when it is made.
  STEPControl_Controller::Init();
  Interface_Static::SetCVal("write.step.unit", "MM");
  STEPCAFControl_Writer writer;
  writer.SetNameMode(Standard_True);
  writer.SetColorMode(Standard_True);
  const std::string name = bodies.size() > 1 ? "equipment" : bodies.front().name;
  const Document document(bodies, bodies.size() > 1 ? name : "");
  if (!writer.Transfer(document.handle(), STEPControl_AsIs)) return CannotWrite();
  WriteHead(writer, name);
  if (writer.Write(file.c_str()) != IFSelect_RetDone) return CannotWrite();
  return {};
}

}  // namespace vanzet::modeller
