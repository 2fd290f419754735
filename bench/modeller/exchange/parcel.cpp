#include "modeller/exchange/parcel.h"

#include <BRepBuilderAPI_Transform.hxx>
#include <BinTools.hxx>
#include <fstream>

#include "modeller/facets.h"

namespace vanzet::modeller {
namespace {

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

}  // namespace

Result<std::vector<ParcelBody>> ReadParcel() {
  std::ifstream bytes(kParcel, std::ios::binary);
  auto bodies = UnpackParcel(bytes);
  if (!bodies) return bodies;
  for (ParcelBody& body : *bodies) body.shape = WithoutPlace(body.shape);
  return bodies;
}

Result<void> WriteParcel(const std::vector<ParcelBody>& bodies) {
  return Leave([&](std::ostream& bytes) { PackParcel(bodies, bytes); });
}

Result<void> WriteParcel(const TopoDS_Shape& shape) {
  return Leave([&](std::ostream& bytes) { BinTools::Write(shape, bytes); });
}

}  // namespace vanzet::modeller
