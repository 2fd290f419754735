#include "modeller/exchange/write_file.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRep_Builder.hxx>
#include <Interface_Static.hxx>
#include <Quantity_Color.hxx>
#include <RWGltf_CafWriter.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <STEPControl_Controller.hxx>
#include <TColStd_IndexedDataMapOfStringString.hxx>
#include <TDF_LabelSequence.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Shell.hxx>
#include <TopoDS_Solid.hxx>
#include <TopoDS_Vertex.hxx>
#include <TopoDS_Wire.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XCAFDoc_VisMaterial.hxx>
#include <XCAFDoc_VisMaterialTool.hxx>
#include <algorithm>
#include <gp_Pln.hxx>
#include <map>
#include <utility>

#include "modeller/exchange/process.h"
#include "modeller/facets.h"
#include "modeller/measures.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

constexpr double kMillimetre = 0.001;  // in metres

Quantity_Color ColourOf(const Colour& colour) {
  const auto part = [](double value) { return std::clamp(value, 0.0, 1.0); };
  return {part(colour.red), part(colour.green), part(colour.blue), Quantity_TOC_sRGB};
}

/// The bodies as a document of Open CASCADE, each with its name and colour; millimetres.
Handle(TDocStd_Document) DocumentOf(const std::vector<ParcelBody>& bodies) {
  Handle(TDocStd_Document) document;
  XCAFApp_Application::GetApplication()->NewDocument("BinXCAF", document);
  XCAFDoc_DocumentTool::SetLengthUnit(document, kMillimetre);
  const auto shapes = XCAFDoc_DocumentTool::ShapeTool(document->Main());
  const auto colours = XCAFDoc_DocumentTool::ColorTool(document->Main());
  for (const ParcelBody& body : bodies) {
    const TDF_Label label = shapes->AddShape(body.shape, Standard_False);
    TDataStd_Name::Set(label, TCollection_ExtendedString(body.name.c_str(), Standard_True));
    colours->SetColor(label, ColourOf(body.colour), XCAFDoc_ColorGen);
    colours->SetColor(label, ColourOf(body.colour), XCAFDoc_ColorSurf);
  }
  return document;
}

/// A material for viewers that draw by physics: without it they take a body for polished metal.
Handle(XCAFDoc_VisMaterial) MaterialOf(const ParcelBody& body) {
  constexpr float kRoughness = 0.6F, kSteel = 0.3F;
  XCAFDoc_VisMaterialPBR look;
  look.BaseColor = Quantity_ColorRGBA(ColourOf(body.colour));
  look.Metallic = body.isSteel ? kSteel : 0;
  look.Roughness = kRoughness;
  Handle(XCAFDoc_VisMaterial) material = new XCAFDoc_VisMaterial();
  material->SetPbrMaterial(look);
  return material;
}

/// Gives each body of a document its material.
void AddMaterials(const std::vector<ParcelBody>& bodies, const Handle(TDocStd_Document) & document) {
  const auto materials = XCAFDoc_DocumentTool::VisMaterialTool(document->Main());
  TDF_LabelSequence labels;
  XCAFDoc_DocumentTool::ShapeTool(document->Main())->GetFreeShapes(labels);
  for (std::size_t i = 0; i < bodies.size(); ++i) {
    const TDF_Label made = materials->AddMaterial(MaterialOf(bodies[i]), bodies[i].name.c_str());
    materials->SetShapeMaterial(labels.Value(static_cast<int>(i) + 1), made);
  }
}

/// Such a document, which is closed with its owner: the application would keep it.
class Document {
 public:
  explicit Document(const std::vector<ParcelBody>& bodies) : handle_(DocumentOf(bodies)) {}
  ~Document() { XCAFApp_Application::GetApplication()->Close(handle_); }
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  const Handle(TDocStd_Document) & handle() const { return handle_; }

 private:
  Handle(TDocStd_Document) handle_;
};

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

}  // namespace

void PrepareForStep(std::vector<ParcelBody>& bodies) {
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
  const Document document(bodies);
  const bool isDone = writer.Transfer(document.handle(), STEPControl_AsIs) == Standard_True &&
                      writer.Write(file.c_str()) == IFSelect_RetDone;
  if (!isDone) return Fault{"Open CASCADE could not write it" + FirstKernelMessage()};
  return {};
}

Result<void> PrepareForGltf(std::vector<ParcelBody>& bodies, const MeshTolerance& tolerance) {
  for (ParcelBody& body : bodies) {
    if (HasFacetsOnly(body.shape)) continue;
    VANZET_TRY(body.shape, TriangulateSurfaces(body.shape, tolerance));
  }
  return {};
}

Result<void> WriteGltf(const std::vector<ParcelBody>& bodies, const fs::path& file) {
  RWGltf_CafWriter writer(file.c_str(), Standard_True);
  writer.ChangeCoordinateSystemConverter().SetInputLengthUnit(kMillimetre);
  writer.ChangeCoordinateSystemConverter().SetInputCoordinateSystem(RWMesh_CoordinateSystem_Yup);
  const Document document(bodies);
  AddMaterials(bodies, document.handle());
  if (!writer.Perform(document.handle(), {}, Message_ProgressRange())) {
    return Fault{"Open CASCADE could not write it" + FirstKernelMessage()};
  }
  return {};
}

}  // namespace vanzet::modeller
