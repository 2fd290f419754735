// The exchange program. Its arguments: the order, the limits in seconds and bytes; for reading then what will
// be asked of the bodies and their files, for writing the file, the tolerances of the mesh, the bodies of
// each file and the time for their heads. Bodies and answers come and go
// through descriptor 3; process.h describes its reports.

#include <BRepBuilderAPI_Transform.hxx>
#include <Standard_OutOfMemory.hxx>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>

#include "base/numbers.h"
#include "modeller/answers.h"
#include "modeller/body_size.h"
#include "modeller/exchange/confinement.h"
#include "modeller/exchange/describe.h"
#include "modeller/exchange/process.h"
#include "modeller/exchange/read_file.h"
#include "modeller/exchange/read_package.h"
#include "modeller/exchange/read_vrml.h"
#include "modeller/exchange/three_mf.h"
#include "modeller/exchange/write_file.h"
#include "modeller/facets.h"
#include "modeller/kernel.h"
#include "modeller/measures.h"
#include "modeller/mesh.h"
#include "modeller/parcel.h"

namespace vanzet::modeller {
namespace {

/// The name by which this process can open the file in memory that it was started with.
constexpr const char* kParcel = "/proc/self/fd/3";

/// Applies the placement of the shape to its geometry: a placed shape would be written as part of an
/// assembly.
TopoDS_Shape ApplyPlacement(const TopoDS_Shape& shape) {
  if (HasFacetsOnly(shape)) return FaceOf(FacetsOf(shape));
  const gp_Trsf place = shape.Location().Transformation();
  return BRepBuilderAPI_Transform(shape.Located(TopLoc_Location()), place, Standard_True).Shape();
}

/// The answer; each part of it is there for good when the next one is begun.
class Answer {
 public:
  template <class Value>
  Result<void> Add(const Value& value) {
    Pack(value, bytes_);
    bytes_.flush();
    if (!bytes_) return Fault{"exceeds the memory limit"};
    return {};
  }

  template <class Value>
  Result<void> Add(const Result<Value>& value) {
    return value ? Add(*value) : value.fault();
  }

 private:
  std::ofstream bytes_{kParcel, std::ios::binary};
};

/// Reads the bodies that are to be written, with their placements applied to their geometry.
Result<std::vector<ParcelBody>> ReadParcel() {
  std::ifstream bytes(kParcel, std::ios::binary);
  VANZET_TRY(auto bodies, UnpackParcel(bytes));
  for (ParcelBody& body : bodies) body.shape = ApplyPlacement(body.shape);
  return bodies;
}

/// Reads the body that is to be worked on.
Result<Body> ReadOneBody() {
  std::ifstream bytes(kParcel, std::ios::binary);
  VANZET_TRY(const auto bodies, UnpackParcel(bytes));
  if (bodies.empty()) return Fault{"the body was not transferred completely"};
  return BodyOf(bodies.front().shape);
}

Result<Mesh> LimitedMesh(const Body& body, const MeshTolerance& tolerance) {
  const Handle(Message_ProgressIndicator) reporter = new ProgressReporter();
  VANZET_TRY(auto mesh, MeshOfSurfaces(body, tolerance, reporter->Start()));
  if (mesh.triangles.size() <= kMostFacets) return mesh;
  return Fault{"needs more than " + std::to_string(kMostFacets) + " facets"};
}

struct Arguments {
  Foresight foresight;
  std::vector<std::filesystem::path> filesToRead;
  std::string file;  ///< to write
  MeshTolerance tolerance;
  std::string files;  ///< the bodies of each file that is written; parcel.h
  std::string time;   ///< for the heads of these files; empty: the present
};

// The stages of reading a file whose body is also meshed, measured on STEP files of 10 to 50 MB.
constexpr double kReadUntil = 0.7, kMeasuredUntil = 0.75, kCoarseUntil = 0.85;

/// A body that cannot be meshed coarsely has an empty coarse mesh.
Result<void> AddCoarse(const Body& body, Answer& answer) {
  BeginStage(kMeasuredUntil, kCoarseUntil);
  const auto mesh = LimitedMesh(body, kCoarse);
  VANZET_DO(answer.Add(mesh ? *mesh : Mesh()));
  if (mesh) ReportCoarse();
  return {};
}

Result<void> AddFacts(const Body& body, const Foresight& foresight, Answer& answer) {
  if (foresight.mesh) BeginStage(kReadUntil, kMeasuredUntil);
  if (foresight.extents) VANZET_DO(answer.Add(Extents(body)));
  if (foresight.measures) VANZET_DO(answer.Add(MeasuresOf(body)));
  if (foresight.coarseMesh) VANZET_DO(AddCoarse(body, answer));
  if (!foresight.mesh) return {};
  BeginStage(foresight.coarseMesh ? kCoarseUntil : kMeasuredUntil, 1);
  return answer.Add(LimitedMesh(body, {}));
}

Result<void> Read(const Arguments& given) {
  Answer answer;
  for (std::size_t i = 0; i < given.filesToRead.size(); ++i) {
    BeginPart(i, given.filesToRead.size());
    BeginStage(0, given.foresight.mesh ? kReadUntil : 1);
    VANZET_TRY(const auto file, ReadFile(given.filesToRead[i]));
    const ReadBody read = AnswerOf(file);
    VANZET_DO(answer.Add(read));
    if (!read.facets) VANZET_DO(AddFacts(BodyOf(file.shape), given.foresight, answer));
  }
  return {};
}

Result<void> DescribeFiles(const Arguments& given) {
  Answer answer;
  for (const auto& file : given.filesToRead) VANZET_DO(answer.Add(Describe(file)));
  return {};
}

Result<void> ReadPackages(const Arguments& given) {
  Answer answer;
  for (const auto& file : given.filesToRead) VANZET_DO(answer.Add(ReadPackage(file)));
  return {};
}

Result<void> ReadVrmlText(const Arguments&) {
  std::ifstream text(kParcel, std::ios::binary);
  const auto meshes = ReadVrml(text);
  return Answer().Add(meshes);
}

using Write = Result<void>(const std::vector<ParcelBody>& bodies, const std::filesystem::path& file);

/// Calls `write(bodies, path)` for each file, and reports the progress.
Result<void> WriteFiles(const std::vector<ParcelBody>& bodies, const Arguments& given,
                        const std::function<Write>& write) {
  const auto files = FilesOfWord(given.files, bodies.size());
  if (files.empty()) return Fault{"the list of files was not transferred completely"};
  for (std::size_t i = 0; i < files.size(); ++i) {
    std::vector<ParcelBody> ofFile;
    for (const std::size_t body : files[i]) ofFile.push_back(bodies[body]);
    VANZET_DO(write(ofFile, NumberedFile(given.file, i)));
    ReportProgress(static_cast<double>(i + 1) / static_cast<double>(files.size()));
  }
  return {};
}

Result<void> StepFiles(const Arguments& given) {
  VANZET_TRY(auto bodies, ReadParcel());
  PrepareSurfaces(bodies);
  return WriteFiles(bodies, given,
                    [&](const std::vector<ParcelBody>& ofFile, const std::filesystem::path& file) {
                      return WriteStep(ofFile, file, given.time);
                    });
}

template <Write write>
Result<void> SurfaceFiles(const Arguments& given) {
  VANZET_TRY(auto bodies, ReadParcel());
  PrepareSurfaces(bodies);
  return WriteFiles(bodies, given, write);
}

template <Write write>
Result<void> FacetFiles(const Arguments& given) {
  VANZET_TRY(auto bodies, ReadParcel());
  VANZET_DO(PrepareMeshes(bodies, given.tolerance));
  return WriteFiles(bodies, given, write);
}

Result<void> MeshBody(const Arguments& given) {
  VANZET_TRY(const auto body, ReadOneBody());
  return Answer().Add(LimitedMesh(body, given.tolerance));
}

Result<void> MeasureExtents(const Arguments&) {
  VANZET_TRY(const auto body, ReadOneBody());
  return Answer().Add(Extents(body));
}

Result<void> Measure(const Arguments&) {
  VANZET_TRY(const auto body, ReadOneBody());
  return Answer().Add(MeasuresOf(body));
}

/// The use that an order makes of files.
enum class Use { kNone, kReads, kWrites };

struct Order {
  std::string_view word;
  Use use;
  bool hasTolerance;
  Result<void> (*run)(const Arguments& given);

  /// Whether the order can have so many arguments, with itself and the limits.
  bool CanHave(int arguments) const {
    constexpr int kFirst = 3;
    if (use == Use::kReads) return arguments > kFirst + 1;
    return arguments == kFirst + (hasTolerance ? 2 : 0) + (use == Use::kWrites ? 3 : 0);
  }
};
// clang-format off
constexpr Order kOrders[] = {
    //              files          tolerance
    {"read",         Use::kReads,  false, Read},
    {"describe",     Use::kReads,  false, DescribeFiles},
    {"read-package", Use::kReads,  false, ReadPackages},
    {"read-vrml",    Use::kNone,   false, ReadVrmlText},
    {"mesh",         Use::kNone,   true,  MeshBody},
    {"extents",      Use::kNone,   false, MeasureExtents},
    {"measures",     Use::kNone,   false, Measure},
    {"write-step",   Use::kWrites, true,  StepFiles},
    {"write-iges",   Use::kWrites, true,  SurfaceFiles<WriteIges>},
    {"write-gltf",   Use::kWrites, true,  FacetFiles<WriteGltf>},
    {"write-3mf",    Use::kWrites, true,  FacetFiles<WriteThreeMf>},
};
// clang-format on

/// The arguments end with a null.
Arguments ArgumentsOf(const Order& order, char** arguments) {
  Arguments given;
  char** next = arguments + 3;
  if (order.use == Use::kReads) {
    given.foresight = ForesightOf(*next++);
    while (*next != nullptr) given.filesToRead.emplace_back(*next++);
  }
  if (order.use == Use::kWrites) given.file = *next++;
  if (order.hasTolerance) {
    given.tolerance = {RealOrZero(next[0]), RealOrZero(next[1])};
    next += 2;
  }
  if (order.use == Use::kWrites) {
    given.files = *next++;
    given.time = *next;
  }
  return given;
}

Result<void> RunOrder(const Order& order, char** arguments) {
  try {
    LimitProcess(IntegerOrZero(arguments[1]), std::strtoull(arguments[2], nullptr, 10));
    CollectKernelMessages();
    const Arguments given = ArgumentsOf(order, arguments);
    Confine({given.filesToRead, std::filesystem::path(given.file).parent_path()});
    return order.run(given);
  } catch (const Standard_OutOfMemory&) {
    return Fault{"exceeds the memory limit"};
  } catch (const Standard_Failure& failure) {
    return KernelFault(failure);
  } catch (const std::bad_alloc&) {
    return Fault{"exceeds the memory limit"};
  } catch (const std::exception& error) {
    return Fault{error.what()};
  } catch (...) {
    return Fault{"Open CASCADE failed without saying why"};
  }
}

/// Prints the guards of every order: "landlock 7", "call filter yes".
int PrintLimits() {
  const Confinement guards = Confine({});
  const std::string files = guards.landlock > 0 ? std::to_string(guards.landlock) : "no";
  std::printf("landlock %s\ncall filter %s\n", files.c_str(), guards.hasCallFilter ? "yes" : "no");
  return std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace vanzet::modeller

int main(int argc, char** argv) {
  using namespace vanzet::modeller;
  if (argc == 2 && std::string_view(argv[1]) == "--limits") return PrintLimits();
  for (const Order& order : kOrders) {
    if (!order.CanHave(argc - 1) || order.word != argv[1]) continue;
    const auto done = RunOrder(order, argv + 1);
    if (!done) ReportFault(done.fault());
    // Everything is written and reported; the state of the kernel ends with the process.
    std::_Exit(done ? EXIT_SUCCESS : EXIT_FAILURE);
  }
  ReportFault({"the workbench and its exchange program are of different versions"});
  return EXIT_FAILURE;
}
