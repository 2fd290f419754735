#include "modeller/face.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRep_Builder.hxx>
#include <GC_MakeArcOfCircle.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Wire.hxx>
#include <gp_Pln.hxx>
#include <gp_Pnt.hxx>

namespace vanzet::modeller {
namespace {

using geometry::Point;
using geometry::Span;

gp_Pnt PointOf(const Point& p) {
  return {p.x, p.y, 0};
}

TopoDS_Vertex VertexAt(const Point& p) {
  TopoDS_Vertex vertex;
  BRep_Builder().MakeVertex(vertex, PointOf(p), Precision::Confusion());
  return vertex;
}

/// An arc through its ends and its middle: the ends are met exactly, whatever the centre's last digits.
TopoDS_Edge EdgeOf(const Span& span, const TopoDS_Vertex& from, const TopoDS_Vertex& to) {
  if (span.dir == geometry::LINEAR) return BRepBuilderAPI_MakeEdge(from, to);
  const Handle(Geom_TrimmedCurve) arc =
      GC_MakeArcOfCircle(PointOf(span.p0), PointOf(span.Mid()), PointOf(span.p1)).Value();
  return BRepBuilderAPI_MakeEdge(arc, from, to);
}

}  // namespace

TopoDS_Face FaceOf(const Outline& outline) {
  const BRep_Builder builder;
  TopoDS_Wire wire;
  builder.MakeWire(wire);
  const TopoDS_Vertex first = VertexAt(outline.front().p0);
  TopoDS_Vertex from = first;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const TopoDS_Vertex to = i + 1 < outline.size() ? VertexAt(outline[i].p1) : first;
    builder.Add(wire, EdgeOf(outline[i], from, to));
    from = to;
  }
  wire.Closed(Standard_True);
  return BRepBuilderAPI_MakeFace(gp_Pln(), wire, Standard_True);
}

}  // namespace vanzet::modeller
