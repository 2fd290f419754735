// The exchange program. Its arguments: the order, the limits in seconds and bytes, then the file, the
// tolerances of the mesh and the bodies of each file if the order has them. Bodies and answers come and go
// through descriptor 3; process.h describes its reports.

#include <BRepBuilderAPI_Transform.hxx>
#include <Standard_OutOfMemory.hxx>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "base/numbers.h"
#include "modeller/answers.h"
#include "modeller/body_size.h"
#include "modeller/exchange/confinement.h"
#include "modeller/exchange/process.h"
#include "modeller/exchange/read_file.h"
#include "modeller/exchange/read_vrml.h"
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

template <class Write>
Result<void> WriteBy(Write write) {
  std::ofstream bytes(kParcel, std::ios::binary);
  write(bytes);
  bytes.close();
  if (!bytes) return Fault{"exceeds the memory limit"};
  return {};
}

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

template <class Value>
Result<void> WriteAnswer(const Result<Value>& value) {
  if (!value) return value.fault();
  return WriteBy([&](std::ostream& bytes) { Pack(*value, bytes); });
}

struct Arguments {
  std::string file;
  MeshTolerance tolerance;
  std::string files;  ///< the bodies of each file that is written; parcel.h
};

Result<void> Read(const Arguments& given) {
  VANZET_TRY(const auto shape, ReadFile(given.file));
  return WriteAnswer<ReadBody>(AnswerOf(shape));
}

Result<void> ReadVrmlText(const Arguments&) {
  std::ifstream text(kParcel, std::ios::binary);
  return WriteAnswer(ReadVrml(text));
}

/// Calls `write(bodies, path)` for each file, and reports the progress.
template <class Write>
Result<void> WriteFiles(const std::vector<ParcelBody>& bodies, const Arguments& given, Write write) {
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
  PrepareForStep(bodies);
  return WriteFiles(bodies, given, WriteStep);
}

Result<void> GltfFiles(const Arguments& given) {
  VANZET_TRY(const auto bodies, ReadParcel());
  PrepareForGltf(bodies, given.tolerance);
  return WriteFiles(bodies, given, WriteGltf);
}

Result<void> MeshBody(const Arguments& given) {
  VANZET_TRY(const auto body, ReadOneBody());
  VANZET_TRY(const auto mesh, MeshOfSurfaces(body, given.tolerance));
  if (mesh.triangles.size() > kMostFacets) {
    return Fault{"needs more than " + std::to_string(kMostFacets) + " facets"};
  }
  return WriteAnswer<Mesh>(mesh);
}

Result<void> MeasureExtents(const Arguments&) {
  VANZET_TRY(const auto body, ReadOneBody());
  return WriteAnswer(Extents(body));
}

Result<void> Measure(const Arguments&) {
  VANZET_TRY(const auto body, ReadOneBody());
  return WriteAnswer(MeasuresOf(body));
}

/// The use that an order makes of its file.
enum class Use { kNone, kReads, kWrites };

struct Order {
  std::string_view word;
  Use use;
  bool hasTolerance;
  Result<void> (*run)(const Arguments& given);

  /// With the order itself and the limits.
  int CountArguments() const {
    return 3 + (use != Use::kNone ? 1 : 0) + (hasTolerance ? 2 : 0) + (use == Use::kWrites ? 1 : 0);
  }

  Needs NeedsFor(const Arguments& given) const {
    const std::filesystem::path file = given.file;
    if (use == Use::kReads) return {.fileToRead = file, .folderToWrite = {}};
    if (use == Use::kWrites) return {.fileToRead = {}, .folderToWrite = file.parent_path()};
    return {};
  }
};
// clang-format off
constexpr Order kOrders[] = {
    //            its file       tolerance
    {"read",       Use::kReads,  false, Read},
    {"read-vrml",  Use::kNone,   false, ReadVrmlText},
    {"mesh",       Use::kNone,   true,  MeshBody},
    {"extents",    Use::kNone,   false, MeasureExtents},
    {"measures",   Use::kNone,   false, Measure},
    {"write-step", Use::kWrites, true,  StepFiles},
    {"write-gltf", Use::kWrites, true,  GltfFiles},
};
// clang-format on

Arguments ArgumentsOf(const Order& order, char** arguments) {
  Arguments given;
  char** next = arguments + 3;
  if (order.use != Use::kNone) given.file = *next++;
  if (order.hasTolerance) {
    given.tolerance = {RealOrZero(next[0]), RealOrZero(next[1])};
    next += 2;
  }
  if (order.use == Use::kWrites) given.files = *next;
  return given;
}

Result<void> RunOrder(const Order& order, char** arguments) {
  try {
    LimitProcess(IntegerOrZero(arguments[1]), std::strtoull(arguments[2], nullptr, 10));
    CollectKernelMessages();
    const Arguments given = ArgumentsOf(order, arguments);
    Confine(order.NeedsFor(given));
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
    if (argc != order.CountArguments() + 1 || order.word != argv[1]) continue;
    const auto done = RunOrder(order, argv + 1);
    if (!done) ReportFault(done.fault());
    // Everything is written and reported; the state of the kernel ends with the process.
    std::_Exit(done ? EXIT_SUCCESS : EXIT_FAILURE);
  }
  ReportFault({"the workbench and its exchange program are of different versions"});
  return EXIT_FAILURE;
}
