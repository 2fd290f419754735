#include "modeller/booleans.h"

#include <BRepAlgoAPI_Cut.hxx>
#include <BRep_Builder.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_ListOfShape.hxx>
#include <TopoDS_Compound.hxx>
#include <algorithm>

#include "modeller/kernel.h"

namespace vanzet::modeller {
namespace {

TopTools_ListOfShape ShapesOf(const std::vector<Body>& bodies) {
  TopTools_ListOfShape shapes;
  for (const Body& body : bodies) shapes.Append(body.shape().shape);
  return shapes;
}

}  // namespace

Result<Body> CutBodies(const std::vector<Body>& bodies, const std::vector<Body>& tools) {
  if (tools.empty()) return JoinBodies(bodies);
  if (bodies.empty()) return Fault{"no body was given"};
  if (std::ranges::any_of(bodies, &Body::IsStl) || std::ranges::any_of(tools, &Body::IsStl)) {
    return Fault{"a body of facets cannot be cut"};
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
  return CatchKernelFailures([&]() -> Result<Body> {
    const BRep_Builder builder;
    TopoDS_Compound compound;
    builder.MakeCompound(compound);
    for (const Body& body : bodies) builder.Add(compound, body.shape().shape);
    const auto isOfAFile = [](const Body& body) { return body.shape().origin != nullptr; };
    const auto foreign = std::ranges::find_if(bodies, isOfAFile);
    return BodyOf(compound, std::ranges::all_of(bodies, &Body::IsStl),
                  foreign == bodies.end() ? nullptr : foreign->shape().origin);
  });
}

}  // namespace vanzet::modeller
