#include "modeller/solids.h"

#include <BRepAdaptor_Curve.hxx>
#include <BRepAlgoAPI_Common.hxx>
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_NurbsConvert.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <BRepFilletAPI_MakeChamfer.hxx>
#include <BRepFilletAPI_MakeFillet.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeHalfSpace.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <BRep_Builder.hxx>
#include <BinTools.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopTools_ListOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <cmath>
#include <gp_Pln.hxx>
#include <numbers>
#include <sstream>

#include "modeller/foreign.h"
#include "support/vdm_values.h"

namespace vanzet::test {

bool IsSound(const modeller::Body& body) {
  if (!modeller::IsForeign(body.shape())) return BRepCheck_Analyzer(body.shape().shape).IsValid();
  std::istringstream surfaces(body.shape().origin->surfaces);
  TopoDS_Shape shape;
  BinTools::Read(shape, surfaces);
  return !shape.IsNull() && BRepCheck_Analyzer(shape).IsValid();
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

TopoDS_Shape CylinderAlongZ(double x, double y, double radius, double from, double to) {
  return BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(x, y, from), gp_Dir(0, 0, 1)), radius, to - from).Shape();
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

TopoDS_Shape ChuckBody() {
  constexpr double kChamfer = 3, kBore = 40, kHole = 3, kHoleDepth = 20, kSink = 1;
  constexpr int kRings = 4, kHolesInARing = 18;
  const gp_Ax2 inwards(gp_Pnt(0, 0, 0), gp_Dir(-1, 0, 0));
  const TopoDS_Shape disk = BRepPrimAPI_MakeCylinder(inwards, kChuckRadius, kChuckDepth);
  BRepFilletAPI_MakeChamfer chamfer(disk);
  TopTools_IndexedMapOfShape edges;
  TopExp::MapShapes(disk, TopAbs_EDGE, edges);
  for (int i = 1; i <= edges.Extent(); ++i) {
    const TopoDS_Edge& edge = TopoDS::Edge(edges(i));
    if (BRepAdaptor_Curve(edge).GetType() == GeomAbs_Circle) chamfer.Add(kChamfer, edge);
  }
  TopTools_ListOfShape body, holes;
  body.Append(chamfer.Shape());
  holes.Append(BRepPrimAPI_MakeCylinder(inwards, kBore, kChuckDepth).Shape());
  for (int i = 0; i < kRings * kHolesInARing; ++i) {
    const double radius = kBore + 10 + 9 * (i % kRings),
                 angle = 2 * std::numbers::pi * (i / kRings) / kHolesInARing;
    const gp_Ax2 place(gp_Pnt(0, radius * std::cos(angle), radius * std::sin(angle)), gp_Dir(-1, 0, 0));
    holes.Append(BRepPrimAPI_MakeCylinder(place, kHole, kHoleDepth).Shape());
    holes.Append(BRepPrimAPI_MakeCone(place, kHole + kSink, kHole, kSink).Shape());
  }
  BRepAlgoAPI_Cut cut;
  cut.SetArguments(body);
  cut.SetTools(holes);
  cut.Build();
  return cut.Shape();
}

TopoDS_Shape Doubled(const TopoDS_Shape& shape, int levels, double step) {
  const BRep_Builder builder;
  TopoDS_Shape made = shape;
  for (int level = 0; level < levels; ++level) {
    gp_Trsf aside;
    aside.SetTranslation(gp_Vec(std::ldexp(step, level), 0, 0));
    TopoDS_Compound pair;
    builder.MakeCompound(pair);
    builder.Add(pair, made);
    builder.Add(pair, made.Moved(TopLoc_Location(aside)));
    made = pair;
  }
  return made;
}

TopoDS_Shape Wrapped(const TopoDS_Shape& shape, int levels) {
  const BRep_Builder builder;
  TopoDS_Shape made = shape;
  for (int level = 0; level < levels; ++level) {
    TopoDS_Compound group;
    builder.MakeCompound(group);
    builder.Add(group, made);
    made = group;
  }
  return made;
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
