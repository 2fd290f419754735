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

struct Corners {
  Vector3d a, b, c;
};

Corners CornersOf(const Mesh& mesh, const std::array<int, 3>& triangle) {
  const auto corner = [&](int i) {
    return Vector3d(Point3d(), mesh.points[static_cast<std::size_t>(triangle[static_cast<std::size_t>(i)])]);
  };
  return {corner(0), corner(1), corner(2)};
}

/// A sum of places, each with its weight.
struct Weighted {
  double weight = 0;
  Vector3d moment;

  void Add(double part, const Vector3d& place) {
    weight += part;
    moment = moment + place * part;
  }
  Point3d Centre() const { return Point3d() + moment * (1 / weight); }
};

}  // namespace

Result<Measures> MeasuresOf(const Body& body) {
  return CatchKernelFailures([&]() -> Result<Measures> {
    const Shape& shape = body.shape();
    if (IsForeign(shape)) return MeasuresOfForeign(shape);
    return shape.fromStl ? MeasuresOf(FacetsOf(shape.shape)) : MeasuresOf(shape.shape);
  });
}

std::array<double, 6> InMetres(const geometry::Box3d& box) {
  std::array<double, 6> metres = {box.min.x, box.min.y, box.min.z, box.max.x, box.max.y, box.max.z};
  for (double& number : metres) number /= 1000;
  return metres;
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

bool IsClosed(const Mesh& mesh) {
  std::vector<std::pair<int, int>> ways;
  for (const auto& [a, b, c] : mesh.triangles) {
    ways.insert(ways.end(), {{a, b}, {b, c}, {c, a}});
  }
  std::ranges::sort(ways);
  const bool isTwice = std::ranges::adjacent_find(ways) != ways.end();
  return !ways.empty() && !isTwice && std::ranges::all_of(ways, [&](const auto& way) {
    return std::ranges::binary_search(ways, std::pair(way.second, way.first));
  });
}

Measures MeasuresOf(const Mesh& mesh) {
  Weighted volume, area;
  for (const auto& triangle : mesh.triangles) {
    const auto [a, b, c] = CornersOf(mesh, triangle);
    volume.Add(Dot(a, Cross(b, c)) / 6, (a + b + c) * 0.25);
    area.Add(Cross(b - a, c - a).Magnitude() / 2, (a + b + c) * (1.0 / 3));
  }
  Measures measures;
  measures.closed = IsClosed(mesh);
  measures.area = area.weight;
  if (measures.closed) measures.volume = volume.weight;
  if (area.weight > 0) measures.centroid = (measures.volume != 0 ? volume : area).Centre();
  return measures;
}

}  // namespace vanzet::modeller
