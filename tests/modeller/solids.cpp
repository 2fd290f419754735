#include "modeller/solids.h"

#include <BRepAlgoAPI_Common.hxx>
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_NurbsConvert.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <BRepFilletAPI_MakeFillet.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeHalfSpace.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <gp_Pln.hxx>

#include "support/vdm_values.h"

namespace vanzet::test {

bool IsSound(const modeller::Body& body) {
  return BRepCheck_Analyzer(body.shape().shape).IsValid();
}

modeller::Measures Measured(const modeller::Body& body) {
  return Get(modeller::MeasuresOf(body));
}

std::array<double, 6> Box(const modeller::Body& body) {
  const geometry::Box3d box = Get(modeller::Extents(body));
  return {box.min.x, box.min.y, box.min.z, box.max.x, box.max.y, box.max.z};
}

TopoDS_Shape Sphere(double radius) {
  return BRepPrimAPI_MakeSphere(radius);
}

TopoDS_Shape Torus(double radius, double tube) {
  return BRepPrimAPI_MakeTorus(radius, tube);
}

TopoDS_Shape Brick(double x, double y, double z) {
  return BRepPrimAPI_MakeBox(x, y, z);
}

TopoDS_Shape Casting() {
  const TopoDS_Shape brick = Brick(60, 40, 30);
  BRepFilletAPI_MakeFillet rounding(brick);
  for (TopExp_Explorer edges(brick, TopAbs_EDGE); edges.More(); edges.Next()) {
    rounding.Add(4, TopoDS::Edge(edges.Current()));
  }
  const gp_Ax2 middle(gp_Pnt(30, 20, -1), gp_Dir(0, 0, 1));
  return BRepAlgoAPI_Cut(rounding.Shape(), BRepPrimAPI_MakeCylinder(middle, 8, 40).Shape());
}

TopoDS_Shape AsSplines(const TopoDS_Shape& shape) {
  return BRepBuilderAPI_NurbsConvert(shape, Standard_True);
}

TopoDS_Shape CutObliquely(const TopoDS_Shape& shape) {
  const gp_Pln plane(gp_Pnt(1, 0, 0), gp_Dir(1, 2, 3));
  const TopoDS_Face face = BRepBuilderAPI_MakeFace(plane);
  return BRepAlgoAPI_Common(shape, BRepPrimAPI_MakeHalfSpace(face, gp_Pnt(-9, -9, -9)).Solid());
}

}  // namespace vanzet::test
