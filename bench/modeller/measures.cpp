#include "modeller/measures.h"

#include <BRepBndLib.hxx>
#include <BRepGProp.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <GProp_GProps.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_DataMapOfShapeInteger.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <algorithm>
#include <utility>

#include "modeller/facets.h"
#include "modeller/foreign.h"
#include "modeller/kernel.h"

namespace vanzet::modeller {
namespace {

using geometry::Box3d;
using geometry::Point3d;
using geometry::Vector3d;

geometry::Point3d PointOf(const gp_Pnt& p) {
  return {p.X(), p.Y(), p.Z()};
}

Measures MeasuresOf(const TopoDS_Shape& shape) {
  GProp_GProps volume;
  BRepGProp::VolumeProperties(shape, volume, Standard_True);
  GProp_GProps area;
  BRepGProp::SurfaceProperties(shape, area);
  Measures measures;
  measures.volume = volume.Mass();
  measures.area = area.Mass();
  measures.centroid = PointOf((measures.volume != 0 ? volume : area).CentreOfMass());
  measures.closed = !HasFreeEdge(shape);
  return measures;
}

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

bool HasFreeEdge(const TopoDS_Shape& shape) {
  TopTools_DataMapOfShapeInteger uses;
  for (TopExp_Explorer faces(shape, TopAbs_FACE); faces.More(); faces.Next()) {
    for (TopExp_Explorer edges(faces.Current(), TopAbs_EDGE); edges.More(); edges.Next()) {
      if (BRep_Tool::Degenerated(TopoDS::Edge(edges.Current()))) continue;
      if (!uses.IsBound(edges.Current())) uses.Bind(edges.Current(), 0);
      ++uses.ChangeFind(edges.Current());
    }
  }
  for (TopTools_DataMapOfShapeInteger::Iterator use(uses); use.More(); use.Next()) {
    if (use.Value() < 2) return true;
  }
  return uses.IsEmpty();
}

Result<Measures> MeasuresOf(const Body& body) {
  return CatchKernelFailures([&]() -> Result<Measures> {
    const Shape& shape = body.shape();
    if (IsForeign(shape)) return MeasuresOfForeign(shape);
    return shape.fromStl ? MeasuresOf(FacetsOf(shape.shape)) : MeasuresOf(shape.shape);
  });
}

Result<Box3d> Extents(const Body& body) {
  const Shape& shape = body.shape();
  if (shape.box) return *shape.box;
  const auto box = CatchKernelFailures([&]() -> Result<Box3d> {
    if (IsForeign(shape)) return ExtentsOfForeign(shape);
    return shape.fromStl ? ExtentsOf(FacetsOf(shape.shape)) : ExtentsOf(shape.shape);
  });
  if (box) shape.box = *box;
  return box;
}

}  // namespace vanzet::modeller
