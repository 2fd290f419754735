#include "modeller/foreign.h"

#include <BRep_Builder.hxx>
#include <TopoDS_Compound.hxx>
#include <fstream>

#include "base/number_text.h"
#include "modeller/answers.h"
#include "modeller/exchange_process.h"
#include "modeller/parcel.h"

namespace vanzet::modeller {
namespace {

Result<void> Pack(const Shape& shape, const MemoryFile& parcel) {
  return CatchKernelFailures([&]() -> Result<void> {
    std::ofstream bytes(parcel.Path(), std::ios::binary);
    PackParcel({{"", {}, shape.shape, shape.origin->surfaces}}, bytes);
    bytes.close();
    if (!bytes) return Fault{.text = "out of memory", .kind = FaultKind::kSystem};
    return {};
  });
}

/// Has the exchange program carry out an order on the shape, and reads its answer.
template <class Read>
auto WorkOn(const Shape& shape, std::vector<std::string> arguments, Read read)
    -> decltype(read(std::declval<std::istream&>())) {
  VANZET_TRY(const auto parcel, MemoryFile::Make());
  VANZET_DO(Pack(shape, parcel));
  const ExchangeLimits& limits = shape.origin->exchange.limits;
  arguments.insert(arguments.begin() + 1, {std::to_string(limits.seconds), std::to_string(limits.bytes)});
  VANZET_DO(RunExchange(shape.origin->exchange, arguments, parcel));
  std::ifstream answer(parcel.Path(), std::ios::binary);
  return read(answer);
}

template <class Value>
Result<Value> WithOrigin(Result<Value> result, const Shape& shape) {
  if (result) return result;
  Fault fault = result.fault();
  fault.text = shape.origin->file.string() + ": " + fault.text;
  return fault;
}

}  // namespace

Body ForeignBody(Origin origin) {
  TopoDS_Compound place;
  BRep_Builder().MakeCompound(place);
  return BodyOf(place, false, std::make_shared<const Origin>(std::move(origin)));
}

Result<Mesh> MeshOfForeign(const Shape& shape, const MeshTolerance& tolerance) {
  return WithOrigin(
      WorkOn(shape, {"mesh", ExactText(tolerance.chord), ExactText(tolerance.angle)}, UnpackMesh), shape);
}

Result<geometry::Box3d> ExtentsOfForeign(const Shape& shape) {
  return WithOrigin(WorkOn(shape, {"extents"}, UnpackBox), shape);
}

Result<Measures> MeasuresOfForeign(const Shape& shape) {
  return WithOrigin(WorkOn(shape, {"measures"}, UnpackMeasures), shape);
}

}  // namespace vanzet::modeller
