#include "modeller/exchange/describe.h"

#include <BRepAdaptor_Surface.hxx>
#include <BRepGProp.hxx>
#include <BRep_Builder.hxx>
#include <GProp_GProps.hxx>
#include <IGESControl_Reader.hxx>
#include <IGESData_IGESModel.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <TDataStd_Name.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XCAFPrs_DocumentExplorer.hxx>
#include <algorithm>
#include <cmath>
#include <gp_Cylinder.hxx>
#include <gp_Lin.hxx>

#include "base/letter_case.h"
#include "base/one_line.h"
#include "modeller/exchange/document.h"
#include "modeller/exchange/named_places.h"
#include "modeller/exchange/read_file.h"
#include "modeller/exchange/three_mf.h"
#include "modeller/facets.h"
#include "modeller/kernel.h"
#include "modeller/measures.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

/// Cylinders about one axis.
struct Round {
  gp_Ax1 axis;
  double area, radius;
};

bool AreOne(const gp_Ax1& a, const gp_Ax1& b) {
  constexpr double kNear = 0.001, kAngle = 1e-4;  // millimetres, radians
  return a.IsParallel(b, kAngle) && gp_Lin(a).Distance(b.Location()) < kNear;
}

void Add(const TopoDS_Face& face, std::vector<Round>& rounds) {
  const BRepAdaptor_Surface surface(face);
  if (surface.GetType() != GeomAbs_Cylinder) return;
  GProp_GProps properties;
  BRepGProp::SurfaceProperties(face, properties);
  const Round round{surface.Cylinder().Axis(), properties.Mass(), surface.Cylinder().Radius()};
  const auto known =
      std::ranges::find_if(rounds, [&](const Round& other) { return AreOne(other.axis, round.axis); });
  if (known == rounds.end()) {
    rounds.push_back(round);
    return;
  }
  known->area += round.area;
  known->radius = std::max(known->radius, round.radius);
}

/// The direction with its largest part upwards: a cylinder has two.
gp_Dir Upwards(const gp_Dir& direction) {
  const double parts[] = {direction.X(), direction.Y(), direction.Z()};
  const double largest = *std::ranges::max_element(parts, {}, [](double part) { return std::abs(part); });
  return largest < 0 ? direction.Reversed() : direction;
}

std::optional<RoundAxis> RoundAxisOf(const TopoDS_Shape& shape) {
  std::vector<Round> rounds;
  for (TopExp_Explorer faces(shape, TopAbs_FACE); faces.More(); faces.Next()) {
    Add(TopoDS::Face(faces.Current()), rounds);
  }
  if (rounds.empty()) return std::nullopt;
  const Round& largest = *std::ranges::max_element(rounds, {}, &Round::area);
  const gp_Pnt at = largest.axis.Location();
  const gp_Dir along = Upwards(largest.axis.Direction());
  return RoundAxis{{{at.X(), at.Y(), at.Z()}, {along.X(), along.Y(), along.Z()}}, largest.radius};
}

struct NamedShape {
  std::string name;
  TopoDS_Shape shape;
};

/// The solids of a shape; what is in no solid is one part.
void AddParts(const std::string& name, const TopoDS_Shape& shape, std::vector<NamedShape>& parts) {
  const std::size_t before = parts.size();
  for (TopExp_Explorer solids(shape, TopAbs_SOLID); solids.More(); solids.Next()) {
    parts.push_back({name, solids.Current()});
  }
  if (parts.size() > before && !TopExp_Explorer(shape, TopAbs_FACE, TopAbs_SOLID).More()) return;
  TopoDS_Compound rest;
  BRep_Builder().MakeCompound(rest);
  for (TopExp_Explorer faces(shape, TopAbs_FACE, TopAbs_SOLID); faces.More(); faces.Next()) {
    BRep_Builder().Add(rest, faces.Current());
  }
  parts.push_back({name, rest});
}

/// A file, read once more for what it says besides its shape.
struct Notes {
  std::string unit;
  std::vector<NamedShape> parts;
  std::vector<NamedPlace> places = {};
};

std::string NameOf(const TDF_Label& label) {
  Handle(TDataStd_Name) name;
  if (!label.FindAttribute(TDataStd_Name::GetID(), name)) return "";
  std::string text(static_cast<std::size_t>(name->Get().LengthOfCString()), ' ');
  char* bytes = text.data();
  name->Get().ToUTF8CString(bytes);
  return text;
}

Notes NotesOfStep(const fs::path& file, const TopoDS_Shape& shape) {
  Notes notes;
  STEPCAFControl_Reader reader;
  reader.SetNameMode(Standard_True);
  const Document document({});
  Handle(TDocStd_Document) content = document.handle();
  if (reader.ReadFile(file.c_str()) == IFSelect_RetDone) {
    TColStd_SequenceOfAsciiString lengths, angles, solidAngles;
    reader.ChangeReader().FileUnits(lengths, angles, solidAngles);
    if (!lengths.IsEmpty()) notes.unit = lengths.First().ToCString();
    const NamedPlacements placements = TakeNamedPlacements(reader.ChangeReader().StepModel());
    reader.Transfer(content);
    notes.places = PlacesOf(placements);
  }
  for (XCAFPrs_DocumentExplorer nodes(content, XCAFPrs_DocumentExplorerFlags_OnlyLeafNodes); nodes.More();
       nodes.Next()) {
    const auto& node = nodes.Current();
    AddParts(NameOf(node.RefLabel), XCAFDoc_ShapeTool::GetShape(node.RefLabel).Located(node.Location),
             notes.parts);
  }
  if (notes.parts.empty()) AddParts("", shape, notes.parts);
  return notes;
}

Notes NotesOfIges(const fs::path& file, const TopoDS_Shape& shape) {
  Notes notes;
  IGESControl_Reader reader;
  if (reader.ReadFile(file.c_str()) == IFSelect_RetDone) {
    const auto unit = reader.IGESModel()->GlobalSection().UnitName();
    if (!unit.IsNull()) notes.unit = unit->ToCString();
  }
  AddParts("", shape, notes.parts);
  return notes;
}

Notes NotesOfThreeMf(const fs::path& file, const TopoDS_Shape& shape) {
  return {ThreeMfUnit(file), {{"", shape}}};
}

Notes NotesOfOther(const fs::path&, const TopoDS_Shape& shape) {
  Notes notes;
  AddParts("", shape, notes.parts);
  return notes;
}

struct NotesRow {
  std::string_view ending;
  Notes (*read)(const fs::path& file, const TopoDS_Shape& shape);
};
constexpr NotesRow kNotes[] = {
    {".step", NotesOfStep}, {".stp", NotesOfStep},    {".iges", NotesOfIges},
    {".igs", NotesOfIges},  {".3mf", NotesOfThreeMf},
};

Notes NotesOf(const fs::path& file, const TopoDS_Shape& shape) {
  for (const NotesRow& row : kNotes) {
    if (EqualWithoutCase(row.ending, file.extension().string())) return row.read(file, shape);
  }
  return NotesOfOther(file, shape);
}

Result<PartDescription> PartOf(const NamedShape& named) {
  const Body body = BodyOf(named.shape, HasFacetsOnly(named.shape));
  PartDescription part;
  part.name = named.name;
  part.isSolid = named.shape.ShapeType() == TopAbs_SOLID;
  VANZET_TRY(part.box, Extents(body));
  VANZET_TRY(part.measures, MeasuresOf(body));
  return part;
}

}  // namespace

Result<FileDescription> Describe(const fs::path& file) {
  VANZET_TRY(const FileShape read, ReadFile(file));
  const TopoDS_Shape& shape = read.shape;
  const Notes notes = NotesOf(file, shape);
  FileDescription description;
  description.unit = OneLine(notes.unit);
  description.places = notes.places;
  description.hasSurfaces = !HasFacetsOnly(shape);
  for (const NamedShape& named : notes.parts) {
    VANZET_TRY(const auto part, PartOf(named));
    description.parts.push_back(part);
  }
  if (description.hasSurfaces) description.round = RoundAxisOf(shape);
  return description;
}

}  // namespace vanzet::modeller
