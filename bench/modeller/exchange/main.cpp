// The exchange program. Its arguments: what to do, the seconds and bytes it may take, the file if there is
// one, and for writing the tolerances of a mesh. Bodies come and go through descriptor 3; what it tells
// is described in process.h.

#include <BRepBuilderAPI_Transform.hxx>
#include <BinTools.hxx>
#include <Standard_OutOfMemory.hxx>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "base/numbers.h"
#include "modeller/exchange/process.h"
#include "modeller/exchange/read_file.h"
#include "modeller/exchange/read_vrml.h"
#include "modeller/exchange/write_file.h"
#include "modeller/facets.h"
#include "modeller/kernel.h"
#include "modeller/parcel.h"

namespace vanzet::modeller {
namespace {

/// The file in memory that this program was started with, under a name by which this process can open it.
constexpr const char* kParcel = "/proc/self/fd/3";

/// The shape with its place worked into its geometry: one that is elsewhere would become an assembly's part.
TopoDS_Shape WithoutPlace(const TopoDS_Shape& shape) {
  if (HasFacetsOnly(shape)) return FaceOf(FacetsOf(shape));
  const gp_Trsf place = shape.Location().Transformation();
  return BRepBuilderAPI_Transform(shape.Located(TopLoc_Location()), place, Standard_True).Shape();
}

template <class Write>
Result<void> Leave(Write write) {
  std::ofstream bytes(kParcel, std::ios::binary);
  write(bytes);
  bytes.close();
  if (!bytes) return Fault{"needs more memory than it may take"};
  return {};
}

/// The bodies that are to be written. The places of shapes are worked into their geometry.
Result<std::vector<ParcelBody>> ReadParcel() {
  std::ifstream bytes(kParcel, std::ios::binary);
  VANZET_TRY(auto bodies, UnpackParcel(bytes));
  for (ParcelBody& body : bodies) body.shape = WithoutPlace(body.shape);
  return bodies;
}

/// Leaves bodies for the one that started this program.
Result<void> WriteParcel(const std::vector<ParcelBody>& bodies) {
  return Leave([&](std::ostream& bytes) { PackParcel(bodies, bytes); });
}

/// Leaves a shape in Open CASCADE's binary form.
Result<void> WriteParcel(const TopoDS_Shape& shape) {
  return Leave([&](std::ostream& bytes) { BinTools::Write(shape, bytes); });
}

struct Order {
  std::string file;
  MeshTolerance tolerance;
};

Result<void> Read(const Order& order) {
  VANZET_TRY(const auto shape, ReadFile(order.file));
  return WriteParcel(shape);
}

Result<void> ReadVrmlText(const Order&) {
  std::ifstream text(kParcel, std::ios::binary);
  VANZET_TRY(const auto bodies, ReadVrml(text));
  return WriteParcel(bodies);
}

Result<void> StepFile(const Order& order) {
  VANZET_TRY(const auto bodies, ReadParcel());
  return WriteStep(bodies, order.file);
}

Result<void> GltfFile(const Order& order) {
  VANZET_TRY(const auto bodies, ReadParcel());
  return WriteGltf(bodies, order.file, order.tolerance);
}

struct Work {
  std::string_view word;
  int arguments;
  Result<void> (*work)(const Order& order);
};
constexpr Work kWorks[] = {
    {"read", 4, Read},
    {"read-vrml", 3, ReadVrmlText},
    {"write-step", 6, StepFile},
    {"write-gltf", 6, GltfFile},
};

Result<void> Done(const Work& work, char** arguments) {
  KeepWithin(IntegerOrZero(arguments[1]), std::strtoull(arguments[2], nullptr, 10));
  CollectComplaints();
  Order order;
  if (work.arguments > 3) order.file = arguments[3];
  if (work.arguments > 4) order.tolerance = {RealOrZero(arguments[4]), RealOrZero(arguments[5])};
  try {
    return work.work(order);
  } catch (const Standard_OutOfMemory&) {
    return Fault{"needs more memory than it may take"};
  } catch (const Standard_Failure& failure) {
    return KernelFault(failure);
  } catch (const std::bad_alloc&) {
    return Fault{"needs more memory than it may take"};
  } catch (const std::exception& error) {
    return Fault{error.what()};
  }
}

}  // namespace
}  // namespace vanzet::modeller

int main(int argc, char** argv) {
  using namespace vanzet::modeller;
  for (const Work& work : kWorks) {
    if (argc != work.arguments + 1 || work.word != argv[1]) continue;
    const auto done = Done(work, argv + 1);
    if (!done) TellFault(done.fault().text);
    // All is written and told; what the kernel keeps for the process goes with it.
    std::_Exit(done ? EXIT_SUCCESS : EXIT_FAILURE);
  }
  TellFault("the workbench and its exchange program do not fit together");
  return EXIT_FAILURE;
}
