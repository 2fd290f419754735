#include "modeller/booleans.h"

#include <BRepAlgoAPI_Cut.hxx>
#include <BRep_Builder.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_ListOfShape.hxx>
#include <TopoDS_Compound.hxx>
#include <algorithm>

#include "modeller/foreign.h"
#include "modeller/kernel.h"

namespace vanzet::modeller {
namespace {

TopTools_ListOfShape ShapesOf(const std::vector<Body>& bodies) {
  TopTools_ListOfShape shapes;
  for (const Body& body : bodies) shapes.Append(body.shape().shape);
  return shapes;
}

bool IsOfAFile(const Body& body) {
  return IsForeign(body.shape());
}

}  // namespace

Result<Body> CutBodies(const std::vector<Body>& bodies, const std::vector<Body>& tools) {
  if (tools.empty()) return JoinBodies(bodies);
  if (bodies.empty()) return Fault{"no body was given"};
  if (std::ranges::any_of(bodies, &Body::IsStl) || std::ranges::any_of(tools, &Body::IsStl)) {
    return Fault{"a body of facets cannot be cut"};
  }
  if (std::ranges::any_of(bodies, IsOfAFile) || std::ranges::any_of(tools, IsOfAFile)) {
    return Fault{"the body of a file cannot be cut"};
  }
  return CatchKernelFailures([&]() -> Result<Body> {
    BRepAlgoAPI_Cut cut;
    cut.SetArguments(ShapesOf(bodies));
    cut.SetTools(ShapesOf(tools));
    cut.Build();
    if (!cut.IsDone() || cut.HasErrors()) return Fault{"Open CASCADE cannot cut it"};
    if (!TopExp_Explorer(cut.Shape(), TopAbs_SOLID).More()) return Fault{"the cut leaves nothing"};
    return BodyOf(cut.Shape());
  });
}

Result<Body> JoinBodies(const std::vector<Body>& bodies) {
  if (bodies.empty()) return Fault{"no body was given"};
  if (bodies.size() == 1) return bodies.front();
  if (std::ranges::any_of(bodies, IsOfAFile)) return Fault{"the body of a file cannot be joined to others"};
  return CatchKernelFailures([&]() -> Result<Body> {
    const BRep_Builder builder;
    TopoDS_Compound compound;
    builder.MakeCompound(compound);
    for (const Body& body : bodies) builder.Add(compound, body.shape().shape);
    return BodyOf(compound, std::ranges::all_of(bodies, &Body::IsStl));
  });
}

}  // namespace vanzet::modeller
