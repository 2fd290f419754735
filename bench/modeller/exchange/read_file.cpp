#include "modeller/exchange/read_file.h"

#include <BRepBndLib.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <Bnd_Box.hxx>
#include <Interface_Static.hxx>
#include <RWStl.hxx>
#include <STEPControl_Reader.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS_Face.hxx>
#include <fstream>

#include "base/letter_case.h"
#include "modeller/exchange/report.h"
#include "modeller/number_text.h"
#include "modeller/outline.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

constexpr double kTransferBegins = 0.3;  // of a STEP file's progress: reading its text comes before

Result<TopoDS_Shape> ReadStep(const fs::path& file) {
  STEPControl_Reader reader;
  Interface_Static::SetCVal("xstep.cascade.unit", "MM");
  if (reader.ReadFile(file.c_str()) != IFSelect_RetDone) {
    return Fault{"is no STEP file that can be read" + FirstComplaint()};
  }
  TellProgress(kTransferBegins);
  const Handle(Message_ProgressIndicator) teller = new ProgressTeller(kTransferBegins, 1);
  reader.TransferRoots(teller->Start());
  return reader.OneShape();
}

Result<TopoDS_Shape> ReadStl(const fs::path& file) {
  const Handle(Message_ProgressIndicator) teller = new ProgressTeller(0, 1);
  const auto triangulation = RWStl::ReadFile(file.c_str(), teller->Start());
  if (triangulation.IsNull()) return Fault{"is no STL file that can be read" + FirstComplaint()};
  TopoDS_Face face;
  if (triangulation->NbTriangles() > 0) BRep_Builder().MakeFace(face, triangulation);
  return face;
}

Result<TopoDS_Shape> ReadBrep(const fs::path& file) {
  TopoDS_Shape shape;
  const Handle(Message_ProgressIndicator) teller = new ProgressTeller(0, 1);
  if (!BRepTools::Read(shape, file.c_str(), BRep_Builder(), teller->Start())) {
    return Fault{"is no BREP file that can be read" + FirstComplaint()};
  }
  return shape;
}

struct Reader {
  std::string_view ending;
  Result<TopoDS_Shape> (*read)(const fs::path& file);
};
constexpr Reader kReaders[] = {
    {".step", ReadStep},
    {".stp", ReadStep},
    {".stl", ReadStl},
    {".brep", ReadBrep},
};

Result<void> CheckReach(const TopoDS_Shape& shape) {
  Bnd_Box box;
  BRepBndLib::Add(shape, box);
  if (box.IsVoid()) return Fault{"holds no body"};
  double low[3], high[3];
  box.Get(low[0], low[1], low[2], high[0], high[1], high[2]);
  for (int i = 0; i < 3; ++i) {
    if (low[i] >= -kLargestCoordinate && high[i] <= kLargestCoordinate) continue;
    return Fault{"has a point that is not within " + NumberText(kLargestCoordinate) + " mm"};
  }
  return {};
}

}  // namespace

Result<TopoDS_Shape> ReadFile(const fs::path& file) {
  if (!fs::is_regular_file(file)) return Fault{fs::exists(file) ? "is no regular file" : "is not there"};
  if (!std::ifstream(file)) return Fault{"cannot be read"};
  for (const Reader& reader : kReaders) {
    if (!EqualWithoutCase(reader.ending, file.extension().string())) continue;
    auto shape = reader.read(file);
    if (!shape) return shape;
    if (shape->IsNull() || !TopExp_Explorer(*shape, TopAbs_FACE).More()) {
      return Fault{"holds no body" + FirstComplaint()};
    }
    if (const auto checked = CheckReach(*shape); !checked) return checked.fault();
    return shape;
  }
  return Fault{"does not end with .step, .stp, .stl or .brep"};
}

}  // namespace vanzet::modeller
