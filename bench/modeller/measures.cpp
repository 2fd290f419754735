#include "modeller/measures.h"

#include <BRepGProp.hxx>
#include <BRep_Tool.hxx>
#include <GProp_GProps.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_DataMapOfShapeInteger.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>

#include "modeller/facet_measures.h"
#include "modeller/facets.h"
#include "modeller/kernel.h"
#include "modeller/shape.h"

namespace vanzet::modeller {
namespace {

geometry::Point3d PointOf(const gp_Pnt& p) {
  return {p.X(), p.Y(), p.Z()};
}

/// Whether every edge is met by two faces, or twice by one.
bool IsClosed(const TopoDS_Shape& shape) {
  TopTools_DataMapOfShapeInteger uses;
  for (TopExp_Explorer faces(shape, TopAbs_FACE); faces.More(); faces.Next()) {
    for (TopExp_Explorer edges(faces.Current(), TopAbs_EDGE); edges.More(); edges.Next()) {
      if (BRep_Tool::Degenerated(TopoDS::Edge(edges.Current()))) continue;
      if (!uses.IsBound(edges.Current())) uses.Bind(edges.Current(), 0);
      ++uses.ChangeFind(edges.Current());
    }
  }
  for (TopTools_DataMapOfShapeInteger::Iterator use(uses); use.More(); use.Next()) {
    if (use.Value() < 2) return false;
  }
  return !uses.IsEmpty();
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
  measures.closed = IsClosed(shape);
  return measures;
}

}  // namespace

Result<Measures> MeasuresOf(const Body& body) {
  return Guarded([&]() -> Result<Measures> {
    const Shape& shape = body.shape();
    return shape.fromStl ? MeasuresOf(FacetsOf(shape.shape)) : MeasuresOf(shape.shape);
  });
}

std::array<double, 6> InMetres(const geometry::Box3d& box) {
  std::array<double, 6> metres = {box.min.x, box.min.y, box.min.z, box.max.x, box.max.y, box.max.z};
  for (double& number : metres) number /= 1000;
  return metres;
}

}  // namespace vanzet::modeller
