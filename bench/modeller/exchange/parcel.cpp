#include "modeller/exchange/parcel.h"

#include <BRepBuilderAPI_Transform.hxx>
#include <BinTools.hxx>
#include <TopoDS_Iterator.hxx>
#include <fstream>

#include "base/numbers.h"
#include "modeller/facets.h"

namespace vanzet::modeller {
namespace {

constexpr const char* kParcel = "/proc/self/fd/3";

/// "0.6 0.6 0.6 name"
ParcelBody BodyOfLine(std::string_view line) {
  ParcelBody body;
  for (double* part : {&body.colour.red, &body.colour.green, &body.colour.blue}) {
    const auto number = RealPrefix(line);
    if (!number) return body;
    *part = number->value;
    line.remove_prefix(number->used);
  }
  body.name = line.substr(1);
  return body;
}

/// The shape with its place worked into its geometry: one that is elsewhere would become an assembly's part.
TopoDS_Shape WithoutPlace(const TopoDS_Shape& shape) {
  if (HasFacetsOnly(shape)) return FaceOf(FacetsOf(shape));
  const gp_Trsf place = shape.Location().Transformation();
  return BRepBuilderAPI_Transform(shape.Located(TopLoc_Location()), place, Standard_True).Shape();
}

}  // namespace

Result<std::vector<ParcelBody>> ReadParcel() {
  std::ifstream bytes(kParcel, std::ios::binary);
  std::string line;
  std::getline(bytes, line);
  std::vector<ParcelBody> bodies(static_cast<std::size_t>(IntegerOrZero(line)));
  for (ParcelBody& body : bodies) {
    std::getline(bytes, line);
    body = BodyOfLine(line);
  }
  TopoDS_Shape compound;
  BinTools::Read(compound, bytes);
  if (compound.IsNull() || compound.NbChildren() != static_cast<int>(bodies.size())) {
    return Fault{"the bodies did not reach the exchange program"};
  }
  TopoDS_Iterator child(compound);
  for (ParcelBody& body : bodies) {
    body.shape = WithoutPlace(child.Value());
    child.Next();
  }
  return bodies;
}

Result<void> WriteParcel(const TopoDS_Shape& shape) {
  std::ofstream bytes(kParcel, std::ios::binary);
  BinTools::Write(shape, bytes);
  bytes.close();
  if (!bytes) return Fault{"needs more memory than it may take"};
  return {};
}

}  // namespace vanzet::modeller
