#include "modeller/exchange/read_file.h"

#include <BRepBndLib.hxx>
#include <BRepBuilderAPI_MakeSolid.hxx>
#include <BRepBuilderAPI_Sewing.hxx>
#include <BRepLib.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <BinTools.hxx>
#include <Bnd_Box.hxx>
#include <IGESControl_Controller.hxx>
#include <IGESControl_Reader.hxx>
#include <IGESData_IGESModel.hxx>
#include <Interface_Static.hxx>
#include <RWStl.hxx>
#include <RWStl_Reader.hxx>
#include <STEPControl_Controller.hxx>
#include <STEPControl_Reader.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shell.hxx>
#include <TopoDS_Solid.hxx>
#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <streambuf>
#include <string>

#include "base/letter_case.h"
#include "base/number_text.h"
#include "modeller/body_size.h"
#include "modeller/exchange/empty_step.h"
#include "modeller/exchange/named_places.h"
#include "modeller/exchange/process.h"
#include "modeller/exchange/three_mf.h"
#include "modeller/facets.h"
#include "modeller/outline.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

constexpr double kTransferBegins = 0.35;  // of a STEP file's progress: reading its text comes before

/// The bytes of a file. Reports as progress how much of them was read.
class ReportingBytes final : public std::streambuf {
 public:
  explicit ReportingBytes(const fs::path& file)
      : size_(static_cast<double>(fs::file_size(file))), bytes_(file, std::ios::binary) {}

 private:
  int_type underflow() override {
    bytes_.read(block_.data(), static_cast<std::streamsize>(block_.size()));
    const auto count = bytes_.gcount();
    if (count <= 0) return traits_type::eof();
    read_ += static_cast<double>(count);
    ReportProgress(kTransferBegins * std::min(read_ / size_, 1.0));
    setg(block_.data(), block_.data(), block_.data() + count);
    return traits_type::to_int_type(block_[0]);
  }

  double size_, read_ = 0;
  std::ifstream bytes_;
  std::array<char, std::size_t{1} << 16U> block_;
};

Result<FileShape> ReadStep(const fs::path& file) {
  STEPControl_Controller::Init();
  Interface_Static::SetCVal("xstep.cascade.unit", "MM");
  STEPControl_Reader reader;
  ReportingBytes bytes(file);
  std::istream text(&bytes);
  if (reader.ReadStream(file.c_str(), text) != IFSelect_RetDone) {
    return Fault{"not a readable STEP file" + FirstKernelMessage()};
  }
  TakeNamedPlacements(reader.StepModel());
  const Handle(Message_ProgressIndicator) reporter = new ProgressReporter(kTransferBegins, 1);
  reader.TransferRoots(reporter->Start());
  const TopoDS_Shape shape = reader.OneShape();
  if (!shape.IsNull()) return FileShape{shape, reader.NbShapes()};
  return Fault{"holds no body" + ReasonForNoBody(reader.StepModel()) + FirstKernelMessage()};
}

class StlReader final : public RWStl_Reader {
 public:
  /// The rule by which Open CASCADE distinguishes text from binary files.
  bool LooksLikeText(std::ifstream& bytes) { return IsAscii(bytes, true); }

  const Mesh& mesh() const { return mesh_; }

 private:
  Standard_Integer AddNode(const gp_XYZ& point) override {
    mesh_.points.emplace_back(point.X(), point.Y(), point.Z());
    return static_cast<int>(mesh_.points.size()) - 1;
  }
  void AddTriangle(Standard_Integer a, Standard_Integer b, Standard_Integer c) override {
    mesh_.triangles.push_back({a, b, c});
  }

  Mesh mesh_;
};

/// Whether a text has its last line, "endsolid" and an optional name, in small letters or capitals.
bool HasItsEnd(std::ifstream& bytes, std::uintmax_t size) {
  constexpr std::uintmax_t kLongestEnd = 4096;
  bytes.clear();
  bytes.seekg(static_cast<std::streamoff>(size - std::min(size, kLongestEnd)));
  std::string end{std::istreambuf_iterator<char>(bytes), {}};
  std::ranges::transform(end, end.begin(), SmallLetter);
  return end.find("endsolid") != std::string::npos;
}

/// The size that a binary file announces, if it is long enough to announce one.
std::optional<std::uintmax_t> AnnouncedSize(std::ifstream& bytes, std::uint32_t& count) {
  constexpr std::uintmax_t kCountAt = 80, kHeadBytes = 84, kTriangleBytes = 50;
  bytes.clear();
  bytes.seekg(kCountAt);
  if (!bytes.read(reinterpret_cast<char*>(&count), sizeof(count))) return std::nullopt;
  return kHeadBytes + kTriangleBytes * count;
}

/// The forms of an STL file. The bytes of a small binary file can all be those of a text, which misleads Open
/// CASCADE.
enum class StlForm { kPlain, kBinaryLikeText };

/// Fails when a file is cut short, which Open CASCADE ignores. A file that has exactly the size that it
/// announces is binary.
Result<StlForm> StlFormOf(const fs::path& file) {
  const std::uintmax_t size = fs::file_size(file);
  std::ifstream bytes(file, std::ios::binary);
  const bool looksLikeText = StlReader().LooksLikeText(bytes);
  std::uint32_t count = 0;
  const auto announced = AnnouncedSize(bytes, count);
  if (looksLikeText && announced == size) return StlForm::kBinaryLikeText;
  if (looksLikeText) {
    if (HasItsEnd(bytes, size)) return StlForm::kPlain;
    return Fault{"is cut short: it has no 'endsolid'"};
  }
  if (!announced) return Fault{"not a readable STL file"};
  if (size >= *announced) return StlForm::kPlain;
  return Fault{"is cut short: it announces " + std::to_string(count) +
               " triangles but does not contain them"};
}

Result<TopoDS_Shape> ReadBinaryLikeText(const fs::path& file) {
  std::ifstream bytes(file, std::ios::binary);
  StlReader reader;
  if (!reader.ReadBinary(bytes, Message_ProgressRange())) return Fault{"not a readable STL file"};
  if (reader.mesh().triangles.empty()) return TopoDS_Shape();
  return TopoDS_Shape(FaceOf(reader.mesh()));
}

Result<TopoDS_Shape> ReadStl(const fs::path& file) {
  VANZET_TRY(const StlForm form, StlFormOf(file));
  if (form == StlForm::kBinaryLikeText) return ReadBinaryLikeText(file);
  const Handle(Message_ProgressIndicator) reporter = new ProgressReporter();
  const auto triangulation = RWStl::ReadFile(file.c_str(), reporter->Start());
  if (triangulation.IsNull()) return Fault{"not a readable STL file" + FirstKernelMessage()};
  TopoDS_Face face;
  if (triangulation->NbTriangles() > 0) BRep_Builder().MakeFace(face, triangulation);
  return face;
}

Result<TopoDS_Shape> ReadBrep(const fs::path& file) {
  TopoDS_Shape shape;
  const Handle(Message_ProgressIndicator) reporter = new ProgressReporter();
  if (!BRepTools::Read(shape, file.c_str(), BRep_Builder(), reporter->Start())) {
    return Fault{"not a readable BREP file" + FirstKernelMessage()};
  }
  return shape;
}

/// The faces, which an IGES file has one by one, as solids where they close. What is not closed stays as it
/// is.
TopoDS_Shape Sewn(const TopoDS_Shape& faces) {
  constexpr double kGap = 0.01;  // millimetres between edges that are one
  BRepBuilderAPI_Sewing sewing(kGap);
  sewing.Add(faces);
  sewing.Perform();
  const TopoDS_Shape sewn = sewing.SewedShape();
  TopoDS_Compound bodies;
  BRep_Builder().MakeCompound(bodies);
  for (TopExp_Explorer shells(sewn, TopAbs_SHELL); shells.More(); shells.Next()) {
    const TopoDS_Shell shell = TopoDS::Shell(shells.Current());
    if (!BRep_Tool::IsClosed(shell)) return sewn;
    TopoDS_Solid solid = BRepBuilderAPI_MakeSolid(shell);
    BRepLib::OrientClosedSolid(solid);
    BRep_Builder().Add(bodies, solid);
  }
  return bodies.NbChildren() == 0 ? sewn : TopoDS_Shape(bodies);
}

Result<TopoDS_Shape> ReadIges(const fs::path& file) {
  IGESControl_Controller::Init();
  Interface_Static::SetCVal("xstep.cascade.unit", "MM");
  IGESControl_Reader reader;
  // A text of anything is taken for a file without entities.
  if (reader.ReadFile(file.c_str()) != IFSelect_RetDone || reader.IGESModel()->NbEntities() == 0) {
    return Fault{"not a readable IGES file" + FirstKernelMessage()};
  }
  const Handle(Message_ProgressIndicator) reporter = new ProgressReporter(kTransferBegins, 1);
  reader.TransferRoots(reporter->Start());
  const TopoDS_Shape shape = reader.OneShape();
  if (shape.IsNull() || TopExp_Explorer(shape, TopAbs_SOLID).More()) return shape;
  return Sewn(shape);
}

/// The formats whose files have no roots, or a root for each face.
template <Result<TopoDS_Shape> read(const fs::path& file)>
Result<FileShape> AsOne(const fs::path& file) {
  VANZET_TRY(const auto shape, read(file));
  return FileShape{shape};
}

struct Reader {
  std::string_view ending;
  Result<FileShape> (*read)(const fs::path& file);
};
constexpr Reader kReaders[] = {
    {".step", ReadStep},          {".stp", ReadStep},        {".stl", AsOne<ReadStl>},
    {".brep", AsOne<ReadBrep>},   {".igs", AsOne<ReadIges>}, {".iges", AsOne<ReadIges>},
    {".3mf", AsOne<ReadThreeMf>},
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

Result<FileShape> ReadFile(const fs::path& file) {
  if (!fs::is_regular_file(file)) {
    if (fs::exists(file)) return Fault{"not a regular file"};
    return Fault{.text = "does not exist", .kind = FaultKind::kMissing};
  }
  if (!std::ifstream(file)) return Fault{"cannot be read"};
  for (const Reader& reader : kReaders) {
    if (!EqualWithoutCase(reader.ending, file.extension().string())) continue;
    VANZET_TRY(auto read, reader.read(file));
    VANZET_TRY(const auto faces, CountFaces(read.shape));
    if (faces == 0) {
      return Fault{"holds no body" + FirstKernelMessage()};
    }
    VANZET_DO(CheckReach(read.shape));
    return read;
  }
  return Fault{"does not end with .step, .stp, .iges, .igs, .brep, .stl or .3mf"};
}

ReadBody AnswerOf(const FileShape& read) {
  if (HasFacetsOnly(read.shape)) return {.facets = FacetsOf(read.shape), .surfaces = {}};
  std::ostringstream bytes;
  BinTools::Write(read.shape, bytes);
  return {.facets = std::nullopt, .surfaces = std::move(bytes).str(), .roots = read.roots};
}

}  // namespace vanzet::modeller
