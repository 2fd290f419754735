#include "modeller/foreign.h"

#include <BRep_Builder.hxx>
#include <TopoDS_Compound.hxx>
#include <cmath>
#include <fstream>
#include <gp_Trsf.hxx>

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

geometry::Point3d Placed(const geometry::Point3d& point, const gp_Trsf& place) {
  const gp_Pnt placed = gp_Pnt(point.x, point.y, point.z).Transformed(place);
  return {placed.X(), placed.Y(), placed.Z()};
}

/// Whether the place turns the axes into each other, so that a box stays a box.
bool KeepsAxes(const gp_Trsf& place) {
  constexpr double kNear = 1e-12;
  for (int row = 1; row <= 3; ++row) {
    for (int column = 1; column <= 3; ++column) {
      const double value = std::abs(place.Value(row, column));
      if (value > kNear && value < 1 - kNear) return false;
    }
  }
  return true;
}

geometry::Box3d Placed(const geometry::Box3d& box, const gp_Trsf& place) {
  geometry::Box3d placed;
  placed.Insert(Placed(box.min, place));
  placed.Insert(Placed(box.max, place));
  return placed;
}

gp_Trsf PlaceOf(const Shape& shape) {
  return shape.shape.Location().Transformation();
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

int RootsOf(const Body& body) {
  return IsForeign(body.shape()) ? body.shape().origin->roots : 1;
}

Result<Mesh> MeshOfForeign(const Shape& shape, const MeshTolerance& tolerance) {
  if (const auto& known = shape.origin->known.mesh; known && tolerance == MeshTolerance()) {
    Mesh mesh = *known;
    const gp_Trsf place = PlaceOf(shape);
    for (geometry::Point3d& point : mesh.points) point = Placed(point, place);
    return mesh;
  }
  return WithOrigin(
      WorkOn(shape, {"mesh", ExactText(tolerance.chord), ExactText(tolerance.angle)}, UnpackMesh), shape);
}

Result<geometry::Box3d> ExtentsOfForeign(const Shape& shape) {
  const gp_Trsf place = PlaceOf(shape);
  if (const auto& known = shape.origin->known.box; known && KeepsAxes(place)) return Placed(*known, place);
  return WithOrigin(WorkOn(shape, {"extents"}, UnpackBox), shape);
}

Result<Measures> MeasuresOfForeign(const Shape& shape) {
  if (const auto& known = shape.origin->known.measures) {
    Measures measures = *known;
    measures.centroid = Placed(measures.centroid, PlaceOf(shape));
    return measures;
  }
  return WithOrigin(WorkOn(shape, {"measures"}, UnpackMeasures), shape);
}

}  // namespace vanzet::modeller
