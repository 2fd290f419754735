#include "offset_peer.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <BRepOffsetAPI_MakeOffset.hxx>
#include <Standard_Failure.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Wire.hxx>
#include <gp_Ax2.hxx>
#include <gp_Circ.hxx>
#include <gp_Pnt.hxx>

namespace vanzet::benchmarks {
namespace {

gp_Pnt PointOf(const geometry::Point& p) {
  return {p.x, p.y, 0};
}

TopoDS_Edge EdgeOf(const geometry::Span& span) {
  if (span.dir == geometry::LINEAR) return BRepBuilderAPI_MakeEdge(PointOf(span.p0), PointOf(span.p1));
  const gp_Dir axis(0, 0, span.dir);
  return BRepBuilderAPI_MakeEdge(gp_Circ(gp_Ax2(PointOf(span.pc), axis), span.radius), PointOf(span.p0),
                                 PointOf(span.p1));
}

}  // namespace

struct PeerContour::Wire {
  TopoDS_Wire wire;
  bool open;
};

PeerContour::PeerContour(const geometry::KurveEx& k) {
  BRepBuilderAPI_MakeWire make;
  for (const geometry::Span& span : k.spans) make.Add(EdgeOf(span));
  wire_ = std::make_unique<Wire>(Wire{make.Wire(), !k.Closed()});
}

PeerContour::~PeerContour() = default;

bool PeerContour::Offset(double distance) const {
  try {
    BRepOffsetAPI_MakeOffset make(wire_->wire, GeomAbs_Arc, wire_->open);
    make.Perform(distance);
    return make.IsDone() && !make.Shape().IsNull();
  } catch (const Standard_Failure&) {
    return false;
  }
}

}  // namespace vanzet::benchmarks
