#include <APIHeaderSection_MakeHeader.hxx>
#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRep_Builder.hxx>
#include <Interface_Static.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <STEPConstruct.hxx>
#include <STEPConstruct_DataMapOfAsciiStringTransient.hxx>
#include <STEPConstruct_DataMapOfPointTransient.hxx>
#include <STEPConstruct_Styles.hxx>
#include <STEPControl_Controller.hxx>
#include <StepBasic_ProductDefinition.hxx>
#include <StepData_StepModel.hxx>
#include <StepGeom_Axis2Placement3d.hxx>
#include <StepGeom_CartesianPoint.hxx>
#include <StepGeom_Direction.hxx>
#include <StepRepr_CharacterizedDefinition.hxx>
#include <StepRepr_HArray1OfRepresentationItem.hxx>
#include <StepRepr_PropertyDefinition.hxx>
#include <StepRepr_PropertyDefinitionRepresentation.hxx>
#include <StepRepr_Representation.hxx>
#include <StepRepr_RepresentationContext.hxx>
#include <StepRepr_RepresentedDefinition.hxx>
#include <StepShape_ShapeDefinitionRepresentation.hxx>
#include <StepShape_ShapeRepresentation.hxx>
#include <StepVisual_Colour.hxx>
#include <StepVisual_MechanicalDesignGeometricPresentationRepresentation.hxx>
#include <StepVisual_PresentationStyleAssignment.hxx>
#include <StepVisual_StyledItem.hxx>
#include <TColStd_HArray1OfReal.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Iterator.hxx>
#include <TopoDS_Shell.hxx>
#include <TopoDS_Solid.hxx>
#include <TopoDS_Vertex.hxx>
#include <TopoDS_Wire.hxx>
#include <Transfer_FinderProcess.hxx>
#include <XSControl_WorkSession.hxx>
#include <algorithm>
#include <gp_Pln.hxx>
#include <map>
#include <set>
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

Handle(TCollection_HAsciiString) Text(const std::string& text) {
  return new TCollection_HAsciiString(text.c_str());
}

/// Says in the head of a file what made it, and when. Nobody is named as its author.
void WriteHead(const Handle(StepData_StepModel) & model, const std::string& name, const std::string& time) {
  APIHeaderSection_MakeHeader head(model);
  head.SetName(Text(name));
  head.SetAuthorValue(1, Text(""));
  head.SetOrganizationValue(1, Text(""));
  head.SetOriginatingSystem(Text("vanzet"));
  head.SetAuthorisation(Text(""));
  if (!time.empty()) head.SetTimeStamp(Text(time));
}

/// The representations of shapes, in the order of the model: the first is that of the root.
std::vector<Handle(StepShape_ShapeRepresentation)> RepresentationsOf(const Handle(StepData_StepModel) &
                                                                     model) {
  std::vector<Handle(StepShape_ShapeRepresentation)> all;
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const auto each = Handle(StepShape_ShapeRepresentation)::DownCast(model->Value(i));
    if (!each.IsNull() && !each->Items().IsNull()) all.push_back(each);
  }
  return all;
}

/// Gives bodies their colours one after the other: the order in which Open CASCADE does it for a document
/// depends on addresses in memory.
class ColourWriter {
 public:
  ColourWriter(Handle(XSControl_WorkSession) session, Handle(StepData_StepModel) model)
      : session_(std::move(session)), model_(std::move(model)), representations_(RepresentationsOf(model_)) {}

  void Write(const ParcelBody& body) {
    STEPConstruct_Styles styles(session_);
    const Quantity_ColorRGBA colour = ColourOf(body.appearance);
    const auto encoded = STEPConstruct_Styles::EncodeColor(colour.GetRGB(), predefined_, mixed_);
    const double transparency = 1 - static_cast<double>(colour.Alpha());
    const auto seenThrough = transparency > 0 ? encoded : Handle(StepVisual_Colour)();
    item_.Nullify();
    AddStyles(body.shape, styles, [&](const Handle(StepRepr_RepresentationItem) & item) {
      return styles.MakeColorPSA(item, encoded, encoded, seenThrough, transparency);
    });
    Handle(StepVisual_MechanicalDesignGeometricPresentationRepresentation) list;
    if (!item_.IsNull() && styles.CreateMDGPR(ContextOf(item_), list)) model_->AddWithRefs(list);
  }

 private:
  /// A shape without an item of its own is a compound: its parts have items.
  template <class MakeStyle>
  void AddStyles(const TopoDS_Shape& shape, STEPConstruct_Styles& styles, const MakeStyle& make) {
    const auto item = STEPConstruct::FindEntity(styles.FinderProcess(), shape);
    if (!item.IsNull()) {
      item_ = item;
      styles.AddStyle(item, make(item), Handle(StepVisual_StyledItem)());
      return;
    }
    for (TopoDS_Iterator parts(shape); parts.More(); parts.Next()) AddStyles(parts.Value(), styles, make);
  }

  Handle(StepRepr_RepresentationContext) ContextOf(const Handle(StepRepr_RepresentationItem) & item) const {
    for (const auto& each : representations_) {
      for (int i = 1; i <= each->NbItems(); ++i) {
        if (each->ItemsValue(i) == item) return each->ContextOfItems();
      }
    }
    return representations_.front()->ContextOfItems();
  }

  Handle(XSControl_WorkSession) session_;
  Handle(StepData_StepModel) model_;
  std::vector<Handle(StepShape_ShapeRepresentation)> representations_;
  STEPConstruct_DataMapOfAsciiStringTransient predefined_;
  STEPConstruct_DataMapOfPointTransient mixed_;
  Handle(StepRepr_RepresentationItem) item_;
};

Handle(StepGeom_Axis2Placement3d) PlacementOf(const NamedPlace& place) {
  const auto& [name, origin, axis, upwards] = place;
  const auto direction = [](const geometry::Vector3d& along) {
    const Handle(TColStd_HArray1OfReal) parts = new TColStd_HArray1OfReal(1, 3);
    parts->SetValue(1, along.dx);
    parts->SetValue(2, along.dy);
    parts->SetValue(3, along.dz);
    const Handle(StepGeom_Direction) made = new StepGeom_Direction;
    made->Init(Text(""), parts);
    return made;
  };
  const Handle(StepGeom_CartesianPoint) point = new StepGeom_CartesianPoint;
  point->Init3D(Text(""), origin.x, origin.y, origin.z);
  const Handle(StepGeom_Axis2Placement3d) made = new StepGeom_Axis2Placement3d;
  made->Init(Text(name), point, Standard_True, direction(axis), Standard_True, direction(upwards));
  return made;
}

/// The product of the root.
Handle(StepBasic_ProductDefinition)
    RootOf(const Handle(StepData_StepModel) & model, const Handle(StepShape_ShapeRepresentation) & root) {
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const auto each = Handle(StepShape_ShapeDefinitionRepresentation)::DownCast(model->Value(i));
    if (each.IsNull() || each->UsedRepresentation() != root) continue;
    return each->Definition().PropertyDefinition()->Definition().ProductDefinition();
  }
  return {};
}

/// Adds the places of the bodies as a property of the root. Among the items of its shape, readers would
/// take them for the place of the shape itself.
void WritePlaces(const std::vector<ParcelBody>& bodies, const Handle(StepData_StepModel) & model) {
  std::vector<Handle(StepGeom_Axis2Placement3d)> placements;
  std::set<std::string> names;
  for (const ParcelBody& body : bodies) {
    for (const NamedPlace& place : body.places) {
      if (names.insert(place.name).second) placements.push_back(PlacementOf(place));
    }
  }
  const auto representations = RepresentationsOf(model);
  if (placements.empty() || representations.empty()) return;
  const auto& root = representations.front();
  const Handle(StepRepr_HArray1OfRepresentationItem) items =
      new StepRepr_HArray1OfRepresentationItem(1, static_cast<int>(placements.size()));
  int next = 0;
  for (const auto& placement : placements) items->SetValue(++next, placement);
  const Handle(StepRepr_Representation) representation = new StepRepr_Representation;
  representation->Init(Text("named placements"), items, root->ContextOfItems());
  StepRepr_CharacterizedDefinition owner;
  owner.SetValue(RootOf(model, root));
  const Handle(StepRepr_PropertyDefinition) property = new StepRepr_PropertyDefinition;
  property->Init(Text("named placements"), Standard_False, Text(""), owner);
  StepRepr_RepresentedDefinition represented;
  represented.SetValue(property);
  const Handle(StepRepr_PropertyDefinitionRepresentation) link =
      new StepRepr_PropertyDefinitionRepresentation;
  link->Init(represented, representation);
  model->AddWithRefs(link);
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

Result<void> WriteStep(const std::vector<ParcelBody>& bodies, const fs::path& file, const std::string& time) {
  // A writer reads the settings when it is made.
  STEPControl_Controller::Init();
  Interface_Static::SetCVal("write.step.unit", "MM");
  STEPCAFControl_Writer writer;
  writer.SetNameMode(Standard_True);
  writer.SetColorMode(Standard_False);
  const std::string name = bodies.size() > 1 ? "equipment" : bodies.front().name;
  const Document document(bodies, bodies.size() > 1 ? name : "");
  if (!writer.Transfer(document.handle(), STEPControl_AsIs)) return CannotWrite();
  const Handle(StepData_StepModel) model = writer.ChangeWriter().Model();
  ColourWriter colours(writer.ChangeWriter().WS(), model);
  for (const ParcelBody& body : bodies) colours.Write(body);
  WritePlaces(bodies, model);
  WriteHead(model, name, time);
  if (writer.Write(file.c_str()) != IFSelect_RetDone) return CannotWrite();
  return {};
}

}  // namespace vanzet::modeller
