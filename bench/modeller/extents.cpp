#include <BRepBndLib.hxx>
#include <Bnd_Box.hxx>

#include "modeller/facets.h"
#include "modeller/kernel.h"
#include "modeller/measures.h"
#include "modeller/shape.h"

namespace vanzet::modeller {
namespace {

using geometry::Box3d;

Result<Box3d> ExtentsOf(const Mesh& mesh) {
  if (mesh.points.empty()) return Fault{"the body has no extent"};
  Box3d box;
  for (const geometry::Point3d& point : mesh.points) box.Insert(point);
  return box;
}

Result<Box3d> ExtentsOf(const TopoDS_Shape& shape) {
  Bnd_Box box;
  BRepBndLib::AddOptimal(shape, box, Standard_False, Standard_False);
  if (box.IsVoid() || box.IsOpen()) return Fault{"the body has no extent"};
  box.SetGap(0);
  const gp_Pnt low = box.CornerMin();
  const gp_Pnt high = box.CornerMax();
  return Box3d({low.X(), low.Y(), low.Z()}, {high.X(), high.Y(), high.Z()});
}

}  // namespace

Result<Box3d> Extents(const Body& body) {
  return Guarded([&]() -> Result<Box3d> {
    const Shape& shape = body.shape();
    return shape.fromStl ? ExtentsOf(FacetsOf(shape.shape)) : ExtentsOf(shape.shape);
  });
}

}  // namespace vanzet::modeller
