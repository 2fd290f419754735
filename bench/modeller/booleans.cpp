#include "modeller/booleans.h"

#include <BRepAlgoAPI_Cut.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_ListOfShape.hxx>
#include <algorithm>

#include "modeller/joined.h"
#include "modeller/kernel.h"
#include "modeller/shape.h"

namespace vanzet::modeller {
namespace {

TopTools_ListOfShape ShapesOf(const std::vector<Body>& bodies) {
  TopTools_ListOfShape shapes;
  for (const Body& body : bodies) shapes.Append(body.shape().shape);
  return shapes;
}

}  // namespace

Result<Body> Cut(const std::vector<Body>& bodies, const std::vector<Body>& away) {
  if (away.empty()) return Joined(bodies);
  if (bodies.empty()) return Fault{"there is no body"};
  if (std::ranges::any_of(bodies, &Body::IsStl) || std::ranges::any_of(away, &Body::IsStl)) {
    return Fault{"a body of facets cannot be cut"};
  }
  return Guarded([&]() -> Result<Body> {
    BRepAlgoAPI_Cut cut;
    cut.SetArguments(ShapesOf(bodies));
    cut.SetTools(ShapesOf(away));
    cut.Build();
    if (!cut.IsDone() || cut.HasErrors()) return Fault{"Open CASCADE cannot cut it"};
    if (!TopExp_Explorer(cut.Shape(), TopAbs_SOLID).More()) return Fault{"nothing is left of it"};
    return BodyOf(cut.Shape());
  });
}

}  // namespace vanzet::modeller
